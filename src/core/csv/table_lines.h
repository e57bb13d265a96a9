#pragma once

#include "csv/book_tables.h"

#include <QByteArray>
#include <QDate>

#include <functional>
#include <optional>

namespace lorvan {

class Connection;

/// Rows of a table whose day lies between two days, both included.
struct RowsOfDays {
    const char* column;
    QDate from;
    QDate to;
};

/// The table's columns without those that hold passwords.
[[nodiscard]] std::vector<BookColumn> columnsWithoutPasswords(const BookTable& table);

/// Passes the lines of a table's CSV file to `take`, each with its line end: the columns' names, then all rows in the
/// order in which they are stored, or those of some days. Throws SqlError.
void forEachLine(Connection& book, const BookTable& table, const std::vector<BookColumn>& columns,
    const std::optional<RowsOfDays>& days, const std::function<void(const QByteArray& line)>& take);

} // namespace lorvan
