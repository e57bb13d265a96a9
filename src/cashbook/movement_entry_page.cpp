#include "cashbook/movement_entry_page.h"

#include "app/book.h"
#include "app/guarded_window.h"
#include "app/main_controls.h"
#include "app/usage_marker.h"
#include "cashbook/cash_closing.h"
#include "cashbook/code_picker.h"
#include "cashbook/entry_rules.h"
#include "cashbook/weekday.h"
#include "controls/code_chooser.h"
#include "controls/command_button.h"
#include "controls/date_check.h"
#include "controls/day_list.h"
#include "controls/entry_field.h"
#include "controls/state_plate.h"
#include "platform/busy_pointer.h"
#include "platform/date_text.h"
#include "platform/message_window.h"

#include <QLabel>
#include <QShortcut>

namespace lorvan {
namespace {

const QString attention = QStringLiteral("Προσοχή");

DayLine lineOf(const Movement& movement, int number)
{
    return {movementLine(movement, number), movementSummary(movement, number), movement.key,
        movementCells(movement, number)};
}

std::vector<DayLine> linesOf(const DayView& view)
{
    const QString carried = carriedLine(view.carried);
    std::vector<DayLine> lines{{carried, carried, 0, {}}};
    int number = 0;
    for (const Movement& movement : view.movements)
        lines.push_back(lineOf(movement, ++number));
    return lines;
}

} // namespace

MovementEntryPage::MovementEntryPage(Book& book, UsageMarker& marker, Rights rights, Clock clock, QWidget* parent)
    : QWidget(parent)
    , m_book(book)
    , m_marker(marker)
    , m_rights(rights)
    , m_clock(std::move(clock))
    , m_cashBook(book, rights)
    , m_checks(this)
    , m_fields(this)
    , m_texts(QStringLiteral("Text1"))
    , m_commands(QStringLiteral("Command1"))
{
    setObjectName(QStringLiteral("Panel1(1)"));
    createControls();
    layOut();
    setTabOrders();
    connectControls();
    watchFields();
    addReleaseKey();
    setLoaded(std::nullopt);
}

void MovementEntryPage::connectControls()
{
    for (const auto& [index, button] : m_commands)
        connect(button, &CommandButton::clicked, this, [this, index = index] { Q_EMIT commandPressed(index); });
    connect(m_picker, &CodePicker::chosen, this, &MovementEntryPage::codeChosen);
    connect(m_picker, &CodePicker::entered, this, &MovementEntryPage::codeEntered);
    connect(m_picker, &CodePicker::unresolved, this, [this] { m_fields.enableAmount(selectedKind()); });
    connect(m_picker, &CodePicker::notUnderstood, this, [this] { m_fields.setAmounts({}, {}); });
    connect(m_list, &DayList::clickedLine, this, &MovementEntryPage::lineClicked);
    connect(m_list, &DayList::openedLine, this, &MovementEntryPage::lineOpened);
}

void MovementEntryPage::watchFields()
{
    connect(m_date, &EntryField::left, this, [this] { m_checks.left(m_date); });
    m_checks.add(m_date, [this] { return dateLeft(); });
    for (const int index : {field::income, field::expense, field::memorandum}) {
        EntryField* const amount = m_fields.field(index);
        connect(amount, &EntryField::left, this, [this, amount] { m_checks.left(amount); });
        m_checks.add(amount, [this, index] { return m_fields.settleAmount(index); });
    }
    connect(m_chooser, &CodeChooser::left, this, [this] { m_checks.left(m_chooser); });
    m_checks.add(m_chooser, [this] {
        m_picker->settle();
        return true;
    });
}

void MovementEntryPage::start()
{
    const QDate today = m_clock.today();
    m_date->setText(dateText(today));
    m_fields.show({});
    Q_EMIT figuresChanged({});
    m_picker->clear();
    refillCodes();
    showDay(today, ClosedDay::ShownAnyway);
    m_commands[command::insertMovement]->setVisible(!showClosedState(today) || m_rights.modifyCash);
    m_commands[command::closeCash]->setVisible(m_rights.closeCash);
}

void MovementEntryPage::refillCodes()
{
    m_picker->setCodes(listCodes(m_book.main(), CodeSelection::Active));
}

void MovementEntryPage::focusChooser()
{
    m_chooser->setFocus(Qt::OtherFocusReason);
}

// The shown day

bool MovementEntryPage::dateLeft()
{
    const auto day = checkDate(*m_date, m_clock.today());
    if (!day)
        return false;
    if (!guarded(window(), [this, &day] { showDay(*day, ClosedDay::Refused); })) {
        m_list->setLines({}); // rather nothing than another day's movements and totals below this date
        Q_EMIT figuresUnknown();
    }
    return true;
}

void MovementEntryPage::showDay(QDate day, ClosedDay closedDay)
{
    m_weekday->setText(entryWeekday(day));
    const bool closed = showClosedState(day);
    if (closed && closedDay == ClosedDay::Refused && !m_rights.modifyCash)
        refuseDay();
    else
        admitDay();
    refresh(day);
}

void MovementEntryPage::refuseDay()
{
    explainClosedDay(window());
    m_commands[command::insertMovement]->hide();
    m_commands[command::closeCash]->hide();
    m_chooser->setEnabled(false);
    m_fields.setEnabled(false);
}

void MovementEntryPage::admitDay()
{
    m_commands[command::insertMovement]->show();
    m_commands[command::closeCash]->show();
    m_chooser->setEnabled(true);
    m_fields.setEnabled(true);
}

bool MovementEntryPage::showClosedState(QDate day)
{
    const bool closed = day.isValid() && m_cashBook.isDayClosed(day);
    if (closed)
        m_state->showClosed();
    else
        m_state->showOpen();
    return closed;
}

void MovementEntryPage::refresh(QDate day)
{
    // A day is shown first, and whatever keeps its row from being written, a locked or full disk, the marker, comes
    // after.
    const DayView view = m_cashBook.showDay(day, DayRow::LeaveAlone);
    fill(view);
    guarded(window(), [this, &view] {
        if (!m_marker.heldByAnother())
            m_cashBook.bringInLine(view);
    });
}

void MovementEntryPage::showLines(const DayView& view)
{
    m_list->setLines(linesOf(view));
    Q_EMIT figuresChanged(view.figures);
}

void MovementEntryPage::fill(const DayView& view)
{
    showLines(view);
    if (view.movements.empty())
        return;
    m_fields.clearDescription();
    m_fields.setAmounts({}, {});
    m_list->selectLast();
    focusChooser();
}

// The code

MovementFields::Kind MovementEntryPage::selectedKind() const
{
    return m_picker->isIncome() ? MovementFields::Kind::Income : MovementFields::Kind::Expense;
}

void MovementEntryPage::codeChosen()
{
    m_fields.enableAmount(selectedKind());
    if (!m_loaded)
        m_fields.setAmounts({}, {});
    else
        guarded(window(), [this] { m_fields.moveAmountTo(selectedKind()); });
}

void MovementEntryPage::codeEntered()
{
    m_fields.field(field::description)->setFocus(Qt::TabFocusReason);
}

// Changes

QDate MovementEntryPage::enteredDay() const
{
    return readDate(m_date->text(), m_clock.today()).value_or(QDate());
}

bool MovementEntryPage::readDraft(MovementDraft& draft)
{
    draft.code = m_picker->code();
    draft.day = enteredDay();
    return m_fields.read(draft);
}

void MovementEntryPage::insertMovement()
{
    MovementDraft draft;
    if (!readDraft(draft))
        return;
    showClosedState(draft.day);
    if (!m_cashBook.mayChange(draft.day)) {
        explain(Refusal::DayIsClosed, RefusedOperation::Insert);
        return;
    }
    if (m_loaded
        && !askOkCancel(window(), QMessageBox::Critical, attention,
            QStringLiteral("Έχετε επιλέξει στοιχεία για μεταβολή ή διαγραφή.\rθέλετε να γίνει η εισαγωγή;")))
        return;
    if (!change(RefusedOperation::Insert, [this, &draft] { return m_cashBook.insert(draft); }))
        return;
    setLoaded(std::nullopt);
    clearEntry();
    focusChooser();
    m_fields.clearCheque();
}

void MovementEntryPage::modifyMovement()
{
    MovementDraft draft;
    if (!m_loaded || !readDraft(draft))
        return;
    if (const auto refusal = m_cashBook.check(draft)) {
        explain(*refusal, RefusedOperation::Change);
        return;
    }
    if (!askOkCancel(window(), QMessageBox::Question, QStringLiteral("Μεταβολή στοιχείων"),
            QStringLiteral("Να γίνει η μεταβολή των στοιχείων;")))
        return;
    if (change(RefusedOperation::Change, [this, &draft] { return m_cashBook.modify(*m_loaded, draft); }))
        releaseChanged();
}

void MovementEntryPage::removeMovement()
{
    if (!m_loaded
        || !askOkCancel(window(), QMessageBox::Question, QStringLiteral("Διαγραφή κίνησης"),
            QStringLiteral("Να γίνει η διαγραφή της κίνησης")))
        return;
    if (change(RefusedOperation::Change, [this] { return m_cashBook.remove(*m_loaded); }))
        releaseChanged();
}

bool MovementEntryPage::change(RefusedOperation operation, const std::function<ChangeOutcome()>& run)
{
    const ChangeOutcome outcome = run();
    if (const auto* const refusal = std::get_if<Refusal>(&outcome)) {
        explain(*refusal, operation);
        return false;
    }
    fill(std::get<DayView>(outcome));
    return true;
}

void MovementEntryPage::explain(Refusal refusal, RefusedOperation operation)
{
    explainRefusal(window(), refusal, operation);
    if (refusal == Refusal::MovementIsGone)
        showLines(m_cashBook.showDay(enteredDay(), DayRow::LeaveAlone));
}

void MovementEntryPage::clearEntry()
{
    m_picker->clear();
    m_fields.clearDescription();
    m_fields.setAmounts({}, {});
    m_fields.enableAmount(selectedKind());
}

void MovementEntryPage::closeCash()
{
    const QDate day = enteredDay();
    if (!m_rights.closeCash) {
        showMessage(window(), QMessageBox::Critical, attention,
            QStringLiteral("Ο χρήστης δεν έχει το δικαίωμα να κλίνει το ταμείο"));
    } else if (!day.isValid()) {
        explain(Refusal::DateIsInvalid, RefusedOperation::Change);
    } else if (askToClose(day) && closeDay(m_book.auxiliary(), day)) {
        Q_EMIT dayClosed(day);
    }
}

bool MovementEntryPage::askToClose(QDate day)
{
    const CashDayFigures figures = m_cashBook.showDay(day, DayRow::LeaveAlone).figures;
    return askOkCancel(window(), QMessageBox::Question, QStringLiteral("Κλείσιμο ταμείου"),
        QStringLiteral("Να κλείσω το ταμείο;"),
        closingText(day, figures, openDaysBefore(m_book.main(), m_book.auxiliary(), day)), DefaultAnswer::No);
}

// The list

void MovementEntryPage::lineClicked()
{
    if (BusyPointer::isShown())
        return;
    if (!settle())
        return;
    guarded(window(), [this] { showClosedState(enteredDay()); });
    release();
}

void MovementEntryPage::releaseChanged()
{
    m_list->clearSelection();
    release();
    focusChooser();
}

void MovementEntryPage::addReleaseKey()
{
    auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, [this] {
        if (m_loaded && !BusyPointer::isShown())
            releaseChanged();
    });
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
    if (BusyPointer::isShown() || key == 0)
        return;
    guarded(window(), [this, key] {
        const auto movement = m_cashBook.find(key);
        showClosedState(enteredDay());
        if (!movement)
            explain(Refusal::MovementIsGone, RefusedOperation::Change);
        else if (m_cashBook.mayChange(movement->day))
            load(*movement);
    });
}

void MovementEntryPage::load(const Movement& movement)
{
    const auto code = findCode(m_book.main(), movement.code, CodeSelection::All);
    m_picker->show(code.value_or(MovementCode{movement.code, {}, {}, 0, false, false}));
    m_fields.show(movement);
    const bool income = !movement.income.isZero();
    m_fields.enableAmount(income ? MovementFields::Kind::Income : MovementFields::Kind::Expense);
    setLoaded(movement.key);
    m_fields.field(income ? field::income : field::expense)->setFocus(Qt::OtherFocusReason);
}

void MovementEntryPage::setLoaded(std::optional<qint64> key)
{
    m_loaded = key;
    using Look = CommandButton::Look;
    for (const int index : {command::modifyMovement, command::removeMovement})
        m_commands[index]->setVisible(key.has_value());
    m_commands[command::insertMovement]->setLook(key ? Look::Outlined : Look::Solid);
    m_date->setEnabled(!key);
}

} // namespace lorvan
