#pragma once

#include "support/work.h"

#include <QString>

namespace lorvan {

class OpenedBook;
class NewFolder;

enum class Passwords { LeaveOut, Export };

/// Writes every table of a book into the folder as CSV, named after the table, and the movements as a workbook
/// `kinhseis.xlsx` besides. All of it is one state of the book: a copy that is made in the folder first, so that
/// writers wait no longer than for a backup, and is removed at the end. Between rows `progress` is asked too, and may
/// throw. Returns the names of the files. Throws Refused when a file cannot be written, SqlError, and what `progress`
/// throws.
QStringList exportBook(OpenedBook& book, const NewFolder& folder, Passwords passwords, const StepProgress& progress);

} // namespace lorvan
