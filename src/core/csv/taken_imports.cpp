#include "csv/taken_imports.h"

#include "csv/csv_import.h"
#include "journal/journal.h"
#include "platform/authority.h"
#include "platform/engine/connection.h"

namespace lorvan {

AlreadyTaken::AlreadyTaken(const QDateTime& at)
    : Refused(QStringLiteral("Το ίδιο περιεχόμενο έχει ήδη εισαχθεί στις %1. Με --again εισάγεται και δεύτερη φορά."
                             " Δεν προστέθηκε τίποτα.")
                  .arg(at.toString(QStringLiteral("dd-MM-yyyy HH:mm"))))
    , m_at(at)
{
}

void refuseTaken(Connection& book, const QString& digest)
{
    auto taken = book.prepare("SELECT at FROM taken_imports WHERE digest=? ORDER BY id");
    taken.bind(digest);
    if (!taken.step())
        return;
    const QDateTime at = QDateTime::fromMSecsSinceEpoch(taken.integer(0));
    throw AlreadyTaken(at);
}

void rememberImport(
    Connection& book, const QString& digest, const CsvImportOutcome& outcome, const Authority& authority)
{
    book.prepare("INSERT INTO taken_imports (digest, at, groups, codes, movements) VALUES (?,?,?,?,?)")
        .bind(digest, authority.now().toMSecsSinceEpoch(), outcome.groups.added, outcome.codes.added, outcome.movements)
        .run();
}

void recordImport(Connection& book, const QString& digest, const CsvImportOutcome& outcome, const Authority& authority)
{
    const std::pair<const char*, qint64> files[] = {{import_files::groups, outcome.groups.added},
        {import_files::codes, outcome.codes.added}, {import_files::movements, outcome.movements},
        {import_files::openingDifferences, outcome.openingDifferences.added}};
    for (const auto& [file, added] : files) {
        if (added > 0)
            recordChange(book, authority,
                {JournalAction::Import, journal_subject::book(), {}, {}, {},
                    {{QStringLiteral("file"), QLatin1String(file)}, {QStringLiteral("added"), added},
                        {QStringLiteral("digest"), digest}}});
    }
}

} // namespace lorvan
