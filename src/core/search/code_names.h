#pragma once

#include <QHash>
#include <QString>

namespace lorvan {

class Connection;

/// The descriptions of codes by their numbers.
using CodeNames = QHash<qint32, QString>;

/// Of all codes; where several have the same number, the first one's. Throws SqlError.
[[nodiscard]] CodeNames codeNames(Connection& main);

} // namespace lorvan
