#include "platform/currency.h"

namespace lorvan {

CurrencyOverflow::CurrencyOverflow()
    : std::overflow_error("amount out of range")
{
}

Currency Currency::fromCents(std::int64_t cents)
{
    std::int64_t units = 0;
    if (__builtin_mul_overflow(cents, unitsPerCent, &units))
        throw CurrencyOverflow();
    return Currency(units);
}

Currency Currency::roundedToCents() const
{
    const std::int64_t rest = m_units % unitsPerCent;
    const Currency cut(m_units - rest);
    if (2 * rest >= unitsPerCent)
        return cut + Currency(unitsPerCent);
    if (2 * rest <= -unitsPerCent)
        return cut - Currency(unitsPerCent);
    return cut;
}

Currency& Currency::operator+=(Currency other)
{
    std::int64_t units = 0;
    if (__builtin_add_overflow(m_units, other.m_units, &units))
        throw CurrencyOverflow();
    m_units = units;
    return *this;
}

Currency& Currency::operator-=(Currency other)
{
    std::int64_t units = 0;
    if (__builtin_sub_overflow(m_units, other.m_units, &units))
        throw CurrencyOverflow();
    m_units = units;
    return *this;
}

} // namespace lorvan
