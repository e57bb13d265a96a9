#pragma once

#include "cashbook/movement.h"

#include <cstdint>
#include <vector>

namespace lorvan {

/// The movements of one working day in the order of their entry. They carry no date.
using DemoDay = std::vector<MovementDraft>;

/// The cash movements of the sample shop over so many working days. Depends on the seed and the count alone, not on
/// any date: days are counted, six to a week and 25 to a month. Cash never runs out, and what gathers in the drawer
/// is taken to the bank.
[[nodiscard]] std::vector<DemoDay> demoLedger(std::uint64_t seed, int workingDays);

} // namespace lorvan
