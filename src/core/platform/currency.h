#pragma once

#include <cstdint>
#include <stdexcept>

#include <compare> // last: Qt's moc cannot read it first

namespace lorvan {

/// A sum is outside the range of Currency. Nothing was computed.
class CurrencyOverflow : public std::overflow_error {
public:
    CurrencyOverflow();
};

/// An exact amount of euro: a 64-bit count of ten-thousandths, about ±922 million million.
/// Every operation is checked and throws CurrencyOverflow instead of wrapping round.
class Currency {
public:
    static constexpr std::int64_t unitsPerEuro = 10'000;
    static constexpr std::int64_t unitsPerCent = 100;

    constexpr Currency() = default;
    static constexpr Currency fromTenThousandths(std::int64_t units) { return Currency(units); }
    static Currency fromCents(std::int64_t cents);

    [[nodiscard]] constexpr std::int64_t tenThousandths() const { return m_units; }
    [[nodiscard]] constexpr bool isZero() const { return m_units == 0; }

    /// Rounds to the nearest cent, half a cent away from zero.
    [[nodiscard]] Currency roundedToCents() const;

    Currency& operator+=(Currency other);
    Currency& operator-=(Currency other);
    friend Currency operator+(Currency left, Currency right) { return left += right; }
    friend Currency operator-(Currency left, Currency right) { return left -= right; }
    friend Currency operator-(Currency amount) { return Currency() - amount; }
    friend constexpr auto operator<=>(Currency, Currency) = default;

private:
    explicit constexpr Currency(std::int64_t units)
        : m_units(units)
    {
    }

    std::int64_t m_units = 0;
};

} // namespace lorvan
