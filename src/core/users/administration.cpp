#include "users/administration.h"

#include "backup/book_copy.h"
#include "book/book_schema.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"

#include <vector>

namespace lorvan {
namespace {

constexpr int daysBetweenQuestions = 2000;

std::vector<QDate> closedDays(Connection& auxiliary)
{
    std::vector<QDate> days;
    auto rows = auxiliary.prepare("SELECT DISTINCT hmeraklhsimatos FROM klhsimotameioy ORDER BY hmeraklhsimatos");
    while (rows.step()) {
        if (const QDate day = rows.date(0); day.isValid())
            days.push_back(day);
    }
    return days;
}

} // namespace

void closeOpenDays(Connection& auxiliary, const std::function<bool()>& goOn)
{
    Transaction transaction(auxiliary);
    const std::vector<QDate> closed = closedDays(auxiliary);
    auto close = auxiliary.prepare("INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (?)");
    int count = 0;
    for (std::size_t next = 1; next < closed.size(); ++next) {
        for (QDate day = closed[next - 1].addDays(1); day < closed[next]; day = day.addDays(1)) {
            close.bind(day).run();
            if (++count % daysBetweenQuestions == 0 && !goOn())
                return;
        }
    }
    transaction.commit();
}

CopiedBook deleteAllData(const BookFiles& files, KeyRing& keys, const QDateTime& now)
{
    const FileKey mainKey = keys.keyFor(files.mainDatabase());
    const FileKey auxiliaryKey = keys.keyFor(files.auxiliaryDatabase());
    Connection book = Connection::open(files.mainDatabase(), mainKey, Connection::Access::ReadWrite);
    book.attach(files.auxiliaryDatabase(), auxiliaryKey, QStringLiteral("auxiliary"));
    Transaction transaction(book, Transaction::Mode::Exclusive);
    BookCopy copy(book, files, keys, now);
    book.execute("DELETE FROM main.kinhseis; DELETE FROM main.kvdikoi; DELETE FROM main.omades;"
                 "DELETE FROM main.tameio; DELETE FROM auxiliary.klhsimotameioy");
    for (const QString& table : ownTables()) {
        if (book.knowsTable(table.toLatin1().constData()))
            book.execute(QStringLiteral("DELETE FROM main.%1").arg(table).toStdString());
    }
    copy.keep(); // if the commit fails halfway, the copy may be needed
    transaction.commit();
    return {copy.mainDatabase(), copy.auxiliaryDatabase()};
}

} // namespace lorvan
