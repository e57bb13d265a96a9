#pragma once

#include "document/report_document.h"
#include "document/report_inputs.h"
#include "document/report_progress.h"
#include "platform/currency.h"

namespace lorvan {

class Connection;

/// False if the day is not a cash day: then the report only says so, and the user need not be asked for the groups.
[[nodiscard]] bool hasCashAnalysis(Connection& main, QDate day);

/// The codes in a group's boxes; a box without a code is left out.
[[nodiscard]] std::vector<qint32> codesOf(const AnalysisGroup& group);

using AnalysisBalances = std::array<Currency, std::tuple_size_v<AnalysisGroups>>;

/// The amount in each group on the period's first day. Throws SqlError, CurrencyOverflow.
[[nodiscard]] AnalysisBalances analysisBalances(Connection& main, const ReportInputs& inputs);

/// Splits the balance of the period's first day into the amounts of its groups (ReportInputs::analysisGroups) and the
/// cash that remains. A group's amount is the incomes less the expenses of its codes, from the beginning up to that
/// day; a code in two boxes counts twice. One read transaction. Throws SqlError, CurrencyOverflow.
[[nodiscard]] ReportDocument cashAnalysisReport(
    Connection& main, const ReportInputs& inputs, const ReportProgress& progress = {});

} // namespace lorvan
