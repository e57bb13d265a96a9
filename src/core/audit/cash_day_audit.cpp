#include "audit/cash_day_audit.h"

#include "platform/date_text.h"

#include <algorithm>
#include <map>
#include <utility>

namespace lorvan {
namespace {

std::optional<Currency> difference(Currency left, Currency right)
{
    try {
        return left - right;
    } catch (const CurrencyOverflow&) {
        return std::nullopt;
    }
}

/// A day that has a row, and by how much its stored balance differs from the sum of all movements up to it.
struct StoredDay {
    AuditedDay* day;
    Currency sum; ///< Of all movements and opening differences up to the day.
    Currency withoutRow; ///< Of the days without a row since the previous stored day.
    /// No value if the balance is not an amount, or the difference would be out of range.
    std::optional<Currency> offset;
};

std::vector<AuditedDay> daysByDate(std::vector<CashDayRow> rows, const SumsByDay& sums)
{
    std::sort(rows.begin(), rows.end(),
        [](const CashDayRow& a, const CashDayRow& b) { return std::pair(a.day, a.key) < std::pair(b.day, b.key); });
    std::map<std::int64_t, AuditedDay> days;
    for (const CashDayRow& row : rows) {
        AuditedDay& day = days[row.day];
        if (day.row)
            day.repeatedKeys.push_back(day.row->key);
        day.row = row;
    }
    for (const auto& [date, sum] : sums) {
        if (dateFromStored(date).isValid())
            days[date].expected = {};
    }
    std::vector<AuditedDay> ordered;
    for (auto& [date, day] : days) {
        day.day = date;
        if (const auto sum = sums.find(date); sum != sums.end())
            day.expected = {sum->second.income, sum->second.expense, {}};
        ordered.push_back(std::move(day));
    }
    return ordered;
}

/// Calculates the balances, starting at zero, and returns the days that have a row.
std::vector<StoredDay> carryBalances(std::vector<AuditedDay>& days, const OpeningDifferences& differences)
{
    std::vector<StoredDay> stored;
    auto opening = differences.begin();
    Currency sum;
    Currency withoutRow;
    for (AuditedDay& day : days) {
        const Currency net = day.expected.income - day.expected.expense;
        sum += net;
        for (; opening != differences.end() && opening->first <= day.day; ++opening)
            sum += opening->second;
        day.expected.closingBalance = sum;
        if (!day.row) {
            withoutRow += net;
            continue;
        }
        const auto offset = day.row->balanceIsAmount ? difference(day.row->figures.closingBalance, sum) : std::nullopt;
        stored.push_back({&day, sum, std::exchange(withoutRow, {}), offset});
    }
    return stored;
}

/// True if the day's balance was carried, but with other sums than the movements': with those in its row, or without
/// the preceding days that have no row.
bool isAccountedFor(const StoredDay& day, Currency balanceBefore)
{
    const auto carried = difference(day.day->row->figures.closingBalance, balanceBefore);
    const auto storedNet = difference(day.day->row->figures.income, day.day->row->figures.expense);
    const Currency net = day.day->expected.income - day.day->expected.expense;
    if (!carried)
        return false;
    const bool byStoredSums = storedNet && (carried == storedNet || carried == *storedNet + day.withoutRow);
    return byStoredSums || carried == net;
}

/// The offset of the last balances, ignoring those steps that stored sums or missing rows explain.
Currency finalOffset(const std::vector<StoredDay>& days)
{
    auto at = days.rbegin();
    while (at != days.rend() && !at->offset)
        ++at;
    while (at != days.rend() && at->offset) {
        auto before = std::next(at);
        while (before != days.rend() && before->offset == at->offset)
            at = before++;
        const bool isFirst = before == days.rend();
        if (!isFirst && !before->offset)
            return *at->offset;
        const Currency balanceBefore = isFirst ? Currency() : before->day->row->figures.closingBalance;
        if (at->offset->isZero() || !isAccountedFor(*at, balanceBefore))
            return *at->offset;
        at = before;
    }
    return {};
}

/// The position from which the offset applies: the one for which the fewest balances are wrong, the latest if several.
std::size_t firstWithOffset(const std::vector<StoredDay>& days, Currency offset)
{
    if (offset.isZero())
        return days.size();
    std::ptrdiff_t wrong = 0; // compared with an offset that applies nowhere
    std::ptrdiff_t fewest = 0;
    std::size_t best = days.size();
    for (std::size_t i = days.size(); i-- > 0;) {
        wrong += days[i].offset == Currency() ? 1 : 0;
        wrong -= days[i].offset == offset ? 1 : 0;
        if (wrong < fewest) {
            fewest = wrong;
            best = i;
        }
    }
    return best;
}

/// The first of the preceding days that hold exactly the balance of the opening day, none of them carried. Days between
/// them may have been carried from the day before: somebody has looked at them.
std::size_t firstWithSameBalance(const std::vector<StoredDay>& days, std::size_t opening)
{
    const auto balance = [&](std::size_t i) { return days[i].day->row->figures.closingBalance; };
    const auto isCarried = [&](std::size_t i) { return i > 0 && days[i].offset == days[i - 1].offset; };
    std::size_t first = opening;
    for (std::size_t i = opening; i-- > 0 && days[i].offset && !days[i].offset->isZero();) {
        if (balance(i) == balance(opening))
            first = i;
        else if (!isCarried(i))
            break;
    }
    return first;
}

void applyOpening(std::vector<AuditedDay>& days, const std::vector<StoredDay>& stored)
{
    const Currency offset = finalOffset(stored);
    const std::size_t opening = firstWithOffset(stored, offset);
    if (opening == stored.size())
        return;
    for (std::size_t i = firstWithSameBalance(stored, opening); i < opening; ++i)
        stored[i].day->expected.closingBalance = stored[i].day->row->figures.closingBalance;
    for (auto day = days.begin() + (stored[opening].day - days.data()); day != days.end(); ++day)
        day->expected.closingBalance += offset;
}

/// The amounts by which the correct balances exceed the movements.
OpeningDifferences differencesIn(const std::vector<AuditedDay>& days)
{
    OpeningDifferences differences;
    Currency before;
    for (const AuditedDay& day : days) {
        const Currency carried = before + day.expected.income - day.expected.expense;
        if (day.expected.closingBalance != carried)
            differences[day.day] = day.expected.closingBalance - carried;
        before = day.expected.closingBalance;
    }
    return differences;
}

void compare(AuditedDay& day)
{
    if (!day.row)
        return;
    const CashDayFigures& held = day.row->figures;
    day.sumsWrong =
        !day.row->sumsAreAmounts || held.income != day.expected.income || held.expense != day.expected.expense;
    day.balanceWrong = !day.row->balanceIsAmount || held.closingBalance != day.expected.closingBalance;
}

} // namespace

CashDayAudit auditCashDays(
    std::vector<CashDayRow> rows, const SumsByDay& sums, const OpeningDifferences& kept, Opening opening)
{
    CashDayAudit audit{daysByDate(std::move(rows), sums), kept, !kept.empty() || opening == Opening::Known};
    const std::vector<StoredDay> stored = carryBalances(audit.days, kept);
    if (!audit.differencesAreKept) {
        applyOpening(audit.days, stored);
        audit.differences = differencesIn(audit.days);
    }
    std::for_each(audit.days.begin(), audit.days.end(), compare);
    return audit;
}

} // namespace lorvan
