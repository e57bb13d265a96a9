#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"

namespace lorvan {

class Connection;

/// The cash of the period's last day: the balance carried into it, its movements in the order of entry, its balance and
/// totals. Into a date that is no cash day nothing is carried, even if cash days lie before it. One read transaction.
/// Throws SqlError, CurrencyOverflow, ReportCancelled.
[[nodiscard]] ReportDocument dailyCashReport(
    Connection& main, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
