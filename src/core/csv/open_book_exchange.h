#pragma once

#include "csv/csv_import.h"
#include "platform/work.h"

#include <QDateTime>
#include <QStringList>

namespace lorvan {

class BookFiles;
class Clock;
class KeyRing;

/// For a book that the program has open: all work on a connection of their own and may run in another thread. A
/// StopCheck stops them. `keys` holds the keys of both files.

struct ExportedBook {
    QString folder; ///< The new one, inside the folder that was given.
    QStringList staying; ///< Files in it that are not the book's and could not be removed.
};

/// Exports the book without passwords, see exportBook(), into a new folder named after the time:
/// lorvan-2026-11-24-101530. Throws Refused if that cannot be written or is there already, SqlError, and GivenUp; no
/// folder is left then.
[[nodiscard]] ExportedBook exportOpenBook(
    const BookFiles& book, KeyRing& keys, const QString& parent, const QDateTime& now, const StepProgress& progress);

/// Makes a backup into the book's backup folder, which the program never removes, and imports the CSV files of a folder
/// or ZIP file: see CsvSource and importCsv(). Closed days are refused. The caller must hold the usage marker. Throws
/// NotPermitted without the right to change cash records, BookCopyFailed, Refused, AlreadyTaken, GivenUp, SqlError and
/// CurrencyOverflow; the book is then unchanged.
[[nodiscard]] CsvImportOutcome importIntoOpenBook(const BookFiles& book, KeyRing& keys, const Authority& authority,
    const QString& files, TakenBefore takenBefore, const StepProgress& progress);

/// The same for the administrator's sign-in, when no program of this computer has the book open: claims the usage
/// marker for the time, and accepts closed days, which are sealed again. Also throws Refused if somebody works with the
/// book or it is of an older schema version, and like readyBook().
[[nodiscard]] CsvImportOutcome importAsAdministrator(const BookFiles& book, const Clock& clock, const QString& folder,
    TakenBefore takenBefore, const StepProgress& progress);

} // namespace lorvan
