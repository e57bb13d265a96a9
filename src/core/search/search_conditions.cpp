#include "search/search_conditions.h"

#include "platform/amount_text.h"
#include "platform/date_text.h"

#include <QList>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace lorvan {
namespace {

constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t half = Currency::unitsPerCent / 2;
const QString between = QStringLiteral("..");

/// An amount as typed: the least and the greatest that are shown like it, in ten-thousandths. Half a cent rounds away
/// from zero.
struct TypedAmount {
    std::int64_t low = 0;
    std::int64_t high = 0;
    QString text;
};

std::int64_t moved(std::int64_t units, std::int64_t by)
{
    std::int64_t sum = 0;
    return __builtin_add_overflow(units, by, &sum) ? (by < 0 ? least : greatest) : sum;
}

std::optional<TypedAmount> readTyped(QStringView text)
{
    if (text.endsWith(u'€'))
        text.chop(1);
    const AmountReading read = readAmount(text);
    if (!read)
        return std::nullopt;
    const std::int64_t units = read.amount.tenThousandths();
    if (units % Currency::unitsPerCent != 0)
        return TypedAmount{units, units, text.toString()};
    return TypedAmount{
        moved(units, units > 0 ? -half : 1 - half), moved(units, units < 0 ? half : half - 1), amountText(read.amount)};
}

MeaningRead amounts(std::int64_t low, std::int64_t high, const QString& text)
{
    return {SearchedAmounts{Currency::fromTenThousandths(low), Currency::fromTenThousandths(high)}, text};
}

std::optional<MeaningRead> readAmounts(QStringView first, QStringView last)
{
    auto from = readTyped(first);
    auto to = readTyped(last);
    if ((!from && !first.isEmpty()) || (!to && !last.isEmpty()))
        return std::nullopt;
    if (!to)
        return amounts(from->low, greatest, QStringLiteral("ποσό από %1 και πάνω").arg(from->text));
    if (!from)
        return amounts(least, to->high, QStringLiteral("ποσό έως %1").arg(to->text));
    if (from->low > to->low)
        std::swap(from, to);
    return amounts(from->low, to->high, QStringLiteral("ποσό από %1 έως %2").arg(from->text, to->text));
}

/// A day or a month as typed.
struct TypedDays {
    QDate from;
    QDate to;
    QString text;
    bool isMonth = false;
};

std::optional<TypedDays> readMonth(QStringView text)
{
    const auto parts = text.split(u'/');
    if (parts.size() != 2 || parts[0].isEmpty() || parts[0].size() > 2 || parts[1].size() != 4)
        return std::nullopt;
    const auto first = readDate(QStringLiteral("1-%1-%2").arg(parts[0], parts[1]), {});
    if (!first)
        return std::nullopt;
    const QString shown = first->toString(QStringLiteral("MM/yyyy"));
    return TypedDays{*first, first->addMonths(1).addDays(-1), shown, true};
}

/// With a comma it is an amount.
std::optional<TypedDays> readTypedDays(QStringView text, QDate today)
{
    if (const auto month = readMonth(text))
        return month;
    const auto day = text.contains(u',') ? std::nullopt : readDate(text, today);
    return day ? std::optional(TypedDays{*day, *day, dateText(*day)}) : std::nullopt;
}

std::optional<MeaningRead> readDays(QStringView first, QStringView last, QDate today)
{
    auto from = readTypedDays(first, today);
    auto to = readTypedDays(last, today);
    if ((!from && !first.isEmpty()) || (!to && !last.isEmpty()))
        return std::nullopt;
    if (!to)
        return MeaningRead{
            SearchedDays{from->from, dateFromStored(9999'12'31)}, QStringLiteral("από %1").arg(from->text)};
    if (!from)
        return MeaningRead{SearchedDays{dateFromStored(1'01'01), to->to}, QStringLiteral("έως %1").arg(to->text)};
    if (from->from > to->from)
        std::swap(from, to);
    return MeaningRead{SearchedDays{from->from, to->to}, QStringLiteral("από %1 έως %2").arg(from->text, to->text)};
}

std::optional<MeaningRead> readDayAlone(QStringView text, QDate today)
{
    const auto days = readTypedDays(text, today);
    if (!days)
        return std::nullopt;
    const QString what = days->isMonth ? QStringLiteral("μήνας ") : QStringLiteral("ημέρα ");
    return MeaningRead{SearchedDays{days->from, days->to}, what + days->text};
}

std::optional<MeaningRead> readAmountsWithDash(QStringView text)
{
    const qsizetype dash = text.indexOf(u'-', 1);
    const bool hasEnds = dash > 0 && dash + 1 < text.size();
    return hasEnds ? readAmounts(text.first(dash), text.sliced(dash + 1)) : std::nullopt;
}

} // namespace

qsizetype comparisonSize(QStringView text)
{
    if (text.startsWith(u">=") || text.startsWith(u"<="))
        return 2;
    static constexpr std::array signs{u'>', u'<', u'≥', u'≤'};
    return std::any_of(signs.begin(), signs.end(), [text](char16_t sign) { return text.startsWith(sign); }) ? 1 : 0;
}

std::optional<MeaningRead> readComparison(QStringView text)
{
    const auto amount = readTyped(text.sliced(comparisonSize(text)));
    if (!amount)
        return std::nullopt;
    const bool includes = comparisonSize(text) == 2 || text.startsWith(u'≥') || text.startsWith(u'≤');
    if (text.startsWith(u'>') || text.startsWith(u'≥'))
        return includes ? amounts(amount->low, greatest, QStringLiteral("ποσό από %1 και πάνω").arg(amount->text))
                        : amounts(moved(amount->high, 1), greatest, QStringLiteral("ποσό πάνω από ") + amount->text);
    return includes ? amounts(least, amount->high, QStringLiteral("ποσό έως ") + amount->text)
                    : amounts(least, moved(amount->low, -1), QStringLiteral("ποσό κάτω από ") + amount->text);
}

bool isRange(QStringView text)
{
    const bool mayBegin = !text.isEmpty() && (text.front().isDigit() || QStringView(u"+-.").contains(text.front()));
    return mayBegin && text.contains(between);
}

std::optional<MeaningRead> readRange(QStringView text, QDate today)
{
    const qsizetype place = text.indexOf(between);
    const QStringView first = text.first(place);
    const QStringView last = text.sliced(place + between.size());
    if (first.isEmpty() && last.isEmpty())
        return std::nullopt;
    const auto read = readAmounts(first, last);
    return read ? read : readDays(first, last, today);
}

std::optional<MeaningRead> readDayOrAmount(QStringView text, QDate today)
{
    if (const auto amount = readTyped(text))
        return amounts(amount->low, amount->high, QStringLiteral("ποσό ") + amount->text);
    const auto day = readDayAlone(text, today);
    return day ? day : readAmountsWithDash(text);
}

} // namespace lorvan
