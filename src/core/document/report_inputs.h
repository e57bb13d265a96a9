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

/// What the user entered on the printing page and in a report's questions. Each report reads what it needs.
struct ReportInputs {
    QString startText; ///< The dates of the period as typed, for titles; both are valid dates.
    QString endText;
    QDate start; ///< May be after the end: then nothing is found.
    QDate end; ///< Also the day, in reports on a single day.
    QString heading; ///< The book's name, which follows the titles.
    std::vector<qint32> codes; ///< The chosen ones; none means all.
    std::vector<qint32> groups; ///< The same.
    ReportForm form = ReportForm::Detailed;
    CodeSort sort = CodeSort::Code;
    CodeSelection selection = CodeSelection::All;
    CardColumns cardColumns = {};
    AnalysisGroups analysisGroups = {};
};

} // namespace lorvan
