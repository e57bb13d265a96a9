#pragma once

#include "movements/entry_content.h"
#include "movements/movement.h"

#include <optional>

namespace lorvan {

/// An entry cleared by a click or Escape, kept so that it can be restored.
struct ClearedEntry {
    EntryContent typed;
    std::optional<Movement> loaded; ///< The movement that was loaded, as read at that time.
};

/// How a cleared entry is restored, or why it is not.
enum class EntryReturn {
    Typed, ///< Restored into the empty fields.
    Loaded, ///< The movement is loaded again, with what the user had typed.
    MovementIsGone,
    MovementIsAnother, ///< Its row is no longer what was loaded.
    DayIsClosed, ///< The user may no longer change the movement's day.
};

/// `stored` is the row with the loaded movement's key, if there is one; `mayChange` says whether its day may be
/// changed.
[[nodiscard]] EntryReturn returnOf(const ClearedEntry& entry, const std::optional<Movement>& stored, bool mayChange);

/// Says why an entry is not restored; empty if it is.
[[nodiscard]] QString returnRefusalText(EntryReturn outcome);

} // namespace lorvan
