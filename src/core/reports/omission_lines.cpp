#include "reports/omission_lines.h"

#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/engine/statement.h"

#include <algorithm>

namespace lorvan {
namespace {

constexpr int betweenColumns = 2; // blanks at least
constexpr int dateWidth = 10;
constexpr int codeWidth = 8;
constexpr int amountWidth = 15;

OmittedCells titles()
{
    return {QStringLiteral("Ημερ/νια"), QStringLiteral("Κωδ."), QStringLiteral("Έσοδα"), QStringLiteral("Έξοδα"),
        QStringLiteral("Λ τάξεως"), QStringLiteral("Περιγραφή")};
}

OmittedCells cellsOf(const Statement& row, const MovementSums& amounts)
{
    const int alike = row.number(6);
    const QString times = alike > 1 ? QStringLiteral("  (%1 φορές)").arg(alike) : QString();
    return {dateText(row.date(0)), QString::number(row.number(1)), amountOrZeroText(amounts.income),
        amountOrZeroText(amounts.expense), row.isNull(5) ? QString() : amountOrZeroText(amounts.memorandum),
        row.text(2).simplified() + times};
}

/// Of the right-aligned columns, wide enough for the longest text in each.
using ColumnWidths = std::array<qsizetype, std::tuple_size_v<OmittedCells> - 2>;

ColumnWidths widthsFor(const std::vector<OmittedCells>& rows)
{
    ColumnWidths widths{codeWidth, amountWidth, amountWidth, amountWidth};
    for (const OmittedCells& cells : rows) {
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths.at(i) = std::max(widths.at(i), cells.at(i + 1).size() + betweenColumns);
    }
    return widths;
}

QString lineOf(const OmittedCells& cells, const ColumnWidths& widths)
{
    QString line = cells.front().leftJustified(dateWidth);
    for (std::size_t i = 0; i < widths.size(); ++i)
        line += cells.at(i + 1).rightJustified(widths.at(i));
    return line + QString(betweenColumns, u' ') + cells.back();
}

} // namespace

std::string omittedColumns(std::string_view count, std::string_view memorandum)
{
    return std::string("SELECT hmeromhnia, kvdikos, perigrafh, esoda, ejoda, ")
        .append(memorandum)
        .append(", ")
        .append(count);
}

QString OmittedMovements::summary() const
{
    QString text = QStringLiteral("%1 (έσοδα %2, έξοδα %3")
                       .arg(movementsText(missing), amountOrZeroText(sums.income), amountOrZeroText(sums.expense));
    if (!sums.memorandum.isZero())
        text += QStringLiteral(", Λ τάξεως ") + amountOrZeroText(sums.memorandum);
    return text + u')';
}

OmittedMovements listMovements(Statement& rows, CountOf count)
{
    OmittedMovements movements;
    while (rows.step()) {
        const MovementSums amounts{rows.currency(3), rows.currency(4), rows.currency(5)};
        const int missing = count == CountOf::Alike ? rows.number(6) - 1 : rows.number(6);
        movements.missing += missing;
        for (int each = 0; each < missing; ++each)
            movements.sums += amounts;
        if (++movements.lines <= ReportOmission::mostListed)
            movements.rows.push_back(cellsOf(rows, amounts));
    }
    return movements;
}

ReportOmission omissionOf(const QString& text, const OmittedMovements& movements)
{
    const ColumnWidths widths = widthsFor(movements.rows);
    QStringList lines;
    for (const OmittedCells& cells : movements.rows)
        lines.append(lineOf(cells, widths));
    return {text, lineOf(titles(), widths), lines, movements.lines};
}

QString movementsText(int count)
{
    return count == 1 ? QStringLiteral("1 κίνηση") : QStringLiteral("%1 κινήσεις").arg(count);
}

} // namespace lorvan
