#pragma once

#include "platform/work.h"

#include <QDateTime>
#include <QString>

namespace lorvan {

class Authority;
class Connection;
struct CsvImportOutcome;

/// What a book has already imported from files, by the digest of the rows (see import_digest.h): table `taken_imports`.

/// The book has imported the same content before.
class AlreadyTaken : public Refused {
public:
    explicit AlreadyTaken(const QDateTime& at);
    [[nodiscard]] const QDateTime& at() const { return m_at; }

private:
    QDateTime m_at;
};

/// Throws AlreadyTaken if the book has imported this content before. Throws SqlError.
void refuseTaken(Connection& book, const QString& digest);

/// Records an import, inside the caller's transaction. Throws SqlError.
void rememberImport(
    Connection& book, const QString& digest, const CsvImportOutcome& outcome, const Authority& authority);

/// Adds a row to the journal for each file of which something was stored, inside the caller's transaction. Throws
/// SqlError.
void recordImport(Connection& book, const QString& digest, const CsvImportOutcome& outcome, const Authority& authority);

} // namespace lorvan
