#pragma once

#include "proof/book_check.h"
#include "proof/book_repair.h"
#include "proof/code_answer.h"

namespace lorvan {

/// For a book that the program has open: all work on a connection of their own and may run in another thread. A
/// StopCheck stops them. `keys` holds the keys of both files.

/// The engine's check of the files and, only if the tables can be read, the check of their content. Throws SqlError.
[[nodiscard]] BookCheck checkOpenBook(const BookFiles& book, KeyRing& keys, const CheckProgress& progress);

/// What the book says of a check code: see answerForCode(). Throws SqlError.
[[nodiscard]] CodeAnswer answerFromOpenBook(const BookFiles& book, KeyRing& keys, const QString& typed);

/// Makes a backup into the book's backup folder, which the program never removes, and repairs the book: see
/// repairBook(). The caller must hold the usage marker. Throws NotPermitted, BookCopyFailed, GivenUp and SqlError; the
/// book is then unchanged.
[[nodiscard]] BookRepair repairOpenBook(
    const BookFiles& book, KeyRing& keys, const Authority& authority, const CheckProgress& progress);

/// "Η διόρθωση έγινε: …" with the numbers of days.
[[nodiscard]] QString repairText(const BookRepair& repair);

} // namespace lorvan
