#pragma once

#include "platform/currency.h"

namespace lorvan {

/// A floating-point amount of an older book as an exact one: the nearest cent (half a cent away from zero) where that
/// lies within half a unit in the last place of the number, otherwise rounded to four decimals.
struct LegacyAmount {
    Currency amount;
    bool isWholeCents; ///< False for an amount that was kept to four decimals.
};

/// Computed exactly. The number must be finite. Throws JetError for one beyond the range of Currency.
[[nodiscard]] LegacyAmount legacyAmount(float number);
[[nodiscard]] LegacyAmount legacyAmount(double number);

} // namespace lorvan
