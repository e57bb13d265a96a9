#include "cashbook/cash_book.h"

#include "book/book.h"
#include "cashbook/seal_record.h"
#include "journal/found_state.h"
#include "journal/journal.h"
#include "movements/journal_states.h"
#include "movements/movement_store.h"
#include "platform/engine/steady_reading.h"
#include "platform/engine/transaction.h"

namespace lorvan {
namespace {

Currency effect(const std::optional<Movement>& movement)
{
    return movement ? movement->income - movement->expense : Currency();
}

/// Recalculates the row of a day from its movements and shifts the later days. Inside the caller's transaction.
DayView settleDay(Connection& main, QDate day, Currency difference)
{
    DayView view = readDay(main, day);
    writeCashDay(main, day, view.figures);
    shiftLaterDays(main, day, difference);
    return view;
}

/// What the row will hold.
Movement storedForm(const MovementDraft& draft)
{
    Movement movement;
    static_cast<MovementDraft&>(movement) = draft;
    movement.description = draft.description.trimmed();
    return movement;
}

/// Writes the row alone, and gives a new movement its key.
void writeRow(Connection& main, MovementChange& change, qint32 group)
{
    auto& [before, after] = change;
    if (!after)
        removeMovement(main, before.value().key);
    else if (before)
        overwriteMovement(main, after->key, *after, group);
    else
        after->key = addMovement(main, *after, group, after->key == 0 ? std::nullopt : std::optional(after->key));
}

/// An inactive code will do: the movement had it.
std::optional<MovementCode> codeOfReturned(Connection& main, qint32 code)
{
    const auto active = findCode(main, code, CodeSelection::Active);
    return active ? active : findCode(main, code, CodeSelection::All);
}

QJsonObject stateOf(const std::optional<Movement>& movement)
{
    return movement ? journalState(*movement) : QJsonObject();
}

} // namespace

CashBook::CashBook(Book& book, Authority authority)
    : m_book(book)
    , m_authority(std::move(authority))
{
}

DayView CashBook::showDay(QDate day, DayRow row)
{
    Connection& main = m_book.main();
    DayView view;
    bool isRight = false;
    readSteadily(main, [&] {
        Transaction reading(main, Transaction::View::Steady);
        view = readDay(main, day);
        isRight = row == DayRow::LeaveAlone || view.movements.empty() || main.isReadOnly()
            || cashDayHolds(main, day, view.figures);
    });
    if (!isRight)
        correct(view);
    return view;
}

std::optional<DayCorrection> CashBook::bringInLine(const DayView& shown)
{
    Connection& main = m_book.main();
    if (shown.movements.empty() || main.isReadOnly() || cashDayHolds(main, shown.day, shown.figures))
        return std::nullopt;
    DayView view = shown;
    return correct(view);
}

bool CashBook::isDayClosed(QDate day)
{
    return isClosed(m_book.auxiliary(), day);
}

bool CashBook::mayChange(QDate day)
{
    return m_authority.has(Right::ModifyCash) || !isDayClosed(day);
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

std::variant<bool, MovementRefusal> CashBook::closedState(QDate day)
{
    const bool isClosed = isDayClosed(day);
    if (isClosed && !m_authority.has(Right::ModifyCash))
        return MovementRefusal::DayIsClosed;
    return isClosed;
}

std::optional<Movement> CashBook::find(qint64 key)
{
    return findMovement(m_book.main(), key);
}

/// Inside the caller's transaction, everything having been checked.
ChangedDay CashBook::store(
    Connection& main, JournalAction action, MovementChange change, qint32 group, bool isClosed) const
{
    writeRow(main, change, group);
    const Movement& movement = change.movement();
    DayView view = settleDay(main, movement.day, effect(change.after) - effect(change.before));
    const JournalEntry entry{action, journal_subject::movement(movement.key), movement.day, movement.code,
        stateOf(change.before), stateOf(change.after)};
    recordFoundState(main, entry);
    recordChange(main, m_authority, entry);
    return {std::move(view), isClosed, std::move(change)};
}

std::optional<DayCorrection> CashBook::correct(DayView& view)
{
    Connection& main = m_book.main();
    Transaction writing(main, m_authority);
    view = readDay(main, view.day);
    const auto former = storedCashDay(main, view.day);
    if (view.movements.empty() || !writeCashDay(main, view.day, view.figures))
        return std::nullopt;
    recordChange(main, m_authority,
        {JournalAction::Correct, journal_subject::day(view.day), view.day, {},
            former ? journalState(*former) : QJsonObject(), journalState(view.figures)});
    writing.commit();
    return DayCorrection{view.day, former, view.figures};
}

std::optional<ClosedDay> CashBook::close(QDate day)
{
    if (m_book.main().isReadOnly())
        return closeDay(m_book.auxiliary(), m_authority, day);
    Connection both = m_book.openBoth();
    return closeDay(both, m_authority, day);
}

bool CashBook::keepCount(QDate day, const CountedCash& counted)
{
    if (m_book.main().isReadOnly())
        return keepCountedCash(m_book.auxiliary(), m_authority, day, counted);
    Connection both = m_book.openBoth();
    return keepCountedCash(both, m_authority, day, counted);
}

std::optional<DaySeal> CashBook::sealOf(QDate day)
{
    return lastSealOf(m_book.auxiliary(), day);
}

ChangeOutcome CashBook::changeDay(QDate day, const Change& change)
{
    if (!isSealed(m_book.auxiliary(), day)) {
        if (auto outcome = changeUnsealed(day, change))
            return std::move(*outcome);
    }
    return changeSealed(day, change);
}

/// In the main database alone. The shared lock on the other one is held to the end, so that the day cannot be closed in
/// the meantime. Changes nothing and returns no value if it was sealed by now.
std::optional<ChangeOutcome> CashBook::changeUnsealed(QDate day, const Change& change)
{
    Transaction closedDays(m_book.auxiliary(), Transaction::View::Steady);
    Transaction writing(m_book.main(), m_authority);
    if (isSealed(m_book.auxiliary(), day))
        return std::nullopt;
    ChangeOutcome outcome = change(m_book.main());
    if (std::holds_alternative<ChangedDay>(outcome))
        writing.commit();
    return outcome;
}

/// In both databases: the day is sealed again, unless it was changed around the program.
ChangeOutcome CashBook::changeSealed(QDate day, const Change& change)
{
    Connection both = m_book.openBoth();
    Transaction writing(both, m_authority);
    const auto seal = lastSealOf(both, day);
    const bool held = !seal || holdsSeal(both, *seal);
    if (!held)
        recordAltered(both, m_authority, day);
    ChangeOutcome outcome = change(both);
    if (!std::holds_alternative<ChangedDay>(outcome))
        return outcome;
    if (held)
        sealDay(both, m_authority, day, lastJournalHash(both));
    writing.commit();
    return outcome;
}

ChangeOutcome CashBook::changeStored(
    qint64 key, const std::function<ChangeOutcome(Connection& main, const Movement& stored, bool isClosed)>& change)
{
    const auto before = find(key);
    if (!before)
        return MovementRefusal::MovementIsGone;
    return changeDay(before->day, [&](Connection& main) -> ChangeOutcome {
        const auto stored = findMovement(main, key);
        if (!stored || stored->day != before->day)
            return MovementRefusal::MovementIsGone;
        const auto closed = closedState(stored->day);
        if (const auto* const refusal = std::get_if<MovementRefusal>(&closed))
            return *refusal;
        return change(main, *stored, std::get<bool>(closed));
    });
}

ChangeOutcome CashBook::insert(const MovementDraft& draft)
{
    return changeDay(draft.day, [&](Connection& main) -> ChangeOutcome {
        const auto closed = closedState(draft.day);
        if (const auto* const refusal = std::get_if<MovementRefusal>(&closed))
            return *refusal;
        const auto code = validateActive(draft);
        if (const auto* const refusal = std::get_if<MovementRefusal>(&code))
            return *refusal;
        return store(main, JournalAction::Insert, {std::nullopt, storedForm(draft)}, std::get<MovementCode>(code).group,
            std::get<bool>(closed));
    });
}

ChangeOutcome CashBook::modify(qint64 key, const MovementDraft& draft)
{
    return changeStored(key, [&](Connection& main, const Movement& stored, bool isClosed) -> ChangeOutcome {
        const auto code = validateActive(draft);
        if (const auto* const refusal = std::get_if<MovementRefusal>(&code))
            return *refusal;
        Movement changed = storedForm(draft);
        changed.key = stored.key;
        changed.day = stored.day;
        return store(main, JournalAction::Modify, {stored, changed}, std::get<MovementCode>(code).group, isClosed);
    });
}

ChangeOutcome CashBook::remove(qint64 key)
{
    return changeStored(key, [&](Connection& main, const Movement& stored, bool isClosed) -> ChangeOutcome {
        return store(main, JournalAction::Remove, {stored, std::nullopt}, 0, isClosed);
    });
}

ChangeOutcome CashBook::repeat(const MovementChange& change, JournalAction action)
{
    return changeDay(change.movement().day, [&](Connection& main) -> ChangeOutcome {
        const auto closed = closedState(change.movement().day);
        if (const auto* const refusal = std::get_if<MovementRefusal>(&closed))
            return *refusal;
        const auto stored = findMovement(main, change.movement().key);
        if (change.before && !stored)
            return MovementRefusal::MovementIsGone;
        if (stored != change.before)
            return MovementRefusal::MovementIsAnother;
        const auto code = change.after ? codeOfReturned(main, change.after->code) : MovementCode();
        if (!code)
            return MovementRefusal::CodeHasChanged;
        return store(main, action, change, code->group, std::get<bool>(closed));
    });
}

} // namespace lorvan
