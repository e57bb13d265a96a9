#include "proof/opening_balance.h"

#include "book/book_schema.h"
#include "book/journal_beginning.h"
#include "cashbook/journal_keeping.h"
#include "journal/journal.h"
#include "movements/cash_day.h"
#include "movements/journal_states.h"
#include "movements/opening_difference.h"
#include "platform/authority.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "proof/book_check.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace lorvan {
namespace {

using AmountByDay = std::map<std::int64_t, Currency>;

/// Incomes less expenses of each day from `day` on. Invalid dates are left out.
AmountByDay netFrom(Connection& main, QDate day)
{
    AmountByDay net;
    auto rows = main.prepare("SELECT hmeromhnia, esoda, ejoda FROM kinhseis WHERE hmeromhnia>=?");
    rows.bind(day);
    while (rows.step()) {
        if (rows.date(0).isValid())
            net[rows.integer(0)] += rows.currency(1) - rows.currency(2);
    }
    return net;
}

std::vector<QDate> cashDaysFrom(Connection& main, QDate day)
{
    std::vector<QDate> days;
    auto rows = main.prepare("SELECT DISTINCT hmeromhnia FROM tameio WHERE hmeromhnia>=? ORDER BY hmeromhnia");
    rows.bind(day);
    while (rows.step()) {
        if (const QDate found = rows.date(0); found.isValid())
            days.push_back(found);
    }
    return days;
}

/// Adds `net` only from the day after `day` on, since `balance` includes `day` itself.
void writeBalances(Connection& main, QDate day, Currency balance, const AmountByDay& net)
{
    auto write = main.prepare("UPDATE tameio SET ypoloipo=? WHERE hmeromhnia=?");
    auto next = net.upper_bound(storedDate(day));
    for (const QDate cashDay : cashDaysFrom(main, day)) {
        for (; next != net.end() && next->first <= storedDate(cashDay); ++next)
            balance += next->second;
        write.bind(balance, cashDay).run();
    }
}

bool isCurrent(Connection& main)
{
    return main.prepare("SELECT 1 FROM taytothta WHERE ariumos=?").bind(currentSchemaVersion).step();
}

/// True if each balance is the previous one plus the day's own sums, starting at zero.
bool isCarriedFromZero(Connection& main)
{
    Currency balance;
    auto rows = main.prepare("SELECT esoda, ejoda, ypoloipo FROM tameio ORDER BY hmeromhnia, aa");
    while (rows.step()) {
        const Currency before = std::exchange(balance, rows.currency(2));
        if (rows.currency(2) - before != rows.currency(0) - rows.currency(1))
            return false;
    }
    return true;
}

bool needsNothingElse(const CashAudit& audit)
{
    const auto isRight = [](const AuditedDay& day) {
        return day.row && day.repeatedKeys.empty() && !day.sumsWrong && !day.balanceWrong;
    };
    return audit.days && audit.dayFindings.byKind().empty()
        && std::all_of(audit.days->days.begin(), audit.days->days.end(), isRight);
}

void recordOpening(Connection& main, const Authority& authority, const OpeningDifferences& former)
{
    recordChange(main, authority,
        {JournalAction::Opening, journal_subject::book(), {}, {}, journalState(former),
            journalState(openingDifferences(main))});
}

} // namespace

void setOpeningBalance(Connection& main, const Authority& authority, const OpeningBalance& opening)
{
    const auto [day, amount] = opening;
    createOwnTables(main);
    const OpeningDifferences former = openingDifferences(main);
    main.prepare("DELETE FROM opening_difference WHERE day>=?").bind(day).run();
    AmountByDay net = netFrom(main, day);
    const Currency uncounted = carriedBalance(main, day).balance + net[storedDate(day)];
    addOpeningDifferences(main, {{storedDate(day), amount - uncounted}});
    writeBalances(main, day, amount, net);
    recordOpening(main, authority, former);
}

void adoptOpeningBalance(Connection& main, Connection& auxiliary)
{
    try {
        if (!isCurrent(main) || isCarriedFromZero(main))
            return;
    } catch (const CurrencyOverflow&) {
        return; // so large a difference is damage
    }
    const CashAudit audit = auditCash(main, [](std::int64_t, std::int64_t) {});
    if (!needsNothingElse(audit) || audit.days->differencesAreKept || audit.days->differences.empty())
        return;
    beginJournal(main, auxiliary);
    addOpeningDifferences(main, audit.days->differences);
    recordOpening(main, Authority::program(), {});
}

const OpeningSteps& openingSteps()
{
    static constexpr OpeningSteps steps{
        setOpeningBalance,
        adoptOpeningBalance,
        keepJournal,
    };
    return steps;
}

} // namespace lorvan
