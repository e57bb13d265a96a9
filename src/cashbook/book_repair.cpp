#include "cashbook/book_repair.h"

#include "app/book_copy.h"
#include "cashbook/book_check.h"
#include "platform/connection.h"
#include "platform/transaction.h"

namespace lorvan {
namespace {

void removeRows(Connection& book, const std::vector<std::int64_t>& keys)
{
    auto removal = book.prepare("DELETE FROM tameio WHERE aa=?");
    for (const std::int64_t key : keys)
        removal.bind(key).run();
}

void addRow(Connection& book, const AuditedDay& day)
{
    book.prepare("INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (?,?,?,?)")
        .bind(day.day, day.expected.income, day.expected.expense, day.expected.closingBalance)
        .run();
}

void correctRow(Connection& book, const AuditedDay& day)
{
    book.prepare("UPDATE tameio SET esoda=?, ejoda=?, ypoloipo=? WHERE aa=?")
        .bind(day.expected.income, day.expected.expense, day.expected.closingBalance, day.row->key)
        .run();
}

void repairDay(Connection& book, const AuditedDay& day, BookRepair& repair)
{
    if (!day.row) {
        addRow(book, day);
        ++repair.addedDays;
        return;
    }
    if (!day.repeatedKeys.empty()) {
        removeRows(book, day.repeatedKeys);
        ++repair.mergedDays;
        repair.removedRows += static_cast<std::int64_t>(day.repeatedKeys.size());
    }
    if (day.sumsWrong || day.balanceWrong) {
        correctRow(book, day);
        ++repair.correctedDays;
    }
}

} // namespace

BookRepair repairBook(
    Connection& book, const BookFiles& files, KeyRing& keys, const QDateTime& now, const CheckProgress& progress)
{
    BookRepair repair;
    Transaction transaction(book);
    BookCopy copy(book, files, keys, now);
    const CashAudit audit = auditCash(book, progress);
    if (!audit.days)
        return repair;
    for (const AuditedDay& day : audit.days->days)
        repairDay(book, day, repair);
    copy.keep(); // should the commit fail halfway, the copy may be needed
    transaction.commit();
    repair.mainCopy = copy.mainDatabase();
    repair.auxiliaryCopy = copy.auxiliaryDatabase();
    return repair;
}

} // namespace lorvan
