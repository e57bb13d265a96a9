#pragma once

#include "platform/currency.h"

namespace lorvan {

/// A floating-point amount of an older book, made exact: the nearest cent (half a cent away from zero) if it lies
/// within half a unit in the number's last place, otherwise rounded to four decimals.
struct LegacyAmount {
    Currency amount;
    bool isWholeCents; ///< False if the amount was kept to four decimals.
};

/// Calculated exactly. The number must be finite. Throws JetError if it is out of the range of Currency.
[[nodiscard]] LegacyAmount legacyAmount(float number);
[[nodiscard]] LegacyAmount legacyAmount(double number);

} // namespace lorvan
