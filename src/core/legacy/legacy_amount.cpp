#include "legacy/legacy_amount.h"

#include "jet/jet_error.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace lorvan {
namespace {

__extension__ using Wide = __int128;

constexpr int centsPerEuro = 100;

/// A finite number as magnitude x 2^exponent, where 2^exponent is the unit in its last place.
struct Binary {
    Wide magnitude;
    int exponent;
    bool isNegative;
};

/// A number of some fraction of a euro, rounded half away from zero, and the distance of the exact number from it, in
/// units of the number's last place times that fraction.
struct Scaled {
    Wide count;
    Wide rest;
};

template <typename Float> Binary binary(Float number)
{
    using Limits = std::numeric_limits<Float>;
    int exponent = 0;
    std::frexp(number, &exponent);
    exponent = std::max(exponent, Limits::min_exponent) - Limits::digits;
    const double magnitude = std::ldexp(std::fabs(static_cast<double>(number)), -exponent);
    return {static_cast<std::int64_t>(magnitude), exponent, std::signbit(number)};
}

JetError tooLarge(double number)
{
    return JetError(QStringLiteral("το ποσό %1 είναι μεγαλύτερο από όσο μπορεί να κρατήσει το ταμείο").arg(number));
}

/// The number is below 2^64, so the shifts stay below 2^127.
Scaled scaled(const Binary& number, int perEuro)
{
    const Wide product = number.magnitude * perEuro;
    if (number.exponent >= 0)
        return {product << number.exponent, 0};
    const int shift = -number.exponent;
    if (shift >= 100)
        return {0, product};
    const Wide count = (product + (Wide(1) << (shift - 1))) >> shift;
    const Wide rest = product - (count << shift);
    return {count, rest < 0 ? -rest : rest};
}

template <typename Float> LegacyAmount exactAmount(Float number)
{
    constexpr double beyondEveryAmount = 1e15;
    if (std::fabs(static_cast<double>(number)) >= beyondEveryAmount)
        throw tooLarge(static_cast<double>(number));
    const Binary parts = binary(number);
    const Scaled cents = scaled(parts, centsPerEuro);
    const bool isWholeCents = cents.rest <= centsPerEuro / 2;
    const Wide magnitude =
        isWholeCents ? cents.count * Currency::unitsPerCent : scaled(parts, Currency::unitsPerEuro).count;
    if (magnitude > std::numeric_limits<std::int64_t>::max())
        throw tooLarge(static_cast<double>(number));
    const auto units = static_cast<std::int64_t>(magnitude);
    return {Currency::fromTenThousandths(parts.isNegative ? -units : units), isWholeCents};
}

} // namespace

LegacyAmount legacyAmount(float number)
{
    return exactAmount(number);
}

LegacyAmount legacyAmount(double number)
{
    return exactAmount(number);
}

} // namespace lorvan
