#include "cashbook/movement_check.h"

namespace lorvan {

std::variant<MovementCode, Refusal> checkMovement(const MovementDraft& draft, const CodeLookUp& findCode)
{
    if (!draft.day.isValid())
        return Refusal::DateIsInvalid;
    if (draft.code == 0)
        return Refusal::NoCode;
    const auto code = findCode(draft.code);
    if (!code)
        return Refusal::CodeHasChanged;
    if (draft.description.trimmed().isEmpty())
        return Refusal::NoDescription;
    return *code;
}

} // namespace lorvan
