#include "support/book_model.h"

#include "platform/engine/connection.h"

#include <algorithm>
#include <sstream>

namespace lorvan::test {
namespace {

constexpr std::int64_t storedUnitsPerCent = 100;

std::string centsIn(std::int64_t stored)
{
    return stored % storedUnitsPerCent == 0 ? std::to_string(stored / storedUnitsPerCent)
                                            : std::to_string(stored) + "!";
}

} // namespace

void BookModel::apply(const ModelChange& change)
{
    ModelMovement movement = change.movement;
    switch (change.kind) {
    case ModelChange::Kind::Insert:
        movement.key = ++m_lastKey;
        m_days[movement.day] = true;
        m_movements[movement.key] = movement;
        break;
    case ModelChange::Kind::Modify:
        movement.day = m_movements.at(movement.key).day;
        m_movements[movement.key] = movement;
        break;
    case ModelChange::Kind::Remove:
        m_movements.erase(movement.key);
        break;
    }
}

void BookModel::put(std::int64_t key, const std::optional<ModelMovement>& state)
{
    m_movements.erase(key);
    if (state)
        m_movements[key] = *state;
}

std::optional<ModelMovement> BookModel::find(std::int64_t key) const
{
    const auto found = m_movements.find(key);
    return found == m_movements.end() ? std::nullopt : std::optional(found->second);
}

void BookModel::count(int day, std::int64_t cents)
{
    m_differences.erase(m_differences.lower_bound(day), m_differences.end());
    m_differences[day] = cents - balanceAtEndOf(day);
}

std::int64_t BookModel::balanceAtEndOf(int day) const
{
    std::int64_t balance = 0;
    for (const auto& [key, movement] : m_movements)
        balance += movement.day <= day ? movement.incomeCents - movement.expenseCents : 0;
    for (const auto& [from, difference] : m_differences)
        balance += from <= day ? difference : 0;
    return balance;
}

std::vector<ModelMovement> BookModel::movements() const
{
    std::vector<ModelMovement> all;
    for (const auto& [key, movement] : m_movements)
        all.push_back(movement);
    return all;
}

CashDayLines BookModel::cashDays() const
{
    CashDayLines lines;
    for (const auto& [day, known] : m_days) {
        std::int64_t income = 0;
        std::int64_t expense = 0;
        for (const auto& [key, movement] : m_movements) {
            income += movement.day == day ? movement.incomeCents : 0;
            expense += movement.day == day ? movement.expenseCents : 0;
        }
        std::ostringstream line;
        line << day << ' ' << income << ' ' << expense << ' ' << balanceAtEndOf(day);
        lines.push_back(line.str());
    }
    return lines;
}

std::vector<ModelMovement> storedMovements(Connection& main)
{
    std::vector<ModelMovement> movements;
    auto rows = main.prepare("SELECT aa, hmeromhnia, esoda/100, ejoda/100 FROM kinhseis ORDER BY aa");
    while (rows.step())
        movements.push_back({rows.integer(0), rows.number(1), rows.integer(2), rows.integer(3)});
    return movements;
}

CashDayLines storedCashDays(Connection& main)
{
    CashDayLines lines;
    auto rows = main.prepare("SELECT hmeromhnia, esoda, ejoda, ypoloipo FROM tameio ORDER BY hmeromhnia");
    while (rows.step()) {
        lines.push_back(std::to_string(rows.integer(0)) + ' ' + centsIn(rows.integer(1)) + ' '
            + centsIn(rows.integer(2)) + ' ' + centsIn(rows.integer(3)));
    }
    return lines;
}

} // namespace lorvan::test
