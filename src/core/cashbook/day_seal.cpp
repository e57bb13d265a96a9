#include "cashbook/day_seal.h"

#include "cashbook/day_view.h"
#include "cashbook/movement_store.h"
#include "journal/check_code.h"
#include "journal/hash_text.h"
#include "journal/journal.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"

#include <string>

namespace lorvan {
namespace {

std::string selection(const char* rest)
{
    std::string sql = "SELECT ";
    return sql.append(sealColumns).append(" FROM seals ").append(rest);
}

std::optional<DaySeal> first(Statement& row)
{
    return row.step() ? std::optional(sealIn(row)) : std::nullopt;
}

std::optional<DaySeal> lastSeal(Connection& book)
{
    auto row = book.prepare(selection("ORDER BY id DESC LIMIT 1"));
    return first(row);
}

void store(Connection& book, const DaySeal& seal)
{
    book.prepare("INSERT INTO seals (id, at, user, computer, day, version, late, income, expense, movements, content,"
                 " previous, journal, hash, carried, balance, balance_hash) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)")
        .bind(seal.id, seal.at, seal.user, seal.computer, seal.day, seal.version, seal.isLate, seal.income,
            seal.expense, seal.movements, seal.content, seal.previous, seal.journal, seal.hash, seal.carried,
            seal.balance, seal.balanceHash)
        .run();
}

std::vector<QDate> unsealedDays(Connection& book, int most)
{
    std::vector<QDate> days;
    auto rows = book.prepare("SELECT DISTINCT hmeraklhsimatos FROM klhsimotameioy WHERE hmeraklhsimatos NOT IN"
                             " (SELECT day FROM seals) AND hmeraklhsimatos>1000100 ORDER BY hmeraklhsimatos LIMIT ?");
    for (rows.bind(most); rows.step();) {
        if (const QDate day = rows.date(0); day.isValid())
            days.push_back(day);
    }
    return days;
}

} // namespace

DaySeal sealIn(const Statement& row)
{
    DaySeal seal;
    seal.id = row.integer(0);
    seal.at = row.integer(1);
    seal.user = row.text(2);
    seal.computer = row.text(3);
    seal.day = row.integer(4);
    seal.version = row.integer(5);
    seal.isLate = row.boolean(6);
    seal.income = row.currency(7);
    seal.expense = row.currency(8);
    seal.movements = row.integer(9);
    seal.content = row.text(10);
    seal.previous = row.text(11);
    seal.journal = row.text(12);
    seal.hash = row.text(13);
    seal.carried = row.currency(14);
    seal.balance = row.currency(15);
    seal.balanceHash = row.text(16);
    if (!row.isNull(17))
        seal.counted = row.text(17);
    return seal;
}

QString sealHash(const DaySeal& seal)
{
    return HashText()
        .add("id", seal.id)
        .add("at", seal.at)
        .add("user", seal.user)
        .add("computer", seal.computer)
        .add("day", seal.day)
        .add("version", seal.version)
        .add("late", std::int64_t(seal.isLate ? -1 : 0))
        .add("income", seal.income.tenThousandths())
        .add("expense", seal.expense.tenThousandths())
        .add("movements", seal.movements)
        .add("content", seal.content)
        .add("previous", seal.previous)
        .add("journal", seal.journal)
        .hash();
}

QString balanceHash(const DaySeal& seal)
{
    return HashText()
        .add("seal", seal.hash)
        .add("carried", seal.carried.tenThousandths())
        .add("balance", seal.balance.tenThousandths())
        .hash();
}

QString contentDigest(const std::vector<Movement>& movements)
{
    HashText text;
    for (const Movement& movement : movements)
        text.add("aa", std::int64_t(movement.key))
            .add("kvdikos", std::int64_t(movement.code))
            .add("hmeromhnia", std::int64_t(storedDate(movement.day)))
            .add("perigrafh", movement.description)
            .add("esoda", movement.income.tenThousandths())
            .add("ejoda", movement.expense.tenThousandths())
            .add("epitagh", std::int64_t(movement.cheque ? -1 : 0))
            .add("L_tajeos", movement.memorandum.tenThousandths());
    return text.hash();
}

bool keepsSeals(const Connection& book)
{
    return book.knowsTable("seals");
}

bool isSealed(Connection& auxiliary, QDate day)
{
    return keepsSeals(auxiliary) && auxiliary.prepare("SELECT 1 FROM seals WHERE day=? LIMIT 1").bind(day).step();
}

std::optional<DaySeal> lastSealOf(Connection& auxiliary, QDate day)
{
    if (!keepsSeals(auxiliary))
        return std::nullopt;
    auto row = auxiliary.prepare(selection("WHERE day=? ORDER BY id DESC LIMIT 1"));
    return first(row.bind(day));
}

std::optional<DaySeal> sealWithCode(Connection& auxiliary, const QString& code)
{
    if (!keepsSeals(auxiliary))
        return std::nullopt;
    auto rows = auxiliary.prepare(selection("ORDER BY id DESC"));
    while (rows.step()) {
        DaySeal seal = sealIn(rows);
        if (checkCode(seal.hash) == code)
            return seal;
    }
    return std::nullopt;
}

DaySeal sealDay(Connection& book, const Authority& authority, QDate day, const QString& journal, SealTime time)
{
    const DayView view = readDay(book, day);
    const auto before = lastSeal(book);
    const auto former = lastSealOf(book, day);
    DaySeal seal;
    seal.id = before ? before->id + 1 : 1;
    seal.at = authority.now().toMSecsSinceEpoch();
    seal.user = authority.name();
    seal.computer = authority.computer();
    seal.day = storedDate(day);
    seal.version = former ? former->version + 1 : 1;
    seal.isLate = time == SealTime::Later;
    seal.income = view.figures.income;
    seal.expense = view.figures.expense;
    seal.movements = static_cast<std::int64_t>(view.movements.size());
    seal.content = contentDigest(view.movements);
    seal.previous = before ? before->hash : QString();
    seal.journal = journal;
    seal.hash = sealHash(seal);
    seal.carried = view.carried.balance;
    seal.balance = view.figures.closingBalance;
    seal.balanceHash = balanceHash(seal);
    store(book, seal);
    return seal;
}

int sealOlderDays(Connection& book, const Authority& authority, int most)
{
    authority.require(Right::CloseCash);
    if (!keepsSeals(book) || unsealedDays(book, 1).empty())
        return 0;
    Transaction writing(book, authority);
    const std::vector<QDate> days = unsealedDays(book, most);
    if (days.empty())
        return 0;
    const QString journal = recordChange(book, authority,
        {JournalAction::Seal, journal_subject::book(), {}, {}, {},
            {{QStringLiteral("days"), qint64(days.size())}, {QStringLiteral("from"), storedDate(days.front())},
                {QStringLiteral("to"), storedDate(days.back())}}});
    for (const QDate day : days)
        sealDay(book, authority, day, journal, SealTime::Later);
    writing.commit();
    return static_cast<int>(days.size());
}

} // namespace lorvan
