#pragma once

#include <QString>

namespace lorvan {

class Clock;
class Connection;
struct CsvImportOutcome;

/// What a book has taken from files already, by the digest of its rows (see import_digest.h): table `taken_imports`.

/// Throws Refused when the book has taken this content before; SqlError.
void refuseTaken(Connection& book, const QString& digest);

/// Remembers an import, inside the caller's transaction. Throws SqlError.
void rememberImport(Connection& book, const QString& digest, const CsvImportOutcome& outcome, const Clock& clock);

} // namespace lorvan
