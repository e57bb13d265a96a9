#include "cashbook/day_seal.h"

#include "cashbook/cash_closing.h"
#include "cashbook/seal_record.h"
#include "journal/check_code.h"
#include "journal/journal.h"
#include "journal/stray_ids.h"
#include "movements/cash_day.h"
#include "movements/movement_store.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/sliced_reading.h"
#include "platform/engine/transaction.h"

#include <algorithm>
#include <string>

namespace lorvan {
namespace {

enum class SealTime { AtClosing, Later };

constexpr auto columns = "id, at, user, computer, day, version, late, income, expense, movements, content, previous,"
                         " journal, hash, carried, balance, balance_hash, counted";

std::string selection(const char* rest)
{
    std::string sql = "SELECT ";
    return sql.append(columns).append(" FROM seals ").append(rest);
}

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

std::optional<DaySeal> first(Statement& row)
{
    return row.step() ? std::optional(sealIn(row)) : std::nullopt;
}

std::optional<DaySeal> lastSeal(Connection& book)
{
    auto row = book.prepare(selection("WHERE id<? ORDER BY id DESC LIMIT 1"));
    return first(row.bind(firstStrayId));
}

void store(Connection& book, const DaySeal& seal)
{
    std::string sql = "INSERT INTO seals (";
    book.prepare(sql.append(columns).append(") VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"))
        .bind(seal.id, seal.at, seal.user, seal.computer, seal.day, seal.version, seal.isLate, seal.income,
            seal.expense, seal.movements, seal.content, seal.previous, seal.journal, seal.hash, seal.carried,
            seal.balance, seal.balanceHash, seal.counted)
        .run();
}

/// The oldest, up to `most`. A day that has lost its seal is none of them: a new one would hide that.
std::vector<QDate> unsealedDays(Connection& book, int most)
{
    std::vector<QDate> days;
    const JournalledSeals journalled(book);
    auto rows = book.prepare(
        "SELECT DISTINCT hmeraklhsimatos FROM klhsimotameioy WHERE hmeraklhsimatos NOT IN"
        " (SELECT day FROM seals WHERE day IS NOT NULL) AND hmeraklhsimatos>1000100 ORDER BY hmeraklhsimatos");
    while (days.size() < static_cast<std::size_t>(most) && rows.step()) {
        if (const QDate day = rows.date(0); day.isValid() && !journalled.tellOf(day))
            days.push_back(day);
    }
    return days;
}

/// What a day's movements say, all that a seal needs to read more than a few rows for.
struct DayContent {
    QDate day;
    Currency income;
    Currency expense;
    std::int64_t movements = 0;
    QString digest;
};

DayContent contentOf(Connection& book, QDate day)
{
    const std::vector<Movement> movements = movementsOf(book, day);
    DayContent content{day, {}, {}, static_cast<std::int64_t>(movements.size()), contentDigest(movements)};
    for (const Movement& movement : movements) {
        content.income += movement.income;
        content.expense += movement.expense;
    }
    return content;
}

std::vector<QDate> daysOf(const std::vector<DayContent>& contents)
{
    std::vector<QDate> days;
    for (const DayContent& content : contents)
        days.push_back(content.day);
    return days;
}

/// The oldest days that have no seal, up to `most`, and the state of the files in which they hold that: it is read in
/// slices, so that the lock for writing need not be held meanwhile.
std::pair<std::vector<DayContent>, FileState> contentsToSeal(Connection& book, int most)
{
    std::vector<QDate> left;
    std::vector<DayContent> contents;
    const auto read = [&](Deadline deadline) {
        if (contents.empty())
            left = unsealedDays(book, most);
        while (contents.size() < left.size()) {
            contents.push_back(contentOf(book, left[contents.size()]));
            if (isOver(deadline))
                break;
        }
        return contents.size() == left.size();
    };
    constexpr SlicePace neverWaiting{.hurried = std::numeric_limits<int>::max()}; // it is soon read again
    FileState state = readInSlices(book, neverWaiting, [&]() -> ReadSlice {
        contents.clear();
        return read;
    });
    return {std::move(contents), std::move(state)};
}

DaySeal sealDay(Connection& book, const Authority& authority, const DayContent& content, const QString& journal,
    SealTime time, std::int64_t formerVersions = 0)
{
    const auto before = lastSeal(book);
    const auto former = lastSealOf(book, content.day);
    const Currency carried = carriedBalance(book, content.day).balance;
    DaySeal seal;
    seal.id = before ? before->id + 1 : 1;
    seal.at = authority.now().toMSecsSinceEpoch();
    seal.user = authority.name();
    seal.computer = authority.computer();
    seal.day = storedDate(content.day);
    seal.version = std::max(former ? former->version : 0, formerVersions) + 1;
    seal.isLate = time == SealTime::Later;
    seal.income = content.income;
    seal.expense = content.expense;
    seal.movements = content.movements;
    seal.content = content.digest;
    seal.previous = before ? before->hash : QString();
    seal.journal = journal;
    seal.hash = sealHash(seal);
    seal.carried = carried;
    seal.balance = carried + content.income - content.expense;
    seal.balanceHash = balanceHash(seal);
    store(book, seal);
    return seal;
}

} // namespace

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
    ContentDigest digest;
    for (const Movement& movement : movements)
        digest.add(movement);
    return digest.hash();
}

