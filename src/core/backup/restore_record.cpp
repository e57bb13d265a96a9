#include "backup/restore_record.h"

#include "book/book_files.h"
#include "book/journal_beginning.h"
#include "book/lock_trust.h"
#include "journal/check_code.h"
#include "journal/journal.h"
#include "platform/engine/key_ring.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/transaction.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <set>
#include <vector>

namespace lorvan {
namespace {

constexpr auto codesKey = "codes";

/// What the journal and the seals of a book end with.
struct Ends {
    QString journal = {};
    QString seal = {};
    std::vector<QString> codes = {}; ///< On paper: of all seals, and those that restores have left behind.
};

void addLeftBehind(Connection& book, std::vector<QString>& codes)
{
    auto rows = book.prepare("SELECT after FROM main.journal WHERE subject='book' AND action='restore' ORDER BY id");
    while (rows.step()) {
        const QJsonDocument state = QJsonDocument::fromJson(rows.text(0).toUtf8());
        for (const auto& code : state[QLatin1String(codesKey)].toArray())
            codes.push_back(code.toString());
    }
}

Ends endsOf(Connection& book)
{
    Ends ends{lastJournalHash(book)};
    if (keepsJournal(book))
        addLeftBehind(book, ends.codes);
    if (!book.knowsTable("seals"))
        return ends;
    auto rows = book.prepare("SELECT hash FROM seals ORDER BY id");
    while (rows.step()) {
        ends.seal = rows.text(0);
        ends.codes.push_back(checkCode(ends.seal));
    }
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

QJsonArray codesNewer(const Ends& former, const Ends& copy)
{
    std::set<QString> told(copy.codes.begin(), copy.codes.end());
    QJsonArray codes;
    for (const QString& code : former.codes) {
        if (told.insert(code).second)
            codes.append(code);
    }
    return codes;
}

} // namespace

void recordRestore(
    const BookFiles& restored, const BookFiles& replaced, const QString& copy, const Authority& authority)
{
    KeyRing keys(bookPassword());
    Connection book = openBoth(restored, keys);
    const Ends former = endsOf(replaced);
    QJsonObject after{{QStringLiteral("copy"), QFileInfo(copy).fileName()}};
    if (!former.journal.isEmpty())
        after[QStringLiteral("journal")] = former.journal;
    if (!former.seal.isEmpty())
        after[QStringLiteral("seal")] = former.seal;
    if (const QJsonArray codes = codesNewer(former, endsOf(book)); !codes.isEmpty())
        after[QLatin1String(codesKey)] = codes;
    Transaction writing(book, authority);
    beginJournal(book, book);
    recordChange(book, authority, {JournalAction::Restore, journal_subject::book(), {}, {}, {}, after});
    writing.commit();
}

} // namespace lorvan
