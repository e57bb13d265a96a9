#pragma once

#include "codes/code_catalogue.h"
#include "movements/movement.h"

#include <functional>
#include <optional>
#include <variant>

namespace lorvan {

/// Why a change of movements is refused, in cases that the user can correct.
enum class MovementRefusal {
    DayIsClosed, ///< The day is closed and the user may not change closed days.
    DateIsInvalid,
    NoCode, ///< No code is chosen.
    CodeHasChanged, ///< The chosen code is no longer among the active ones.
    NoDescription,
    MovementIsGone, ///< Somebody else has deleted the movement.
    MovementIsAnother, ///< Its row is no longer what the change to be taken back or repeated begins with.
};

/// The code with that number, if movements may use it.
using CodeLookUp = std::function<std::optional<MovementCode>(qint32 code)>;

/// The code of a movement whose content may be stored; otherwise the first obstacle among date, code, code still there
/// and description.
[[nodiscard]] std::variant<MovementCode, MovementRefusal> validateMovement(
    const MovementDraft& draft, const CodeLookUp& findCode);

} // namespace lorvan
