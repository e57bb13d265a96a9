#pragma once

#include "movements/opening_difference.h"

#include <optional>

namespace lorvan {

/// The opening differences that there must be, as the journal tells; no value where it cannot tell: a journal that
/// began in a book which had cash days already and may have had differences, and after some were imported. Reads a few
/// rows through an index. Throws SqlError.
[[nodiscard]] std::optional<OpeningDifferences> journalledOpening(Connection& main);

} // namespace lorvan
