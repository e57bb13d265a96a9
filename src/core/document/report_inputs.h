#pragma once

#include "codes/cash_analysis_groups.h"
#include "codes/code_catalogue.h"
#include "codes/group_card_choice.h"

#include <QDate>
#include <QString>

#include <vector>

namespace lorvan {

enum class ReportForm { Detailed, Summary };

enum class CodeSort { Code = 0, Description = 1, Group = 2 };

/// What was asked for on the printing page and in the questions of a report. A report reads what concerns it.
struct ReportInputs {
    QString startText; ///< The period's dates as typed, for titles; both are valid dates.
    QString endText;
    QDate start; ///< May lie after the end: then nothing is found.
    QDate end; ///< The day of the reports of one day.
    QString heading; ///< The book's name, which stands behind the titles.
    std::vector<qint32> codes; ///< Chosen ones; none means all.
    std::vector<qint32> groups; ///< The same.
    ReportForm form = ReportForm::Detailed;
    CodeSort sort = CodeSort::Code;
    CodeSelection selection = CodeSelection::All;
    CardColumns cardColumns = {};
    AnalysisGroups analysisGroups = {};
};

} // namespace lorvan
