#pragma once

#include "reports/report_document.h"
#include "reports/report_inputs.h"
#include "reports/report_progress.h"

namespace lorvan {

class Connection;

/// False on a day that is no cash day: the report then says so alone, and its groups need not be asked for.
[[nodiscard]] bool hasCashAnalysis(Connection& main, QDate day);

/// Splits the balance of the period's first day into what its groups (ReportInputs::analysisGroups) hold and the cash
/// that is left. A group holds the incomes less the expenses of its codes, from the beginning up to that day; a code
/// that stands in two boxes counts twice. One read transaction. Throws SqlError, CurrencyOverflow.
[[nodiscard]] ReportDocument cashAnalysisReport(
    Connection& main, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
