#pragma once

#include "codes/code_maintenance.h"
#include "codes/group_maintenance.h"
#include "movements/movement_validation.h"

#include <variant>

namespace lorvan {

/// A change as it was stored, of a kind that can be taken back.
using StoredChange = std::variant<MovementChange, GroupChange, CodeChange>;

/// Why a change is not made again.
using RepeatRefusal = std::variant<MovementRefusal, GroupRefusal, CodeRefusal>;

/// The change that takes this one back.
[[nodiscard]] StoredChange reversed(StoredChange change);

/// True if taking it back would change nothing, or cannot be done exactly.
[[nodiscard]] bool isLasting(const StoredChange& change);

/// The change in a few words: "εισαγωγή ΔΕΗ 214,67". A modified movement is named as it is afterwards.
[[nodiscard]] QString changeText(const StoredChange& change);

/// One sentence.
[[nodiscard]] QString repeatRefusalText(const RepeatRefusal& refusal);

} // namespace lorvan
