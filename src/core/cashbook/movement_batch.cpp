#include "cashbook/movement_batch.h"

#include "cashbook/cash_closing.h"
#include "movements/day_view.h"
#include "movements/movement_store.h"
#include "platform/engine/connection.h"

#include <iterator>
#include <set>
#include <tuple>
#include <utility>

namespace lorvan {
namespace {

qint64 lastKey(Connection& main)
{
    auto row = main.prepare("SELECT max(aa) FROM kinhseis");
    return row.step() ? row.integer(0) : 0;
}

auto contentOf(const MovementDraft& movement)
{
    return std::tuple(
        movement.code, movement.description, movement.income, movement.expense, movement.memorandum, movement.cheque);
}

/// How many of the day's movements with a key after `lastKeyBefore` equal one up to it.
qint64 countRepeated(const std::vector<Movement>& movements, qint64 lastKeyBefore)
{
    std::set<decltype(contentOf({}))> before;
    qint64 repeated = 0;
    for (const Movement& movement : movements) { // in the order of their keys
        if (movement.key <= lastKeyBefore)
            before.insert(contentOf(movement));
        else if (!before.empty() && before.contains(contentOf(movement)))
            ++repeated;
    }
    return repeated;
}

} // namespace

MovementBatch::MovementBatch(Connection& main, Connection& auxiliary, Authority authority)
    : m_main(main)
    , m_auxiliary(auxiliary)
    , m_authority(std::move(authority))
    , m_lastKeyBefore(lastKey(main))
{
}

bool MovementBatch::mayChange(QDate day)
{
    if (m_authority.has(Right::ModifyCash))
        return true;
    const auto [known, isNew] = m_mayChange.try_emplace(day, false);
    if (isNew)
        known->second = !isClosed(m_auxiliary, day);
    return known->second;
}

std::variant<MovementCode, MovementRefusal> MovementBatch::validate(const MovementDraft& draft)
{
    if (!mayChange(draft.day))
        return MovementRefusal::DayIsClosed;
    return validateMovement(draft, [this](qint32 code) {
        const auto [known, isNew] = m_codes.try_emplace(code);
        if (isNew)
            known->second = findCode(m_main, code, CodeSelection::All);
        return known->second;
    });
}

std::optional<MovementRefusal> MovementBatch::refusalOf(const MovementDraft& draft)
{
    const auto outcome = validate(draft);
    const auto* const refusal = std::get_if<MovementRefusal>(&outcome);
    return refusal ? std::optional(*refusal) : std::nullopt;
}

std::optional<MovementRefusal> MovementBatch::add(const MovementDraft& draft)
{
    const auto outcome = validate(draft);
    if (const auto* const refusal = std::get_if<MovementRefusal>(&outcome))
        return *refusal;
    addMovement(m_main, draft, std::get<MovementCode>(outcome).group);
    Added& added = m_added[draft.day];
    added.income += draft.income;
    added.expense += draft.expense;
    return std::nullopt;
}

bool MovementBatch::hadMovements(QDate day)
{
    return m_main.prepare("SELECT 1 FROM kinhseis WHERE hmeromhnia=? AND aa<=?").bind(day, m_lastKeyBefore).step();
}

/// The days before it are correct by now, so the balance carried into it is correct. A day that was empty holds what
/// was added and nothing else, so its movements need not be read again.
qint64 MovementBatch::settleDay(QDate day, const Added& added)
{
    if (!hadMovements(day)) {
        const Currency balance = carriedBalance(m_main, day).balance + added.income - added.expense;
        writeCashDay(m_main, day, {added.income, added.expense, balance});
        return 0;
    }
    const DayView view = readDay(m_main, day);
    writeCashDay(m_main, day, view.figures);
    return countRepeated(view.movements, m_lastKeyBefore);
}

qint64 MovementBatch::settle(const std::function<void(qint64, qint64)>& progress)
{
    qint64 repeated = 0;
    qint64 settled = 0;
    Currency moved;
    for (auto each = m_added.begin(); each != m_added.end(); ++each) {
        const auto& [day, added] = *each;
        repeated += settleDay(day, added);
        moved += added.income - added.expense;
        if (const auto next = std::next(each); next != m_added.end())
            shiftDaysBetween(m_main, day, next->first, moved);
        else
            shiftLaterDays(m_main, day, moved);
        if (progress)
            progress(++settled, static_cast<qint64>(m_added.size()));
    }
    return repeated;
}

std::vector<QDate> MovementBatch::days() const
{
    std::vector<QDate> days;
    for (const auto& [day, added] : m_added)
        days.push_back(day);
    return days;
}

} // namespace lorvan
