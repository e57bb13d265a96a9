#include "document/report_cells.h"

#include "platform/amount_text.h"
#include "platform/date_text.h"

#include <QStringList>

#include <cstdlib>

namespace lorvan {
namespace {

constexpr int numberWidth = 4;
constexpr int abbreviationLength = 2;

QString withoutTrailing(QString text, QChar character)
{
    while (text.endsWith(character))
        text.chop(1);
    return text;
}

} // namespace

QString numberCell(int number)
{
    return QString::number(number).rightJustified(numberWidth);
}

QString amountOrBlankText(Currency amount)
{
    return amount.isZero() ? QStringLiteral(" ") : amountText(amount);
}

QString plainAmountText(Currency amount)
{
    const std::lldiv_t euro = std::lldiv(amount.tenThousandths(), Currency::unitsPerEuro);
    const QString sign = amount < Currency() ? QStringLiteral("-") : QString();
    const QString decimals = QString::number(std::llabs(euro.rem)).rightJustified(4, u'0');
    return sign
        + withoutTrailing(withoutTrailing(QString::number(std::llabs(euro.quot)) + u',' + decimals, u'0'), u',');
}

QString shortDateText(QDate date)
{
    if (!date.isValid())
        return {};
    return QString::number(date.day()) + u'/' + QString::number(date.month()) + u'/' + QString::number(date.year());
}

QString weekdayName(QDate date)
{
    static const QStringList fromMonday{QStringLiteral("Δευτέρα"), QStringLiteral("Τρίτη"), QStringLiteral("Τετάρτη"),
        QStringLiteral("Πέμπτη"), QStringLiteral("Παρασκευή"), QStringLiteral("Σάββατο"), QStringLiteral("Κυριακή")};
    return fromMonday.value(date.dayOfWeek() - 1);
}

QString weekdayDateText(QDate date)
{
    return weekdayName(date).left(abbreviationLength) + u' ' + dateText(date);
}

} // namespace lorvan
