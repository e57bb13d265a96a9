#include "csv/taken_imports.h"

#include "cashbook/seal_record.h"
#include "csv/csv_import.h"
#include "journal/journal.h"
#include "movements/journal_states.h"
#include "platform/authority.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"

#include <QJsonArray>

namespace lorvan {
namespace {

QJsonObject stateOf(const ImportedDays& days)
{
    QJsonObject state;
    if (days.first.isValid())
        state[QStringLiteral("from")] = storedDate(days.first);
    QJsonArray sealed;
    for (const QDate day : days.sealed)
        sealed.append(storedDate(day));
    if (!sealed.isEmpty())
        state[QLatin1String(daysSealedLate)] = sealed;
    return state;
}

} // namespace

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

QString recordImport(Connection& book, const QString& digest, const CsvImportOutcome& outcome, const ImportedDays& days,
    const Authority& authority)
{
    struct FileRow {
        const char* name;
        qint64 added;
        QJsonObject before = {};
        QJsonObject after = {};
    };
    const FileRow files[] = {{import_files::groups, outcome.groups.added}, {import_files::codes, outcome.codes.added},
        {import_files::openingDifferences, outcome.openingDifferences.added, journalState(days.openingBefore),
            journalState(openingDifferences(book))},
        {import_files::movements, outcome.movements, {}, stateOf(days)}};
    QString last;
    for (auto [file, added, before, after] : files) {
        if (added == 0)
            continue;
        after[QStringLiteral("file")] = QLatin1String(file);
        after[QStringLiteral("added")] = added;
        after[QStringLiteral("digest")] = digest;
        last = recordChange(book, authority, {JournalAction::Import, journal_subject::book(), {}, {}, before, after});
    }
    return last;
}

} // namespace lorvan
