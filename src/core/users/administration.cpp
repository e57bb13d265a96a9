#include "users/administration.h"

#include "backup/book_copy.h"
#include "book/book_schema.h"
#include "book/lock_trust.h"
#include "book/row_counts.h"
#include "journal/journal.h"
#include "platform/date_text.h"
#include "platform/engine/transaction.h"

#include <vector>

namespace lorvan {
namespace {

constexpr int daysBetweenQuestions = 2000;

std::vector<QDate> closedDays(Connection& book)
{
    std::vector<QDate> days;
    auto rows = book.prepare("SELECT DISTINCT hmeraklhsimatos FROM klhsimotameioy ORDER BY hmeraklhsimatos");
    while (rows.step()) {
        if (const QDate day = rows.date(0); day.isValid())
            days.push_back(day);
    }
    return days;
}

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

void closeOpenDays(Connection& book, const Authority& authority, const std::function<bool()>& goOn)
{
    authority.require(Right::CloseCash);
    Transaction transaction(book, authority);
    const std::vector<QDate> closed = closedDays(book);
    auto close = book.prepare("INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (?)");
    int count = 0;
    for (std::size_t next = 1; next < closed.size(); ++next) {
        for (QDate day = closed[next - 1].addDays(1); day < closed[next]; day = day.addDays(1)) {
            close.bind(day).run();
            if (++count % daysBetweenQuestions == 0 && !goOn())
                return;
        }
    }
    if (count == 0)
        return;
    recordChange(book, authority,
        {JournalAction::Close, journal_subject::book(), {}, {}, {},
            {{QStringLiteral("from"), storedDate(closed.front())}, {QStringLiteral("to"), storedDate(closed.back())},
                {QStringLiteral("days"), count}, {QStringLiteral("aa"), qint64(book.lastInsertedKey())}}});
    transaction.commit();
}

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
