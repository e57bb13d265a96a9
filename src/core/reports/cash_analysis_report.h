#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"
#include "platform/currency.h"

namespace lorvan {

class Connection;

/// False on a day that is no cash day: the report then says so alone, and its groups need not be asked for.
[[nodiscard]] bool hasCashAnalysis(Connection& main, QDate day);

/// The codes of a group's boxes; a box that holds none has none.
[[nodiscard]] std::vector<qint32> codesOf(const AnalysisGroup& group);

using AnalysisBalances = std::array<Currency, std::tuple_size_v<AnalysisGroups>>;

/// What each group holds on the period's first day. Throws SqlError, CurrencyOverflow.
[[nodiscard]] AnalysisBalances analysisBalances(Connection& main, const ReportInputs& inputs);

/// Splits the balance of the period's first day into what its groups (ReportInputs::analysisGroups) hold and the cash
/// that is left. A group holds the incomes less the expenses of its codes, from the beginning up to that day; a code
/// that stands in two boxes counts twice. One read transaction. Throws SqlError, CurrencyOverflow.
[[nodiscard]] ReportDocument cashAnalysisReport(
    Connection& main, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
