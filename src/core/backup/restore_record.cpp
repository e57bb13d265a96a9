#include "backup/restore_record.h"

#include "book/book_files.h"
#include "book/lock_trust.h"
#include "journal/check_code.h"
#include "journal/journal.h"
#include "platform/engine/key_ring.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/transaction.h"

#include <QFileInfo>
#include <QJsonArray>

#include <set>
#include <vector>

namespace lorvan {
namespace {

/// What the journal and the seals of a book end with.
struct Ends {
    QString journal;
    std::vector<QString> seals; ///< The hashes of all, in their order.
};

Ends endsOf(Connection& book)
{
    Ends ends{lastJournalHash(book), {}};
    if (!book.knowsTable("seals"))
        return ends;
    auto rows = book.prepare("SELECT hash FROM seals ORDER BY id");
    while (rows.step())
        ends.seals.push_back(rows.text(0));
    return ends;
}

/// Of a damaged book, which may be why another is restored, nothing is known.
Ends endsOf(const BookFiles& files)
{
    try {
        KeyRing keys(bookPassword());
        Connection book = openBoth(files, keys, Connection::Access::ReadOnly);
        return endsOf(book);
    } catch (const std::runtime_error&) {
        return {};
    }
}

QJsonArray codesOf(const std::vector<QString>& seals, const std::vector<QString>& known)
{
    const std::set<QString> there(known.begin(), known.end());
    QJsonArray codes;
    for (const QString& hash : seals) {
        if (!there.contains(hash))
            codes.append(checkCode(hash));
    }
    return codes;
}

} // namespace

void recordRestore(
    const BookFiles& restored, const BookFiles& replaced, const QString& copy, const Authority& authority)
{
    KeyRing keys(bookPassword());
    Connection book = openBoth(restored, keys);
    if (!keepsJournal(book))
        return;
    const Ends former = endsOf(replaced);
    QJsonObject after{{QStringLiteral("copy"), QFileInfo(copy).fileName()}};
    if (!former.journal.isEmpty())
        after[QStringLiteral("journal")] = former.journal;
    if (!former.seals.empty())
        after[QStringLiteral("seal")] = former.seals.back();
    if (const QJsonArray codes = codesOf(former.seals, endsOf(book).seals); !codes.isEmpty())
        after[QStringLiteral("codes")] = codes;
    Transaction writing(book, authority);
    recordChange(book, authority, {JournalAction::Restore, journal_subject::book(), {}, {}, {}, after});
    writing.commit();
}

} // namespace lorvan
