#include "cashbook/code_picker.h"
#include "cashbook/day_list.h"
#include "cashbook/movement_entry_page.h"
#include "cashbook/seal_texts.h"
#include "controls/code_chooser.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/guarded_window.h"
#include "controls/leave_checks.h"
#include "controls/main_controls.h"
#include "controls/state_plate.h"
#include "marker/usage_marker.h"
#include "platform/date_text.h"

#include <QLabel>
#include <QScrollBar>

#include <utility>

namespace lorvan {

void MovementEntryPage::start()
{
    const QDate today = m_clock.today();
    m_date->setText(dateText(today));
    m_fields.show({});
    Q_EMIT figuresChanged({});
    m_picker->clear();
    refillCodes();
    m_day = today;
    m_weekday->setText(entryWeekday(today));
    judgeDay();
    fill(readDay());
    m_commands[command::closeCash]->setVisible(m_authority.has(Right::CloseCash));
}

bool MovementEntryPage::dateLeft()
{
    if (std::exchange(m_putIntoDate, false) && m_date->text() == dateText(m_day))
        return true;
    const auto day = checkDate(*m_date, m_clock.today());
    if (!day)
        return false;
    if (*day == m_day)
        lookAtDayAgain(true);
    else
        goToDay(*day);
    return true;
}

void MovementEntryPage::goTo(QDate day)
{
    const EntryContent typed = entry();
    const auto cleared = m_cleared;
    m_date->setText(dateText(day));
    dateLeft();
    if (entry() != typed)
        m_cleared = {typed, {}};
    else if (cleared && !cleared->loaded) // nothing was typed on the day between
        m_cleared = cleared;
}

bool MovementEntryPage::showMovement(QDate day, qint64 key)
{
    if (day == m_day)
        lookAgain();
    else
        goTo(day);
    if (m_list->model()->rowCount() == 0) // it could not be read, and the user knows why
        return true;
    const bool isThere = selectLine(key);
    if (isThere)
        m_list->setFocus(Qt::OtherFocusReason);
    return isThere;
}

void MovementEntryPage::goToDay(QDate day)
{
    forgetCleared();
    m_day = day;
    m_weekday->setText(entryWeekday(day));
    const bool shown = guarded(window(), [this] {
        const bool refused = judgeDay();
        fill(readDay());
        if (refused) {
            explainClosedDay(window());
            putIntoDate();
        }
    });
    if (!shown) {
        m_list->setLines({}); // rather nothing than the movements and totals of another day below this date
        Q_EMIT figuresUnknown();
    }
}

void MovementEntryPage::lookAtDayAgain(bool tellsKnownRefusal)
{
    guarded(window(), [this, tellsKnownRefusal] {
        const bool wasRefused = m_isRefused;
        const bool refused = judgeDay();
        showLinesAgain(readDay());
        if (refused && (tellsKnownRefusal || !wasRefused))
            explainClosedDay(window());
    });
}

void MovementEntryPage::lookAgain()
{
    guarded(window(), [this] {
        if (isRefused(m_day) != m_isRefused)
            lookAtDayAgain(false);
        else
            showLinesAgain(readDay());
    });
}

bool MovementEntryPage::leaveAll()
{
    if (m_cleared && m_cleared->loaded) // it belongs to the day that is left
        forgetCleared();
    return m_checks.leaveAll();
}

void MovementEntryPage::putIntoDate()
{
    goBackTo(*m_date);
    m_putIntoDate = true;
}

void MovementEntryPage::bringBackDay()
{
    m_checks.forget(m_date);
    m_date->setText(dateText(m_day));
    m_date->selectAll();
}

bool MovementEntryPage::isRefused(QDate day)
{
    return askClosedState(day) && !m_authority.has(Right::ModifyCash);
}

/// Asks again whether the day is closed. True if the user may not change it: then only a date can be typed.
bool MovementEntryPage::judgeDay()
{
    const bool refused = m_isRefused = isRefused(m_day);
    m_commands[command::insertMovement]->setVisible(!refused);
    m_commands[command::closeCash]->setVisible(!refused);
    m_chooser->setEnabled(!refused);
    m_fields.setEnabled(!refused);
    sayWhatIsMissing();
    return refused;
}

void MovementEntryPage::sayWhatIsMissing()
{
    constexpr int balanceLines = 1;
    QString text = QStringLiteral("Καμία κίνηση ακόμη. Γράψτε τον κωδικό της πρώτης και Enter.");
    if (m_isRefused)
        text = QStringLiteral("Η ημέρα δεν έχει κινήσεις.");
    else if (!m_hasCodes)
        text = QStringLiteral("Κανένας κωδικός ακόμη. Φτιάχνονται στους «Κωδικούς κινήσεων», με Ctrl+Page Down.");
    m_list->setEmptyText(text, balanceLines);
}

bool MovementEntryPage::askClosedState(QDate day)
{
    const bool isClosed = day.isValid() && m_cashBook.isDayClosed(day);
    showClosedState(isClosed);
    return isClosed;
}

void MovementEntryPage::showClosedState(bool isClosed)
{
    if (isClosed)
        m_state->showClosed();
    else
        m_state->showOpen();
    const auto seal = isClosed ? m_cashBook.sealOf(m_day) : std::nullopt;
    m_state->explain(seal ? sealCodeText(*seal) : QString());
}

/// Reads the shown day and corrects its row. The day is what matters: if something keeps its row from being written (a
/// locked or full disk, the marker), the user is told, and the day is shown all the same.
DayView MovementEntryPage::readDay()
{
    DayView view = m_cashBook.showDay(m_day, DayRow::LeaveAlone);
    guarded(window(), [this, &view] {
        if (m_marker.heldByAnother())
            return;
        if (const auto correction = m_cashBook.bringInLine(view))
            Q_EMIT dayCorrected(*correction);
    });
    return view;
}

void MovementEntryPage::fill(const DayView& view)
{
    showLines(view);
    if (view.movements.empty())
        return;
    m_fields.clearDescription();
    m_fields.setAmounts({}, {});
    m_list->selectLast();
    focusEntry();
}

void MovementEntryPage::showLinesAgain(const DayView& view)
{
    const QModelIndex current = m_list->currentIndex();
    const bool selected = m_list->selectionModel()->isSelected(current);
    const QVariant key = current.data(Qt::UserRole);
    const int scrolled = m_list->verticalScrollBar()->value();
    showLines(view);
    m_list->doItemsLayout();
    if (selected)
        selectLine(key.toLongLong());
    m_list->verticalScrollBar()->setValue(scrolled);
}

std::optional<qint64> MovementEntryPage::chosenMovement() const
{
    if (m_loaded)
        return m_loaded->movement.key;
    const QModelIndex current = m_list->currentIndex();
    const qint64 key = m_list->selectionModel()->isSelected(current) ? current.data(Qt::UserRole).toLongLong() : 0;
    return window()->focusWidget() == m_list && key != 0 ? std::optional(key) : std::nullopt;
}

bool MovementEntryPage::selectLine(qint64 key)
{
    const QModelIndex first = m_list->model()->index(0, 0);
    const auto same = m_list->model()->match(first, Qt::UserRole, key, 1, Qt::MatchExactly);
    if (same.isEmpty())
        return false;
    m_list->setCurrentIndex(same.first());
    m_list->scrollTo(same.first());
    return true;
}

} // namespace lorvan
