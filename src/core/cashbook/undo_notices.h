#pragma once

#include "cashbook/undo_list.h"
#include "marker/notices.h"

namespace lorvan {

/// "Αναίρεση: εισαγωγή ΔΕΗ 214,67".
[[nodiscard]] Notice undoOffer(const StoredChange& change);

/// What was undone or redone, with its day if another one is shown, and after an undo what comes next, if anything.
[[nodiscard]] Notice undoneNotice(const UndoResult& result, UndoStep step, QDate shown, const StoredChange* next);

/// What was not undone or redone, and why.
[[nodiscard]] QString undoRefusal(const UndoResult& result, UndoStep step);

} // namespace lorvan
