#include "platform/amount_text.h"

#include <QList>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace lorvan {
namespace {

constexpr std::size_t longestAmountText = 32; // characters; the least amount has 23

struct Parts {
    bool negative = false;
    QString whole;
    QString decimals;
};

bool allDigits(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

std::optional<QString> withoutGrouping(QStringView whole)
{
    const auto groups = whole.split(u'.');
    QString digits;
    for (qsizetype i = 0; i < groups.size(); ++i) {
        const bool first = i == 0;
        const bool wellFormed =
            groups.size() == 1 || (first ? !groups[i].isEmpty() && groups[i].size() <= 3 : groups[i].size() == 3);
        if (!wellFormed || !allDigits(groups[i]))
            return std::nullopt;
        digits += groups[i];
    }
    return digits;
}

std::optional<Parts> split(QStringView text)
{
    Parts parts;
    text = text.trimmed();
    if (text.startsWith(u'-') || text.startsWith(u'+')) {
        parts.negative = text.front() == u'-';
        text = text.sliced(1);
    }
    const qsizetype comma = text.indexOf(u',');
    const QStringView decimals = comma < 0 ? QStringView() : text.sliced(comma + 1);
    const auto whole = withoutGrouping(comma < 0 ? text : text.first(comma));
    if (!whole || !allDigits(decimals) || (whole->isEmpty() && decimals.isEmpty()))
        return std::nullopt;
    parts.whole = *whole;
    parts.decimals = decimals.toString();
    return parts;
}

bool appendDigit(std::int64_t& value, int digit)
{
    return !__builtin_mul_overflow(value, 10, &value) && !__builtin_sub_overflow(value, digit, &value);
}

/// Builds the negative value, since the negative range is larger by one.
std::optional<std::int64_t> negatedUnits(const Parts& parts, qsizetype kept)
{
    std::int64_t value = 0;
    const QString digits = parts.whole + parts.decimals.leftJustified(kept, u'0').first(kept);
    for (const QChar c : digits) {
        if (!appendDigit(value, c.digitValue()))
            return std::nullopt;
    }
    const bool roundsUp = parts.decimals.size() > kept && parts.decimals.at(kept) >= u'5';
    if (roundsUp && __builtin_sub_overflow(value, 1, &value))
        return std::nullopt;
    for (qsizetype i = kept; i < static_cast<qsizetype>(Precision::TenThousandths); ++i) {
        if (!appendDigit(value, 0))
            return std::nullopt;
    }
    return value;
}

} // namespace

AmountReading readAmount(QStringView text, Precision precision)
{
    const auto parts = split(text);
    if (!parts)
        return {AmountReading::Outcome::NotANumber, {}};
    const auto negated = negatedUnits(*parts, static_cast<qsizetype>(precision));
    if (!negated || (!parts->negative && *negated == std::numeric_limits<std::int64_t>::min()))
        return {AmountReading::Outcome::OutOfRange, {}};
    return {AmountReading::Outcome::Amount, Currency::fromTenThousandths(parts->negative ? *negated : -*negated)};
}

QString amountText(Currency amount)
{
    const std::int64_t units = amount.tenThousandths();
    const bool negative = units < 0;
    const std::uint64_t magnitude =
        negative ? 0 - static_cast<std::uint64_t>(units) : static_cast<std::uint64_t>(units);
    const std::uint64_t cents = (magnitude + Currency::unitsPerCent / 2) / Currency::unitsPerCent;

    std::array<char16_t, longestAmountText> text{};
    auto front = text.end(); // written from the end
    const auto put = [&front](std::uint64_t digit) { *--front = static_cast<char16_t>(u'0' + digit); };
    put(cents % 10);
    put(cents / 10 % 10);
    *--front = u',';
    std::uint64_t whole = cents / 100;
    put(whole % 10);
    for (int digits = 1; (whole /= 10) != 0; ++digits) {
        if (digits % 3 == 0)
            *--front = u'.';
        put(whole % 10);
    }
    if (negative && cents != 0)
        *--front = u'-';
    return QStringView(front, text.end()).toString();
}

QString amountOrZeroText(Currency amount)
{
    return amount.isZero() ? QStringLiteral("0") : amountText(amount);
}

} // namespace lorvan
