#include "cashbook/movement_entry_page.h"

#include "book/book.h"
#include "cashbook/cash_closing.h"
#include "cashbook/code_picker.h"
#include "cashbook/day_list.h"
#include "cashbook/description_suggestions.h"
#include "controls/code_chooser.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/guarded_window.h"
#include "controls/main_controls.h"
#include "controls/suggesting_field.h"
#include "look/message_window.h"
#include "platform/date_text.h"
#include "platform/entry_rules.h"

#include <QLabel>

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

MovementEntryPage::MovementEntryPage(
    Book& book, UsageMarker& marker, const Authority& authority, Clock clock, QWidget* parent)
    : QWidget(parent)
    , m_book(book)
    , m_marker(marker)
    , m_authority(authority)
    , m_clock(std::move(clock))
    , m_cashBook(book, authority)
    , m_gate(this)
    , m_checks(this)
    , m_fields(this)
    , m_texts(QStringLiteral("Text1"))
    , m_commands(QStringLiteral("Command1"))
{
    setObjectName(QStringLiteral("Panel1(1)"));
    createControls();
    layOut();
    connectControls();
    watchFields();
    addKeys();
    setLoaded(std::nullopt);
}

void MovementEntryPage::connectControls()
{
    for (const auto& [index, button] : m_commands)
        connect(button, &CommandButton::clicked, this, &MovementEntryPage::forgetCleared);
    connect(m_picker, &CodePicker::chosen, this, &MovementEntryPage::codeChosen);
    connect(m_picker, &CodePicker::entered, this, &MovementEntryPage::codeEntered);
    connect(m_picker, &CodePicker::unresolved, this, [this] { m_fields.enableAmount(selectedKind()); });
    connect(m_picker, &CodePicker::notUnderstood, this, [this] { m_fields.setAmounts({}, {}); });
    connect(m_list, &DayList::clickedLine, this, m_gate.quick(this, &MovementEntryPage::lineClicked));
    connect(m_list, &DayList::openedLine, this, m_gate.quick(this, &MovementEntryPage::lineOpened));
    connect(m_date, &EntryField::textEdited, this, &MovementEntryPage::forgetCleared);
    connect(m_chooser, &CodeChooser::typed, this, &MovementEntryPage::forgetCleared);
    connect(m_picker, &CodePicker::chosen, this, &MovementEntryPage::forgetCleared);
    connect(&m_fields, &MovementFields::typed, this, [this](int index) {
        forgetCleared();
        if (index == field::memorandum)
            m_memorandumStays = false;
        markMemorandum();
    });
    connect(&m_fields, &MovementFields::changed, this, &MovementEntryPage::markMemorandum);
    connect(m_chooser->lineEdit(), &QLineEdit::textChanged, this, &MovementEntryPage::markMemorandum);
}

void MovementEntryPage::watchFields()
{
    connect(m_date, &EntryField::left, this, [this] { m_checks.left(m_date); });
    m_checks.add(
        m_date, [this] { return dateLeft(); }, [this] { m_date->setText(dateText(m_day)); });
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

void MovementEntryPage::refillCodes()
{
    auto codes = listCodes(m_book.main(), CodeSelection::Active);
    m_hasCodes = !codes.empty();
    m_picker->setCodes(std::move(codes));
    sayWhatIsMissing();
}

void MovementEntryPage::suggestDescriptions(const BookFiles& files, KeyRing& keys)
{
    auto* const suggestions = new DescriptionSuggestions(
        m_fields.description(), [this] { return m_picker->code(); }, files, keys);
    connect(m_chooser->lineEdit(), &QLineEdit::textChanged, suggestions, &DescriptionSuggestions::forget);
}

void MovementEntryPage::focusEntry()
{
    if (m_chooser->isEnabled())
        m_chooser->setFocus(Qt::OtherFocusReason);
    else
        putIntoDate();
}

void MovementEntryPage::showLines(const DayView& view)
{
    m_list->setLines(linesOf(view));
    Q_EMIT figuresChanged(view.figures);
}

// The code

std::optional<qint32> MovementEntryPage::chosenCode() const
{
    if (m_picker->code() != 0)
        return m_picker->code();
    bool isNumber = false;
    const qint32 typed = textOf(*m_chooser).trimmed().toInt(&isNumber);
    return isNumber && typed != 0 ? std::optional(typed) : std::nullopt;
}

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

EntryContent MovementEntryPage::entry() const
{
    EntryContent content;
    m_picker->takeContent(content);
    m_fields.takeContent(content);
    return content;
}

void MovementEntryPage::setEntry(const EntryContent& content)
{
    m_picker->setContent(content);
    m_fields.setContent(content);
}

UnsavedEntry MovementEntryPage::unsaved() const
{
    return unsavedEntry(entry(), m_loaded ? std::optional(m_loaded->shown) : std::nullopt);
}

void MovementEntryPage::markMemorandum()
{
    const bool left = isMemorandumLeft(entry(), m_memorandumStays);
    m_fields.field(field::memorandum)
        ->setMark(left ? QStringLiteral("Το ποσό έμεινε εδώ και θα μπει στην επόμενη κίνηση") : QString());
}

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
    if (m_loaded && !m_cashBook.mayChange(draft.day)) {
        explain(MovementRefusal::DayIsClosed, RefusedOperation::Insert);
        return;
    }
    if (m_loaded
        && !askOkCancel(window(), QMessageBox::Critical, attention,
            QStringLiteral("Έχετε επιλέξει στοιχεία για μεταβολή ή διαγραφή.\rθέλετε να γίνει η εισαγωγή;"), {},
            DefaultAnswer::No))
        return;
    if (!change(RefusedOperation::Insert, [this, &draft] { return m_cashBook.insert(draft); }))
        return;
    setLoaded(std::nullopt);
    m_memorandumStays = true;
    clearEntry();
    focusEntry();
    m_fields.clearCheque();
}

