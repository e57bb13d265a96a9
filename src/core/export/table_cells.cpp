#include "export/table_cells.h"

#include "platform/amount_text.h"

#include <algorithm>

namespace lorvan {
namespace {

constexpr qsizetype longestWhole = 15; // digits that a spreadsheet stores exactly
constexpr std::int64_t endOfWhole = 1'000'000'000'000'000;

bool areDigits(QStringView text)
{
    return !text.isEmpty()
        && std::all_of(text.begin(), text.end(), [](QChar each) { return each >= u'0' && each <= u'9'; });
}

/// Digits that begin with a zero are an identifier, not a number.
bool isWhole(QStringView text)
{
    const QStringView digits = text.startsWith(u'-') ? text.sliced(1) : text;
    return areDigits(digits) && digits.size() <= longestWhole && (digits.size() == 1 || digits.front() != u'0');
}

bool isAmount(QStringView text)
{
    return text.size() >= 4 && text[text.size() - 3] == u',' && readAmount(text);
}

/// Reads a day, a month and a year of four digits with "-" or "/" in between; an invalid date for anything else.
QDate dateIn(QStringView text)
{
    const QList<QStringView> parts = text.split(text.contains(u'/') ? u'/' : u'-');
    const bool hasParts = parts.size() == 3 && parts[0].size() <= 2 && parts[1].size() <= 2 && parts[2].size() == 4
        && std::all_of(parts.begin(), parts.end(), areDigits);
    return hasParts ? QDate(parts[2].toInt(), parts[1].toInt(), parts[0].toInt()) : QDate();
}

/// Reads a date that follows the two letters of its weekday.
QDate weekdayDateIn(QStringView text)
{
    const bool hasWeekday = text.size() > 3 && text[0].isLetter() && text[1].isLetter() && text[2] == u' ';
    return hasWeekday ? dateIn(text.sliced(3)) : QDate();
}

TableCell readCell(QStringView text)
{
    TableCell cell{TableCell::Kind::Text, text.toString(), {}, {}};
    if (text.isEmpty()) {
        cell.kind = TableCell::Kind::Empty;
    } else if (isWhole(text) || isAmount(text)) {
        cell.kind = isAmount(text) ? TableCell::Kind::Amount : TableCell::Kind::Whole;
        cell.number = readAmount(text).amount;
    } else if (cell.date = dateIn(text); cell.date.isValid()) {
        cell.kind = TableCell::Kind::Date;
    } else if (cell.date = weekdayDateIn(text); cell.date.isValid()) {
        cell.kind = TableCell::Kind::WeekdayDate;
    }
    return cell;
}

} // namespace

bool fitsSpreadsheet(Currency amount)
{
    std::int64_t digits = amount.tenThousandths();
    for (int decimal = 0; decimal < 4 && digits % 10 == 0; ++decimal)
        digits /= 10;
    return digits > -endOfWhole && digits < endOfWhole;
}

TableCells::TableCells(const ReportDocument& document)
{
    for (int index = 0; index < document.itemCount(); ++index) {
        if (const ReportItem item = document.item(index); item.isRow())
            noteWholeNumbers(item);
    }
}

void TableCells::noteWholeNumbers(const ReportItem& row)
{
    std::vector<bool>& columns = m_holdWholeNumbers[&row.columns()];
    columns.resize(row.columns().size(), true);
    const std::size_t cells = std::min(columns.size(), static_cast<std::size_t>(row.cellCount()));
    for (std::size_t column = 0; column < cells; ++column) {
        const QStringView text = row.cell(static_cast<int>(column)).trimmed();
        const bool isLeft = row.columns()[column].alignment == ColumnAlignment::Left;
        if (columns[column] && isLeft && !text.isEmpty() && !isWhole(text))
            columns[column] = false;
    }
}

std::vector<TableCell> TableCells::read(const ReportItem& row) const
{
    std::vector<TableCell> cells;
    const auto known = m_holdWholeNumbers.find(&row.columns());
    for (int column = 0; column < row.cellCount(); ++column) {
        TableCell cell = readCell(row.cell(column).trimmed());
        const auto place = static_cast<std::size_t>(column);
        const bool mayBeWhole =
            known != m_holdWholeNumbers.end() && place < known->second.size() && known->second[place];
        if (cell.kind == TableCell::Kind::Whole && !mayBeWhole)
            cell.kind = TableCell::Kind::Text;
        cells.push_back(std::move(cell));
    }
    return cells;
}

} // namespace lorvan
