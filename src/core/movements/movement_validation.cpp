#include "movements/movement_validation.h"

namespace lorvan {

std::variant<MovementCode, MovementRefusal> validateMovement(const MovementDraft& draft, const CodeLookUp& findCode)
{
    if (!draft.day.isValid())
        return MovementRefusal::DateIsInvalid;
    if (draft.code == 0)
        return MovementRefusal::NoCode;
    const auto code = findCode(draft.code);
    if (!code)
        return MovementRefusal::CodeHasChanged;
    if (draft.description.trimmed().isEmpty())
        return MovementRefusal::NoDescription;
    return *code;
}

} // namespace lorvan
