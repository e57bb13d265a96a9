#pragma once

#include <QJsonObject>

namespace lorvan {

class Connection;

/// The rows of movements, cash days, codes, groups and closings, by their tables, as the journal tells them of a whole
/// book. `auxiliary` may be the same connection. Throws SqlError.
[[nodiscard]] QJsonObject countRows(Connection& main, Connection& auxiliary);

} // namespace lorvan
