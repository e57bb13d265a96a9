#pragma once

#include "cashbook/day_seal.h"

namespace lorvan {

/// "Κωδικός ελέγχου K7QF-2M9T-XD, έκδοση 1".
[[nodiscard]] QString sealCodeText(const DaySeal& seal);

/// Who sealed the day, where and when, in local time.
[[nodiscard]] QString sealOriginText(const DaySeal& seal);

/// What is special about the seal: that it was made later than the closing, and that it is not the first of its day;
/// empty if neither.
[[nodiscard]] QString sealRemarkText(const DaySeal& seal);

} // namespace lorvan
