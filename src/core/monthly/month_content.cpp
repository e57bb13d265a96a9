#include "monthly/month_content.h"

#include "cashbook/cash_closing.h"
#include "codes/code_catalogue.h"
#include "movements/movement_store.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace lorvan {
namespace {

std::vector<MonthDay> daysOf(Connection& main, Connection& auxiliary, QDate from, QDate to)
{
    std::vector<MonthDay> days;
    auto rows = main.prepare("SELECT hmeromhnia FROM tameio WHERE hmeromhnia BETWEEN ?1 AND ?2"
                             " UNION SELECT hmeromhnia FROM kinhseis WHERE hmeromhnia BETWEEN ?1 AND ?2 ORDER BY 1");
    rows.bind(from, to);
    while (rows.step()) {
        if (const QDate day = dateFromStored(rows.integer(0)); day.isValid())
            days.push_back({day, storedCashDay(main, day).value_or(CashDayFigures()), isClosed(auxiliary, day)});
    }
    return days;
}

std::vector<MonthCode> sumsOf(Connection& main, const std::vector<Movement>& movements)
{
    std::map<qint32, MonthCode> sums;
    for (const Movement& movement : movements) {
        MonthCode& sum = sums[movement.code];
        ++sum.movements;
        sum.income += movement.income;
        sum.expense += movement.expense;
        sum.memorandum += movement.memorandum;
    }
    std::vector<MonthCode> codes;
    for (auto& [number, sum] : sums) {
        sum.code = number;
        if (const auto code = findCode(main, number, CodeSelection::All)) {
            sum.description = code->description;
            sum.group = code->groupName.trimmed();
        }
        codes.push_back(std::move(sum));
    }
    return codes;
}

std::vector<DaySeal> sealsOf(Connection& auxiliary, QDate from, QDate to)
{
    std::vector<DaySeal> seals;
    for (DaySeal& seal : allSeals(auxiliary)) {
        if (seal.day >= storedDate(from) && seal.day <= storedDate(to))
            seals.push_back(std::move(seal));
    }
    std::stable_sort(seals.begin(), seals.end(), [](const DaySeal& one, const DaySeal& other) {
        return std::tie(one.day, one.version) < std::tie(other.day, other.version);
    });
    return seals;
}

} // namespace

MonthContent readMonth(Connection& main, Connection& auxiliary, QDate month)
{
    const QDate last = month.addMonths(1).addDays(-1);
    MonthContent content;
    content.month = month;
    content.carried = carriedBalance(main, month).balance;
    content.days = daysOf(main, auxiliary, month, last);
    for (const MonthDay& each : content.days) {
        for (Movement& movement : movementsOf(main, each.day)) {
            content.income += movement.income;
            content.expense += movement.expense;
            content.movements.push_back(std::move(movement));
        }
    }
    content.balance = content.days.empty() ? content.carried : content.days.back().figures.closingBalance;
    content.codes = sumsOf(main, content.movements);
    content.seals = sealsOf(auxiliary, month, last);
    return content;
}

} // namespace lorvan
