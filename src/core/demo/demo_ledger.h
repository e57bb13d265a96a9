#pragma once

#include "movements/movement.h"

#include <cstdint>
#include <vector>

namespace lorvan {

/// The movements of one working day in the order of entry. They have no date.
using DemoDay = std::vector<MovementDraft>;

/// The cash movements of the sample shop over that many working days. Depends only on the seed and the number of days,
/// not on any date: days are counted, six to a week and 25 to a month. Cash never runs out, and excess cash in the
/// drawer is taken to the bank.
[[nodiscard]] std::vector<DemoDay> demoLedger(std::uint64_t seed, int workingDays);

} // namespace lorvan
