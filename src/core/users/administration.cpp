#include "users/administration.h"

#include "backup/book_copy.h"
#include "book/book_schema.h"
#include "book/lock_trust.h"
#include "book/row_counts.h"
#include "journal/journal.h"
#include "platform/engine/transaction.h"

namespace lorvan {
namespace {

/// Returns the hash of the last one.
QString deleteSeals(Connection& book)
{
    if (!book.knowsTable(sealsTable))
        return {};
    QString hash;
    {
        auto last = book.prepare("SELECT hash FROM auxiliary.seals ORDER BY id DESC LIMIT 1");
        if (last.step())
            hash = last.text(0);
    }
    book.execute("DELETE FROM auxiliary.seals");
    return hash;
}

} // namespace

CopiedBook deleteAllData(const BookFiles& files, KeyRing& keys, const Authority& authority)
{
    Connection book = openBoth(files, keys);
    Transaction transaction(book, authority, Transaction::Writing::Alone);
    BookCopy copy(book, files, keys, authority.now());
    const QJsonObject counts = countRows(book, book);
    book.execute("DELETE FROM main.kinhseis; DELETE FROM main.kvdikoi; DELETE FROM main.omades;"
                 "DELETE FROM main.tameio; DELETE FROM auxiliary.klhsimotameioy");
    const QString lastSeal = deleteSeals(book);
    for (const QString& table : ownTables()) {
        if (table != QLatin1String(journalTable) && book.knowsTable(table.toLatin1().constData()))
            book.execute(QStringLiteral("DELETE FROM main.%1").arg(table).toStdString());
    }
    recordChange(book, authority,
        {JournalAction::Clear, journal_subject::book(), {}, {}, counts, {{QStringLiteral("seal"), lastSeal}}});
    copy.keep(); // if the commit fails halfway, the copy may be needed
    transaction.commit();
    return {copy.mainDatabase(), copy.auxiliaryDatabase()};
}

} // namespace lorvan
