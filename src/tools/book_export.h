#pragma once

#include "tools/step_progress.h"

#include <QString>

namespace lorvan {

class OpenedBook;
class NewFolder;

enum class Passwords { LeaveOut, Export };

/// Writes every table of a book into the folder as CSV, named after the table, and the movements as a workbook
/// `kinhseis.xlsx` besides. All of it is one state of the book, and the book's lock is held only as long as its files
/// take to be copied into the folder; the copies are gone at the end.
/// Throws Refused when a file cannot be written, SqlError, and what `progress`
/// throws.
void exportBook(OpenedBook& book, const NewFolder& folder, Passwords passwords, const StepProgress& progress);

} // namespace lorvan
