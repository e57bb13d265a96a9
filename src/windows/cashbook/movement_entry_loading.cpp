#include "book/book.h"
#include "cashbook/code_picker.h"
#include "cashbook/day_keys.h"
#include "cashbook/day_list.h"
#include "cashbook/movement_entry_page.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/guarded_window.h"
#include "controls/key_binding.h"
#include "controls/main_controls.h"
#include "controls/suggesting_field.h"

#include <QApplication>
#include <QShortcut>

namespace lorvan {
namespace {

bool hasLostAmount(const EntryContent& before, const EntryContent& now)
{
    const bool hadOne = !before.income.isZero() || !before.expense.isZero();
    return hadOne && now.income.isZero() && now.expense.isZero();
}

} // namespace

void MovementEntryPage::lineClicked()
{
    if (!settle())
        return;
    guarded(window(), [this] { askClosedState(enteredDay()); });
    keepCleared();
    release();
}

void MovementEntryPage::releaseChanged()
{
    m_list->clearSelection();
    release();
    focusEntry();
}

void MovementEntryPage::addKeys()
{
    auto* const escape = new QShortcut(Qt::Key_Escape, this);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, m_gate.quick(this, &MovementEntryPage::takeBack));
    bindKeys(KeyUse::Store, this, Qt::WidgetWithChildrenShortcut, m_gate.quick(this, &MovementEntryPage::storeByKey));
    for (const int index : {command::insertMovement, command::modifyMovement})
        showKeyInTip(m_commands[index], KeyUse::Store);
    bindKeys(KeyUse::Copy, m_list, Qt::WidgetShortcut, [this] { m_gate.runQuick([this] { copyLine(m_day); }); });
    bindKeys(KeyUse::CopyToToday, m_list, Qt::WidgetShortcut,
        [this] { m_gate.runQuick([this] { copyLine(m_clock.today()); }); });
    auto* const dayKeys = new DayKeys(m_date, m_chooser, m_list, this);
    connect(dayKeys, &DayKeys::stepAsked, this, m_gate.quick(this, &MovementEntryPage::step));
    connect(dayKeys, &DayKeys::calendarAsked, this, m_gate.quick(this, &MovementEntryPage::openCalendar));
    connect(m_calendar, &CommandButton::clicked, this, m_gate.quick(this, &MovementEntryPage::openCalendar));
    for (const int index : {field::income, field::expense, field::memorandum}) {
        bindKeys(KeyUse::OpenTape, m_fields.field(index), Qt::WidgetShortcut,
            [this, index] { m_gate.runQuick([this, index] { openTape(index); }); });
        showKeysInTip(m_fields.field(index), {KeyUse::OpenTape});
    }
    showKeysInTip(m_fields.description(), {KeyUse::AcceptSuggestion});
    connect(dayKeys, &DayKeys::listAsked, this, &MovementEntryPage::goToList);
}

void MovementEntryPage::goToList()
{
    if (!m_list->selectionModel()->hasSelection())
        m_list->selectLast();
    m_list->setFocus(Qt::TabFocusReason);
}

/// Ctrl+Enter: the press of the button that Enter leads to. Leaving the field may show another day, or empty an amount
/// since the code is another one; both are to be seen first.
void MovementEntryPage::storeByKey()
{
    const QDate shown = m_day;
    const EntryContent typed = entry();
    if (QApplication::activePopupWidget() || !m_checks.settleFocused() || m_day != shown
        || hasLostAmount(typed, entry()))
        return;
    CommandButton* const button = m_commands[m_loaded ? command::modifyMovement : command::insertMovement];
    if (button->isVisible())
        button->click();
}

void MovementEntryPage::takeBack()
{
    if (m_date->hasFocus())
        bringBackDay();
    else if (m_loaded) {
        keepCleared();
        releaseChanged();
    }
}

void MovementEntryPage::keepCleared()
{
    forgetCleared();
    const EntryContent typed = entry();
    if (m_loaded)
        m_cleared = {typed, m_loaded->movement};
    else if (!typed.isBlank())
        m_cleared = {typed, {}};
}

void MovementEntryPage::forgetCleared()
{
    m_cleared.reset();
    m_notBack->hide();
}

void MovementEntryPage::bringBackCleared()
{
    if (!m_cleared)
        return;
    const auto& loaded = m_cleared->loaded;
    const auto stored = loaded ? m_cashBook.find(loaded->key) : std::nullopt;
    const EntryReturn outcome = returnOf(*m_cleared, stored, !loaded || m_cashBook.mayChange(loaded->day));
    const QString refusal = returnRefusalText(outcome);
    sayBelowList(refusal);
    if (!refusal.isEmpty()) {
        showLinesAgain(readDay());
        return;
    }
    const ClearedEntry cleared = *m_cleared;
    if (cleared.loaded) {
        selectLine(cleared.loaded->key);
        load(*cleared.loaded);
    } else {
        focusEntry();
    }
    setEntry(cleared.typed);
    forgetCleared();
}

void MovementEntryPage::sayBelowList(const QString& text)
{
    m_notBack->setText(text);
    m_notBack->setVisible(!text.isEmpty());
}

void MovementEntryPage::release()
{
    setLoaded(std::nullopt);
    clearEntry();
    m_fields.clearMemorandum();
    m_fields.clearCheque();
}

void MovementEntryPage::lineOpened(qint64 key)
{
    if (key == 0)
        return;
    const auto movement = m_cashBook.find(key);
    askClosedState(enteredDay());
    if (!movement)
        explain(MovementRefusal::MovementIsGone, RefusedOperation::Change);
    else if (m_cashBook.mayChange(movement->day))
        load(*movement);
}

void MovementEntryPage::load(const Movement& movement)
{
    const auto code = findCode(m_book.main(), movement.code, CodeSelection::All);
    m_picker->show(code.value_or(MovementCode{movement.code, {}, {}, 0, false, false}));
    m_fields.show(movement);
    const bool income = !movement.income.isZero();
    m_fields.enableAmount(income ? MovementFields::Kind::Income : MovementFields::Kind::Expense);
    setLoaded(movement);
    forgetCleared();
    m_fields.field(income ? field::income : field::expense)->setFocus(Qt::OtherFocusReason);
}

void MovementEntryPage::setLoaded(const std::optional<Movement>& movement)
{
    m_loaded.reset();
    if (movement) {
        m_memorandumStays = false;
        m_loaded = {*movement, entry()};
        markMemorandum();
    }
    using Look = CommandButton::Look;
    for (const int index : {command::modifyMovement, command::removeMovement})
        m_commands[index]->setVisible(movement.has_value());
    m_commands[command::insertMovement]->setLook(movement ? Look::Outlined : Look::Solid);
    m_date->setEnabled(!movement);
    m_calendar->setEnabled(!movement);
    setTabOrders();
}

} // namespace lorvan
