#pragma once

#include "codes/group_card_choice.h"

namespace lorvan {

/// The columns of a card for a choice that was just made, the same as once it is stored.
[[nodiscard]] CardColumns cardColumnsOf(const CardChoice& choice);

} // namespace lorvan
