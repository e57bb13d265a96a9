#include "proof/book_repair.h"

#include "backup/book_copy.h"
#include "cashbook/journal_keeping.h"
#include "journal/hash_text.h"
#include "journal/journal.h"
#include "movements/journal_states.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/transaction.h"
#include "platform/work_watch.h"
#include "proof/book_check.h"

#include <QJsonDocument>

#include <algorithm>
#include <optional>

namespace lorvan {
namespace {

constexpr std::size_t mostTold = 100; // days of which each has a row of its own in the journal

/// What the repair did with one row of tameio.
struct Correction {
    std::int64_t day;
    std::optional<CashDayFigures> before; ///< As the program reads them.
    std::optional<CashDayFigures> after;
};

struct Corrections {
    BookRepair& repair;
    std::vector<Correction> all = {}; ///< By day.
};

void removeRows(Connection& book, const AuditedDay& day, std::vector<Correction>& all)
{
    auto removal = book.prepare("DELETE FROM tameio WHERE aa=?");
    for (const std::int64_t key : day.repeatedKeys) {
        auto row = book.prepare("SELECT esoda, ejoda, ypoloipo FROM tameio WHERE aa=?");
        if (row.bind(key).step())
            all.push_back({day.day, CashDayFigures{row.currency(0), row.currency(1), row.currency(2)}, std::nullopt});
        removal.bind(key).run();
    }
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

void repairDay(Connection& book, const AuditedDay& day, Corrections& corrections)
{
    auto& [repair, all] = corrections;
    if (!day.row) {
        addRow(book, day);
        all.push_back({day.day, std::nullopt, day.expected});
        ++repair.addedDays;
        return;
    }
    if (!day.repeatedKeys.empty()) {
        removeRows(book, day, all);
        ++repair.mergedDays;
        repair.removedRows += static_cast<std::int64_t>(day.repeatedKeys.size());
    }
    if (day.sumsWrong || day.balanceWrong) {
        correctRow(book, day);
        all.push_back({day.day, day.row->figures, day.expected});
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

QJsonObject stateOf(const std::optional<CashDayFigures>& figures)
{
    return figures ? journalState(*figures) : QJsonObject();
}

/// Of both states of all rows.
QString digestOf(const std::vector<Correction>& corrections)
{
    HashText text;
    const auto add = [&text](const char* name, const std::optional<CashDayFigures>& figures) {
        const QJsonObject state = stateOf(figures);
        text.add(name, QString::fromUtf8(state.isEmpty() ? "" : QJsonDocument(state).toJson(QJsonDocument::Compact)));
    };
    for (const Correction& each : corrections) {
        text.add("day", each.day);
        add("before", each.before);
        add("after", each.after);
    }
    return text.hash();
}

QJsonObject stateOf(const BookRepair& repair, const std::vector<Correction>& corrections)
{
    QJsonObject state{{QStringLiteral("mergedDays"), qint64(repair.mergedDays)},
        {QStringLiteral("removedRows"), qint64(repair.removedRows)},
        {QStringLiteral("addedDays"), qint64(repair.addedDays)},
        {QStringLiteral("correctedDays"), qint64(repair.correctedDays)},
        {QStringLiteral("keptDifferences"), qint64(repair.keptDifferences)}};
    if (!corrections.empty()) {
        state[QStringLiteral("from")] = qint64(corrections.front().day);
        state[QStringLiteral("to")] = qint64(corrections.back().day);
        state[QStringLiteral("digest")] = digestOf(corrections);
    }
    return state;
}

/// The first rows each with both states, then all together.
void record(Connection& book, const Authority& authority, const Corrections& corrections)
{
    const auto& [repair, all] = corrections;
    for (std::size_t i = 0; i < std::min(all.size(), mostTold); ++i) {
        const Correction& each = all[i];
        recordChange(book, authority,
            {JournalAction::Correct, QStringLiteral("day/%1").arg(each.day), dateFromStored(each.day), {},
                stateOf(each.before), stateOf(each.after)});
    }
    recordChange(book, authority, {JournalAction::Repair, journal_subject::book(), {}, {}, {}, stateOf(repair, all)});
}

void keepDifferences(Connection& book, const Authority& authority, const OpeningDifferences& differences)
{
    addOpeningDifferences(book, differences);
    recordChange(book, authority,
        {JournalAction::Opening, journal_subject::book(), {}, {}, {}, journalState(openingDifferences(book))});
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
    beginStep(QStringLiteral("Διορθώνονται οι ημέρες ταμείου…"));
    const CashAudit audit = auditCash(book, progress);
    if (!audit.days)
        return repair;
    completeJournal(book, book);
    Corrections corrections{repair};
    for (const AuditedDay& day : audit.days->days)
        repairDay(book, day, corrections);
    if (!audit.days->differencesAreKept)
        repair.keptDifferences = static_cast<std::int64_t>(audit.days->differences.size());
    record(book, authority, corrections);
    if (repair.keptDifferences > 0)
        keepDifferences(book, authority, audit.days->differences);
    decideOrGiveUp();
    commit(transaction, copy);
    repair.mainCopy = copy.mainDatabase();
    repair.auxiliaryCopy = copy.auxiliaryDatabase();
    return repair;
}

} // namespace lorvan
