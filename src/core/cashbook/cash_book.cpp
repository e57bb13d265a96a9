#include "cashbook/cash_book.h"

#include "book/book.h"
#include "cashbook/cash_closing.h"
#include "cashbook/movement_store.h"
#include "platform/engine/steady_reading.h"
#include "platform/engine/transaction.h"

namespace lorvan {
namespace {

Currency effect(const MovementDraft& movement)
{
    return movement.income - movement.expense;
}

/// Recalculates the row of a day from its movements and shifts the later days. Inside the caller's transaction.
DayView settleDay(Connection& main, QDate day, Currency difference)
{
    DayView view = readDay(main, day);
    writeCashDay(main, day, view.figures);
    shiftLaterDays(main, day, difference);
    return view;
}

} // namespace

CashBook::CashBook(Book& book, Rights rights)
    : m_book(book)
    , m_rights(rights)
{
}

DayView CashBook::showDay(QDate day, DayRow row)
{
    Connection& main = m_book.main();
    DayView view;
    bool isRight = false;
    readSteadily(main, [&] {
        Transaction reading(main, Transaction::Mode::Read);
        view = readDay(main, day);
        isRight = row == DayRow::LeaveAlone || view.movements.empty() || main.isReadOnly()
            || cashDayHolds(main, day, view.figures);
    });
    if (isRight)
        return view;
    Transaction writing(main);
    view = readDay(main, day);
    if (!view.movements.empty())
        writeCashDay(main, day, view.figures);
    writing.commit();
    return view;
}

void CashBook::bringInLine(const DayView& shown)
{
    if (!shown.movements.empty() && !cashDayHolds(m_book.main(), shown.day, shown.figures))
        (void)showDay(shown.day, DayRow::Write);
}

bool CashBook::isDayClosed(QDate day)
{
    return isClosed(m_book.auxiliary(), day);
}

bool CashBook::mayChange(QDate day)
{
    return m_rights.modifyCash || !isDayClosed(day);
}

std::variant<MovementCode, MovementRefusal> CashBook::validateActive(const MovementDraft& draft)
{
    return validateMovement(
        draft, [this](qint32 code) { return findCode(m_book.main(), code, CodeSelection::Active); });
}

std::optional<MovementRefusal> CashBook::refusalOf(const MovementDraft& draft)
{
    const auto content = validateActive(draft);
    const auto* const refusal = std::get_if<MovementRefusal>(&content);
    return refusal ? std::optional(*refusal) : std::nullopt;
}

std::variant<Movement, MovementRefusal> CashBook::changeable(qint64 key)
{
    const auto stored = find(key);
    if (!stored)
        return MovementRefusal::MovementIsGone;
    if (!mayChange(stored->day))
        return MovementRefusal::DayIsClosed;
    return *stored;
}

std::optional<Movement> CashBook::find(qint64 key)
{
    return findMovement(m_book.main(), key);
}

ChangeOutcome CashBook::insert(const MovementDraft& draft)
{
    Connection& main = m_book.main();
    // The shared lock on the closed days is held to the end, so that the day cannot be closed in the meantime.
    Transaction closedDays(m_book.auxiliary(), Transaction::Mode::Read);
    Transaction writing(main);
    if (!mayChange(draft.day))
        return MovementRefusal::DayIsClosed;
    const auto code = validateActive(draft);
    if (const auto* const refusal = std::get_if<MovementRefusal>(&code))
        return *refusal;
    addMovement(main, draft, std::get<MovementCode>(code).group);
    DayView view = settleDay(main, draft.day, effect(draft));
    writing.commit();
    return view;
}

ChangeOutcome CashBook::modify(qint64 key, const MovementDraft& draft)
{
    Connection& main = m_book.main();
    Transaction closedDays(m_book.auxiliary(), Transaction::Mode::Read);
    Transaction writing(main);
    const auto found = changeable(key);
    if (const auto* const refusal = std::get_if<MovementRefusal>(&found))
        return *refusal;
    const auto code = validateActive(draft);
    if (const auto* const refusal = std::get_if<MovementRefusal>(&code))
        return *refusal;
    const auto& stored = std::get<Movement>(found);
    overwriteMovement(main, key, draft, std::get<MovementCode>(code).group);
    DayView view = settleDay(main, stored.day, effect(draft) - effect(stored));
    writing.commit();
    return view;
}

ChangeOutcome CashBook::remove(qint64 key)
{
    Connection& main = m_book.main();
    Transaction closedDays(m_book.auxiliary(), Transaction::Mode::Read);
    Transaction writing(main);
    const auto found = changeable(key);
    if (const auto* const refusal = std::get_if<MovementRefusal>(&found))
        return *refusal;
    const auto& stored = std::get<Movement>(found);
    removeMovement(main, key);
    DayView view = settleDay(main, stored.day, -effect(stored));
    writing.commit();
    return view;
}

} // namespace lorvan
