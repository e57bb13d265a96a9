#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"

namespace lorvan {

class Connection;

/// The cash of the period's last day: the carried balance, its movements in the order of entry, its balance and totals.
/// If the date is not a cash day, nothing is carried into it, even if there are earlier cash days. One read
/// transaction. Throws SqlError, CurrencyOverflow, ReportCancelled.
[[nodiscard]] ReportDocument dailyCashReport(
    Connection& main, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
