#pragma once

#include "platform/engine/connection.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace lorvan::test {

/// The folder of a sample book in the older format: "v3", "v1" or "empty".
[[nodiscard]] QString olderBook(const QString& name);

[[nodiscard]] QByteArray fileContent(const QString& path);

/// One row of a table in today's form, its values as SQL writes them: NULL, 'a text', 20261121.
using TruthRow = std::vector<QString>;

/// What the file beside a sample book says of a table. A memorandum column that is not there yet is filled with 0.
[[nodiscard]] std::vector<TruthRow> truthRows(const QString& book, const QString& table);

/// All rows of a table, ordered by its first column as the files beside the sample books are.
[[nodiscard]] std::vector<TruthRow> storedRows(Connection& connection, const QString& table);

} // namespace lorvan::test
