#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"

namespace lorvan {

class Connection;

/// The cash days of the period, newest first, and the period's income, expenses and the difference. One statement.
/// Throws SqlError, CurrencyOverflow, ReportCancelled.
[[nodiscard]] ReportDocument cashSummaryReport(
    Connection& main, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