void ContentDigest::add(const Movement& movement)
{
    m_text.clear();
    m_text.add("aa", std::int64_t(movement.key))
        .add("kvdikos", std::int64_t(movement.code))
        .add("hmeromhnia", std::int64_t(storedDate(movement.day)))
        .add("perigrafh", movement.description)
        .add("esoda", movement.income.tenThousandths())
        .add("ejoda", movement.expense.tenThousandths())
        .add("epitagh", std::int64_t(movement.cheque ? -1 : 0))
        .add("L_tajeos", movement.memorandum.tenThousandths());
    m_all.add(m_text.text());
}

bool keepsSeals(const Connection& book)
{
    return book.knowsTable("seals");
}

bool isSealed(Connection& auxiliary, QDate day)
{
    return keepsSeals(auxiliary) && auxiliary.prepare("SELECT 1 FROM seals WHERE day=? LIMIT 1").bind(day).step();
}

std::vector<DaySeal> allSeals(Connection& auxiliary)
{
    std::vector<DaySeal> seals;
    if (!keepsSeals(auxiliary))
        return seals;
    auto rows = auxiliary.prepare(selection("ORDER BY id"));
    while (rows.step())
        seals.push_back(sealIn(rows));
    return seals;
}

std::optional<DaySeal> lastSealOf(Connection& auxiliary, QDate day)
{
    if (!keepsSeals(auxiliary))
        return std::nullopt;
    auto row = auxiliary.prepare(selection("WHERE day=? ORDER BY id DESC LIMIT 1"));
    return first(row.bind(day));
}

bool isWhole(const DaySeal& seal)
{
    return seal.hash == sealHash(seal) && seal.balanceHash == balanceHash(seal);
}

bool holdsSeal(Connection& book, const DaySeal& seal, std::int64_t lastKey)
{
    const QDate day = dateFromStored(seal.day);
    if (!isWhole(seal) || !isClosed(book, day))
        return false;
    std::vector<Movement> movements = movementsOf(book, day);
    std::erase_if(movements, [lastKey](const Movement& movement) { return movement.key > lastKey; });
    return contentDigest(movements) == seal.content;
}

std::optional<DaySeal> sealWithCode(Connection& auxiliary, const QString& code)
{
    if (!keepsSeals(auxiliary))
        return std::nullopt;
    auto rows = auxiliary.prepare(selection("WHERE lower(substr(hash, 1, 12))=? ORDER BY id DESC"));
    for (rows.bind(hashBeginning(code)); rows.step();) {
        DaySeal seal = sealIn(rows);
        if (checkCode(seal.hash) == code)
            return seal;
    }
    return std::nullopt;
}

DaySeal sealDay(
    Connection& book, const Authority& authority, QDate day, const QString& journal, std::int64_t formerVersions)
{
    return sealDay(book, authority, contentOf(book, day), journal, SealTime::AtClosing, formerVersions);
}

int sealOlderDays(Connection& book, const Authority& authority, int most)
{
    authority.require(Right::CloseCash);
    while (keepsSeals(book)) {
        const auto [days, state] = contentsToSeal(book, most);
        if (days.empty())
            break;
        Transaction writing(book, authority);
        if (stateOf(book) != state)
            continue; // somebody has changed something in between
        const QString journal = recordChange(book, authority,
            {JournalAction::Seal, journal_subject::book(), {}, {}, {}, lateSealingState(daysOf(days))});
        for (const DayContent& day : days)
            sealDay(book, authority, day, journal, SealTime::Later);
        writing.commit();
        return static_cast<int>(days.size());
    }
    return 0;
}

} // namespace lorvan
