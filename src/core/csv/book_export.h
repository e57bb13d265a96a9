#pragma once

#include "platform/work.h"

#include <QString>

namespace lorvan {

class BookFiles;
class KeyRing;
class NewFolder;

enum class Passwords { LeaveOut, Export };

/// Writes every table of a book into the folder as a CSV file named after the table, and the movements also as a
/// workbook `kinhseis.xlsx`. Everything comes from one state of the book: from a copy that is first made in the folder,
/// so that writers wait no longer than for a backup, and removed at the end. `keys` holds the keys of both files.
/// `progress` must not throw.
/// Returns the names of the files. Throws Refused if a file cannot be written, SqlError, and GivenUp if a StopCheck
/// says no.
QStringList exportBook(
    const BookFiles& book, KeyRing& keys, const NewFolder& folder, Passwords passwords, const StepProgress& progress);

} // namespace lorvan
