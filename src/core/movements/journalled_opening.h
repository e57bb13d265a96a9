#pragma once

#include "movements/opening_difference.h"

#include <QJsonObject>

#include <optional>

namespace lorvan {

/// The opening differences that there must be, as the journal tells; no value where it cannot tell: a journal that
/// began in a book which had cash days already and may have had differences, and after an earlier release has imported
/// some. Reads a few rows through an index. Throws SqlError.
[[nodiscard]] std::optional<OpeningDifferences> journalledOpening(Connection& main);

/// Those in a state of the journal, which names each amount by its day, beside whatever else it has.
[[nodiscard]] OpeningDifferences differencesIn(const QJsonObject& state);

} // namespace lorvan
