#pragma once

#include "document/report_inputs.h"
#include "reports/report_catalogue.h"

#include <QStringList>

namespace lorvan {

class Connection;

/// Something that a report leaves out, counts only once or rounds, in words for the user.
struct ReportOmission {
    static constexpr int mostListed = 1000;

    QString text; ///< Complete sentences.
    QString titles = {}; ///< Above the lines, in columns of a fixed-width font.
    QStringList lines = {}; ///< The movements or days concerned, newest first; at most mostListed.
    int concerned = 0; ///< The total number of them; 0 if there is nothing to list.
};

/// What the report leaves out of what was asked for; usually nothing. The connection is the one that the report reads:
/// the auxiliary database for the unclosed days, otherwise the main one. One read transaction, which takes about as
/// long as the report. Throws SqlError, CurrencyOverflow.
[[nodiscard]] std::vector<ReportOmission> reportOmissions(
    Connection& connection, Report report, const ReportInputs& inputs);

} // namespace lorvan
