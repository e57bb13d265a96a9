#include "reports/omission_lines.h"

#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/statement.h"

namespace lorvan {
namespace {

constexpr int codeWidth = 8;
constexpr int amountWidth = 15;

QString column(const QString& text, int width)
{
    return text.rightJustified(width);
}

QString titles()
{
    return QStringLiteral("Ημερ/νια  ") + column(QStringLiteral("Κωδ."), codeWidth)
        + column(QStringLiteral("Έσοδα"), amountWidth) + column(QStringLiteral("Έξοδα"), amountWidth)
        + column(QStringLiteral("Λ τάξεως"), amountWidth) + QStringLiteral("  Περιγραφή");
}

QString lineOf(const Statement& row, const MovementSums& amounts)
{
    const int alike = row.number(6);
    const QString times = alike > 1 ? QStringLiteral("  (%1 φορές)").arg(alike) : QString();
    return dateText(row.date(0)) + column(QString::number(row.number(1)), codeWidth)
        + column(amountOrZeroText(amounts.income), amountWidth) + column(amountOrZeroText(amounts.expense), amountWidth)
        + column(amountOrZeroText(amounts.memorandum), amountWidth) + u' ' + u' ' + row.text(2).simplified() + times;
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
            movements.texts.append(lineOf(rows, amounts));
    }
    return movements;
}

ReportOmission omissionOf(const QString& text, const OmittedMovements& movements)
{
    return {text, titles(), movements.texts, movements.lines};
}

QString movementsText(int count)
{
    return count == 1 ? QStringLiteral("1 κίνηση") : QStringLiteral("%1 κινήσεις").arg(count);
}

} // namespace lorvan
