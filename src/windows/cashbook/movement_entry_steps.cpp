#include "book/book.h"
#include "cashbook/day_calendar.h"
#include "cashbook/day_list.h"
#include "cashbook/movement_entry_page.h"
#include "cashbook/tape_window.h"
#include "controls/code_chooser.h"
#include "controls/entry_field.h"
#include "controls/guarded_window.h"
#include "controls/main_controls.h"
#include "look/focus_rules.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"

namespace lorvan {

void MovementEntryPage::step(DayStep step)
{
    if (m_loaded || !settle())
        return;
    const auto from = dayToStepFrom();
    if (!from)
        return;
    const QDate day = dayAfterStep(m_book.main(), *from, step, m_clock.today());
    if (day.isValid())
        changeDay(day);
}

std::optional<QDate> MovementEntryPage::dayToStepFrom()
{
    if (!m_date->hasFocus() || m_date->text() == dateText(m_day))
        return m_day;
    const auto typed = checkDate(*m_date, m_clock.today());
    if (!typed)
        goBackTo(*m_date);
    return typed;
}

/// The focus goes to the code as after any change of the day, but stays where the next key changes the day again: in
/// the list, and in the date if there is a text in the code.
void MovementEntryPage::changeDay(QDate day)
{
    const EntryContent before = entry();
    const auto clearedBefore = m_cleared;
    QWidget* const asking = window()->focusWidget();
    m_date->setText(dateText(day));
    if (day == m_day)
        return;
    m_putIntoDate = m_date->hasFocus(); // the day is shown here; leaving the field need not read it again
    goToDay(day);
    if (entry() != before)
        m_cleared = {before, {}};
    else if (clearedBefore && !clearedBefore->loaded)
        m_cleared = clearedBefore;
    const bool keepsFocus = asking == m_list || (asking == m_date && !m_chooser->currentText().isEmpty());
    if (keepsFocus && !m_isRefused)
        asking->setFocus(Qt::OtherFocusReason);
}

/// What is being typed into the date counts for nothing when a day is chosen.
void MovementEntryPage::openCalendar()
{
    if (m_loaded || !settle())
        return;
    const auto read = [this](QDate first, QDate last) {
        std::vector<CalendarDay> days;
        guarded(window(), [&] { days = calendarDays(m_book.main(), m_book.auxiliary(), first, last); });
        return days;
    };
    auto* const calendar = new DayCalendar(m_day, m_clock.today(), read, window());
    connect(calendar, &DayCalendar::chosen, this, [this](QDate day) {
        m_gate.runQuick([this, day] {
            if (!m_loaded)
                changeDay(day);
        });
    });
    calendar->openAt(*m_date);
}

void MovementEntryPage::openTape(int index)
{
    EntryField* const amount = m_fields.field(index);
    const EntryContent::Amount shown{amount->text(), {}};
    TapeWindow tape(shown.isZero() ? QString() : amount->text(), window());
    if (tape.exec() != QDialog::Accepted)
        return;
    amount->selectAll();
    amount->insert(amountOrZeroText(tape.sum())); // as if typed
    amount->setFocus(Qt::OtherFocusReason);
    amount->selectAll();
}

void MovementEntryPage::copyLine(QDate day)
{
    const QModelIndexList chosen = m_list->selectionModel()->selectedIndexes();
    const qint64 key = chosen.isEmpty() ? 0 : chosen.front().data(Qt::UserRole).toLongLong();
    if (key == 0 || !settle())
        return;
    if (const auto movement = m_cashBook.find(key))
        copyIntoEntry(*movement, day);
    else
        explain(MovementRefusal::MovementIsGone, RefusedOperation::Change);
}

std::optional<CopyRefusal> MovementEntryPage::copyRefusal(const std::optional<MovementCode>& code, QDate day) const
{
    if (!code)
        return CopyRefusal::CodeIsInactive;
    if (day != m_day)
        return m_loaded ? std::optional(CopyRefusal::MovementIsLoaded) : std::nullopt;
    return m_isRefused ? std::optional(CopyRefusal::DayIsClosed) : std::nullopt;
}

void MovementEntryPage::copyIntoEntry(const MovementDraft& movement, QDate day)
{
    const auto code = findCode(m_book.main(), movement.code, CodeSelection::Active);
    if (const auto refusal = copyRefusal(code, day)) {
        sayBelowList(copyRefusalText(*refusal, movement.code));
        return;
    }
    const EntryContent typed = entry();
    const auto loaded = m_loaded;
    if (day != m_day)
        changeDay(day);
    if (m_isRefused)
        return; // a box has said why
    if (loaded)
        release();
    setEntry(copyInto(entry(), movement, *code));
    m_fields.field(code->income ? field::income : field::expense)->setFocus(Qt::OtherFocusReason);
    forgetCleared();
    if (loaded)
        m_cleared = {typed, loaded->movement};
    else if (!typed.isBlank())
        m_cleared = {typed, {}};
}

} // namespace lorvan
