#include "proof/book_repair.h"

#include "backup/book_copy.h"
#include "journal/journal.h"
#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/transaction.h"
#include "proof/book_check.h"

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

/// Takes the write lock on the main database, and keeps others from writing the auxiliary one. That one is not written:
/// a commit of both files would leave an additional file behind if the disk is full.
void shutOutWriters(Connection& book)
{
    book.execute("UPDATE main.tameio SET aa=aa WHERE 0");
    (void)book.prepare("SELECT count(*) FROM auxiliary.codes").step();
}

/// The copy stays, except if the disk is full: then the engine has undone everything, and the space is needed.
void commit(Transaction& transaction, BookCopy& copy)
{
    try {
        transaction.commit();
    } catch (const SqlError& error) {
        if (error.kind() != SqlError::Kind::DiskFull)
            copy.keep();
        throw;
    }
    copy.keep();
}

void record(Connection& book, const Authority& authority, const BookRepair& repair)
{
    recordChange(book, authority,
        {JournalAction::Repair, journal_subject::book(), {}, {}, {},
            {{QStringLiteral("mergedDays"), qint64(repair.mergedDays)},
                {QStringLiteral("removedRows"), qint64(repair.removedRows)},
                {QStringLiteral("addedDays"), qint64(repair.addedDays)},
                {QStringLiteral("correctedDays"), qint64(repair.correctedDays)},
                {QStringLiteral("keptDifferences"), qint64(repair.keptDifferences)}}});
}

} // namespace

BookRepair repairBook(
    Connection& book, const BookFiles& files, KeyRing& keys, const Authority& authority, const CheckProgress& progress)
{
    BookRepair repair;
    authority.require(Right::ModifyCash);
    Transaction transaction(book, authority, Transaction::Writing::Later);
    shutOutWriters(book);
    BookCopy copy(book, files, keys, authority.now());
    const CashAudit audit = auditCash(book, progress);
    if (!audit.days)
        return repair;
    for (const AuditedDay& day : audit.days->days)
        repairDay(book, day, repair);
    if (!audit.days->differencesAreKept && !audit.days->differences.empty()) {
        addOpeningDifferences(book, audit.days->differences);
        repair.keptDifferences = static_cast<std::int64_t>(audit.days->differences.size());
    }
    record(book, authority, repair);
    commit(transaction, copy);
    repair.mainCopy = copy.mainDatabase();
    repair.auxiliaryCopy = copy.auxiliaryDatabase();
    return repair;
}

} // namespace lorvan
