#pragma once

#include "cashbook/entry_content.h"
#include "cashbook/movement.h"

#include <optional>

namespace lorvan {

/// An entry that a click or Escape has cleared, kept so that it can be brought back.
struct ClearedEntry {
    EntryContent typed;
    std::optional<Movement> loaded; ///< The movement that was loaded, as it was read then.
};

/// How a cleared entry comes back, or why it does not.
enum class EntryReturn {
    Typed, ///< Into the empty fields.
    Loaded, ///< The movement is loaded again, with what was typed.
    MovementIsGone,
    MovementIsAnother, ///< Its row is not what was loaded.
    DayIsClosed, ///< The user may not change the movement's day any more.
};

/// `stored` is the row with the loaded movement's key, if it is there; `mayChange` whether its day may be changed.
[[nodiscard]] EntryReturn returnOf(const ClearedEntry& entry, const std::optional<Movement>& stored, bool mayChange);

/// Says why an entry does not come back; empty for one that does.
[[nodiscard]] QString returnRefusalText(EntryReturn outcome);

} // namespace lorvan
