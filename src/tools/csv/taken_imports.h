#pragma once

#include <QString>

namespace lorvan {

class Clock;
class Connection;
struct CsvImportOutcome;

/// What a book has already imported from files, by the digest of the rows (see import_digest.h): table `taken_imports`.

/// Throws Refused if the book has imported this content before. Throws SqlError.
void refuseTaken(Connection& book, const QString& digest);

/// Records an import, inside the caller's transaction. Throws SqlError.
void rememberImport(Connection& book, const QString& digest, const CsvImportOutcome& outcome, const Clock& clock);

} // namespace lorvan
