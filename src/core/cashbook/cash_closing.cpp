#include "cashbook/cash_closing.h"

#include "book/journal_beginning.h"
#include "cashbook/day_seal.h"
#include "cashbook/seal_record.h"
#include "journal/check_code.h"
#include "journal/journal.h"
#include "movements/cash_day.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"

#include <QJsonDocument>

#include <algorithm>
#include <set>

namespace lorvan {
namespace {

constexpr int daysBetweenQuestions = 2000;
constexpr int daysOfHabit = 60; ///< In a book where none of them was closed, nobody closes days.

QString record(Connection& book, const Authority& authority, JournalAction action, const Closing& closing)
{
    return recordChange(book, authority,
        {action, journal_subject::day(closing.day), closing.day, {}, {},
            {{QStringLiteral("hmeraklhsimatos"), storedDate(closing.day)}, {QStringLiteral("aa"), closing.key}}});
}

qint64 keyIn(const QString& json)
{
    return QJsonDocument::fromJson(json.toUtf8())[QStringLiteral("aa")].toInteger();
}

/// The key of the last closing that is recorded together with others, or was there when the journal began.
qint64 closingsRecordedTogether(Connection& main)
{
    qint64 last = 0;
    auto rows = main.prepare("SELECT after FROM main.journal WHERE subject='book'");
    while (rows.step())
        last = std::max(last, keyIn(rows.text(0)));
    return last;
}

bool isRecorded(Connection& main, const Closing& closing)
{
    auto rows =
        main.prepare("SELECT after FROM main.journal WHERE subject=? AND action IN ('close', 'found', 'accept')");
    for (rows.bind(journal_subject::day(closing.day)); rows.step();) {
        if (keyIn(rows.text(0)) == closing.key)
            return true;
    }
    return false;
}

template <typename Take> void walkOpenDays(Connection& main, Connection& auxiliary, QDate before, const Take& take)
{
    auto closed = auxiliary.prepare(
        "SELECT hmeraklhsimatos FROM klhsimotameioy WHERE hmeraklhsimatos<? ORDER BY hmeraklhsimatos");
    auto days = main.prepare("SELECT DISTINCT hmeromhnia FROM tameio WHERE hmeromhnia<? ORDER BY hmeromhnia");
    bool hasClosed = closed.bind(before).step();
    for (days.bind(before); days.step();) {
        const qint64 cashDay = days.integer(0);
        while (hasClosed && closed.integer(0) < cashDay)
            hasClosed = closed.step();
        if (!hasClosed || closed.integer(0) != cashDay)
            take(days.date(0));
    }
}

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

/// What was closed around the program before, which the next row would hide.
void completeClosings(Connection& book)
{
    if (!keepsJournal(book))
        return;
    beginJournal(book, book);
    recordFound(book, Authority::program(), unrecordedClosings(book, book));
}

/// Closes the days between each two closed ones. Returns how many; no value if `goOn` says no.
std::optional<int> fillGaps(
    Connection& book, const Authority& authority, const std::vector<QDate>& closed, const std::function<bool()>& goOn)
{
    const std::set<std::int64_t> sealed = sealedDays(book);
    auto close = book.prepare("INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (?)");
    int count = 0;
    for (std::size_t next = 1; next < closed.size(); ++next) {
        for (QDate day = closed[next - 1].addDays(1); day < closed[next]; day = day.addDays(1)) {
            if (sealed.contains(storedDate(day))) // somebody has opened it around the program
                recordAltered(book, authority, day);
            close.bind(day).run();
            if (++count % daysBetweenQuestions == 0 && !goOn())
                return std::nullopt;
        }
    }
    return count;
}

} // namespace

bool isClosed(Connection& auxiliary, QDate day)
{
    return auxiliary.prepare("SELECT 1 FROM klhsimotameioy WHERE hmeraklhsimatos=? LIMIT 1").bind(day).step();
}

std::optional<ClosedDay> closeDay(Connection& book, const Authority& authority, QDate day)
{
    authority.require(Right::CloseCash);
    Transaction transaction(book, authority);
    if (isClosed(book, day))
        return std::nullopt;
    completeClosings(book);
    const bool wasSealed = keepsJournal(book) && (isSealed(book, day) || JournalledSeals(book).tellOf(day));
    if (wasSealed) // somebody has opened it around the program
        recordAltered(book, authority, day);
    book.prepare("INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (?)").bind(day).run();
    const QString journal = record(book, authority, JournalAction::Close, {book.lastInsertedKey(), day});
    ClosedDay closed{day};
    if (!journal.isEmpty() && keepsSeals(book) && !wasSealed)
        closed.checkCode = checkCode(sealDay(book, authority, day, journal).hash);
    transaction.commit();
    return closed;
}

void closeOpenDays(Connection& book, const Authority& authority, const std::function<bool()>& goOn)
{
    authority.require(Right::CloseCash);
    Transaction transaction(book, authority);
    completeClosings(book);
    const std::vector<QDate> closed = closedDays(book);
    const auto count = fillGaps(book, authority, closed, goOn);
    if (count.value_or(0) == 0)
        return;
    recordChange(book, authority,
        {JournalAction::Close, journal_subject::book(), {}, {}, {},
            {{QStringLiteral("from"), storedDate(closed.front())}, {QStringLiteral("to"), storedDate(closed.back())},
                {QStringLiteral("days"), *count}, {QStringLiteral("aa"), qint64(book.lastInsertedKey())}}});
    transaction.commit();
}

std::vector<Closing> unrecordedClosings(Connection& main, Connection& auxiliary)
{
    std::vector<Closing> closings;
    auto rows = auxiliary.prepare("SELECT aa, hmeraklhsimatos FROM klhsimotameioy WHERE aa>? ORDER BY aa DESC");
    for (rows.bind(closingsRecordedTogether(main)); rows.step();) {
        const Closing closing{rows.integer(0), rows.date(1)};
        if (isRecorded(main, closing))
            break;
        closings.push_back(closing);
    }
    std::reverse(closings.begin(), closings.end());
    return closings;
}

void recordFound(Connection& main, const Authority& authority, const std::vector<Closing>& closings)
{
    for (const Closing& closing : closings)
        record(main, authority, JournalAction::Found, closing);
}

OpenDays openDaysBefore(Connection& main, Connection& auxiliary, QDate day)
{
    OpenDays open;
    walkOpenDays(main, auxiliary, day, [&open](QDate each) {
        if (open.count++ == 0)
            open.since = each;
    });
    return open;
}

std::vector<QDate> listOpenDaysBefore(Connection& main, Connection& auxiliary, QDate day)
{
    std::vector<QDate> days;
    walkOpenDays(main, auxiliary, day, [&days](QDate each) { days.push_back(each); });
    return days;
}

OpenDays forgottenDays(Connection& main, Connection& auxiliary, QDate today)
{
    const bool areDaysClosed =
        auxiliary.prepare("SELECT 1 FROM klhsimotameioy WHERE hmeraklhsimatos>=? AND hmeraklhsimatos<? LIMIT 1")
            .bind(today.addDays(-daysOfHabit), today)
            .step();
    return areDaysClosed ? openDaysBefore(main, auxiliary, today) : OpenDays{};
}

QString closingText(QDate day, const CashDayFigures& figures, const OpenDays& before)
{
    const QString text = QStringLiteral("Ημέρα %1\nΣύνολο εσόδων %2\nΣύνολο εξόδων %3\nΥπόλοιπο ταμείου %4\n\n")
                             .arg(dateText(day), amountOrZeroText(figures.income), amountOrZeroText(figures.expense),
                                 amountOrZeroText(figures.closingBalance));
    if (before.count == 0)
        return text + QStringLiteral("Όλες οι προηγούμενες ημέρες του ταμείου έχουν κλείσει.");
    if (before.count == 1)
        return text + QStringLiteral("Μία προηγούμενη ημέρα δεν έχει κλείσει: η %1.").arg(dateText(before.since));
    return text
        + QStringLiteral("%1 προηγούμενες ημέρες δεν έχουν κλείσει, η πρώτη είναι η %2.")
              .arg(before.count)
              .arg(dateText(before.since));
}

} // namespace lorvan
