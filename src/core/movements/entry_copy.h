#pragma once

#include "codes/code_catalogue.h"
#include "movements/entry_content.h"
#include "movements/movement.h"

namespace lorvan {

/// The entry after a movement was copied into it: code, description, amount and cheque mark are the movement's, the
/// memorandum amount stays. The amount stands where the code's present kind has it. Throws CurrencyOverflow.
[[nodiscard]] EntryContent copyInto(const EntryContent& entry, const MovementDraft& movement, const MovementCode& code);

/// Why a movement is not copied.
enum class CopyRefusal {
    CodeIsInactive,
    DayIsClosed, ///< And the user may not change it.
    MovementIsLoaded, ///< On another day than the one that the copy is for.
};

[[nodiscard]] QString copyRefusalText(CopyRefusal refusal, qint32 code);

} // namespace lorvan