void MovementEntryPage::modifyMovement()
{
    MovementDraft draft;
    if (!m_loaded || !readDraft(draft))
        return;
    if (const auto refusal = m_cashBook.refusalOf(draft)) {
        explain(*refusal, RefusedOperation::Change);
        return;
    }
    if (!askOkCancel(window(), QMessageBox::Question, QStringLiteral("Μεταβολή στοιχείων"),
            QStringLiteral("Να γίνει η μεταβολή των στοιχείων;")))
        return;
    if (change(RefusedOperation::Change, [this, &draft] { return m_cashBook.modify(m_loaded->movement.key, draft); }))
        releaseChanged();
}

void MovementEntryPage::removeMovement()
{
    if (!m_loaded
        || !askOkCancel(window(), QMessageBox::Question, QStringLiteral("Διαγραφή κίνησης"),
            QStringLiteral("Να γίνει η διαγραφή της κίνησης")))
        return;
    if (change(RefusedOperation::Change, [this] { return m_cashBook.remove(m_loaded->movement.key); }))
        releaseChanged();
}

bool MovementEntryPage::change(RefusedOperation operation, const std::function<ChangeOutcome()>& run)
{
    const ChangeOutcome outcome = run();
    if (const auto* const refusal = std::get_if<MovementRefusal>(&outcome)) {
        explain(*refusal, operation);
        return false;
    }
    const auto& changed = std::get<ChangedDay>(outcome);
    Q_EMIT stored(changed.change);
    showClosedState(changed.isClosed);
    fill(changed.view);
    return true;
}

void MovementEntryPage::explain(MovementRefusal refusal, RefusedOperation operation)
{
    if (refusal == MovementRefusal::DayIsClosed)
        showClosedState(true);
    explainRefusal(window(), refusal, operation);
    if (refusal == MovementRefusal::MovementIsGone)
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
    if (!m_authority.has(Right::CloseCash)) {
        showMessage(window(), QMessageBox::Critical, attention,
            QStringLiteral("Ο χρήστης δεν έχει το δικαίωμα να κλίνει το ταμείο"));
    } else if (!day.isValid()) {
        explain(MovementRefusal::DateIsInvalid, RefusedOperation::Change);
    } else if (askToClose(day)) {
        if (const auto closed = m_cashBook.close(day))
            Q_EMIT dayClosed(*closed);
    }
}

bool MovementEntryPage::askToClose(QDate day)
{
    const CashDayFigures figures = m_cashBook.showDay(day, DayRow::LeaveAlone).figures;
    return askOkCancel(window(), QMessageBox::Question, QStringLiteral("Κλείσιμο ταμείου"),
        QStringLiteral("Να κλείσω το ταμείο;"),
        closingText(day, figures, openDaysBefore(m_book.main(), m_book.auxiliary(), day)), DefaultAnswer::No);
}

} // namespace lorvan
