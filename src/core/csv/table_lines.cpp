#include "csv/table_lines.h"

#include "csv/csv_values.h"
#include "platform/engine/connection.h"

namespace lorvan {
namespace {

QByteArray csvValue(const Statement& row, int column, BookColumn::Kind kind)
{
    if (row.isNull(column))
        return {};
    switch (kind) {
    case BookColumn::Kind::Whole:
        return QByteArray::number(static_cast<qint64>(row.integer(column)));
    case BookColumn::Kind::Amount:
        return csvAmount(row.currency(column));
    case BookColumn::Kind::Date:
        return csvDate(row.integer(column));
    case BookColumn::Kind::Flag:
        return row.boolean(column) ? "1" : "0";
    case BookColumn::Kind::Text:
    case BookColumn::Kind::Password:
        break;
    }
    return csvText(row.text(column));
}

QByteArray joined(const std::vector<BookColumn>& columns)
{
    QByteArrayList names;
    for (const BookColumn& each : columns)
        names += each.name;
    return names.join(',');
}

} // namespace

std::vector<BookColumn> columnsWithoutPasswords(const BookTable& table)
{
    std::vector<BookColumn> columns = table.columns;
    std::erase_if(columns, [](const BookColumn& each) { return each.kind == BookColumn::Kind::Password; });
    return columns;
}

void forEachLine(Connection& book, const BookTable& table, const std::vector<BookColumn>& columns,
    const std::optional<RowsOfDays>& days, const std::function<void(const QByteArray& line)>& take)
{
    const QByteArray names = joined(columns);
    take(names + '\n');
    const QByteArray wanted =
        days ? QByteArrayLiteral(" WHERE ") + days->column + QByteArrayLiteral(" BETWEEN ? AND ?") : QByteArray();
    auto rows = book.prepare(("SELECT " + names + " FROM " + table.name + wanted + " ORDER BY rowid").toStdString());
    if (days)
        rows.bind(days->from, days->to);
    while (rows.step()) {
        QByteArray line;
        for (std::size_t column = 0; column < columns.size(); ++column) {
            line += column == 0 ? "" : ",";
            line += csvValue(rows, static_cast<int>(column), columns[column].kind);
        }
        take(line + '\n');
    }
}

} // namespace lorvan
