#include "csv/taken_imports.h"

#include "csv/csv_import.h"
#include "platform/clock.h"
#include "platform/engine/connection.h"
#include "support/work.h"

#include <QDateTime>

namespace lorvan {

void refuseTaken(Connection& book, const QString& digest)
{
    auto taken = book.prepare("SELECT at FROM taken_imports WHERE digest=? ORDER BY id");
    taken.bind(digest);
    if (!taken.step())
        return;
    const QDateTime at = QDateTime::fromMSecsSinceEpoch(taken.integer(0));
    throw Refused(QStringLiteral("Το ίδιο περιεχόμενο έχει ήδη εισαχθεί στις %1. Με --again εισάγεται και δεύτερη φορά."
                                 " Δεν προστέθηκε τίποτα.")
                      .arg(at.toString(QStringLiteral("dd-MM-yyyy HH:mm"))));
}

void rememberImport(Connection& book, const QString& digest, const CsvImportOutcome& outcome, const Clock& clock)
{
    book.prepare("INSERT INTO taken_imports (digest, at, groups, codes, movements) VALUES (?,?,?,?,?)")
        .bind(digest, clock.now().toMSecsSinceEpoch(), outcome.groups.added, outcome.codes.added, outcome.movements)
        .run();
}

} // namespace lorvan
