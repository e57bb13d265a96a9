#pragma once

#include "movements/opening_difference.h"
#include "platform/work.h"

#include <QDateTime>
#include <QString>

#include <vector>

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

/// The days that an import has changed.
struct ImportedDays {
    QDate first; ///< That got movements; invalid if none did.
    std::vector<QDate> sealed; ///< Those that got movements and are sealed again for it.
    OpeningDifferences openingBefore;
};

/// Adds a row to the journal for each file of which something was stored, inside the caller's transaction. That of the
/// movements is the last one and tells of the days, that of the opening differences what they were and are. Returns
/// the hash of the last one, which the new seals name; empty if nothing was stored. Throws SqlError.
QString recordImport(Connection& book, const QString& digest, const CsvImportOutcome& outcome, const ImportedDays& days,
    const Authority& authority);

} // namespace lorvan
