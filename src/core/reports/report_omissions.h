#pragma once

#include "document/report_inputs.h"
#include "reports/report_catalogue.h"

#include <QStringList>

namespace lorvan {

class Connection;

/// Something that a report leaves out, counts once or rounds, in words for the user.
struct ReportOmission {
    static constexpr int mostListed = 1000;

    QString text; ///< Whole sentences.
    QString titles = {}; ///< Above the lines, in columns of a fixed-width font.
    QStringList lines = {}; ///< The movements or days concerned, newest first; at most mostListed.
    int concerned = 0; ///< How many there are; 0 where there is nothing to list.
};

/// What the report does not tell about what it was asked for; nothing for most. The connection is the one that the
/// report reads: the auxiliary database for the unclosed days, otherwise the main one. One read transaction, which
/// costs about as much as the report. Throws SqlError, CurrencyOverflow.
[[nodiscard]] std::vector<ReportOmission> reportOmissions(
    Connection& connection, Report report, const ReportInputs& inputs);

} // namespace lorvan
