#include "cashbook/code_picker.h"
#include "cashbook/day_list.h"
#include "cashbook/day_list_head.h"
#include "cashbook/movement_entry_page.h"
#include "controls/code_chooser.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/key_binding.h"
#include "controls/label3d.h"
#include "controls/main_controls.h"
#include "controls/state_plate.h"
#include "look/focus_rules.h"
#include "look/themed_label.h"
#include "platform/date_text.h"
#include "platform/entry_rules.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int pageMarginSide = 12;
constexpr int pageMarginTop = 2; // below the line of notices
constexpr int pageMarginEnd = 10;
constexpr int betweenControls = 8;
constexpr int betweenRows = 8;
constexpr int dateWidth = 124;
constexpr int amountWidth = 104;

/// The width at which no weekday moves anything beside it.
int widestWeekday(const QFontMetrics& metrics)
{
    int widest = 0;
    for (int day = 1; day <= 7; ++day)
        widest = std::max(widest, metrics.size(0, entryWeekday(QDate(2001, 1, day))).width());
    return widest;
}

void keepPlaceWhenHidden(QWidget* widget)
{
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

} // namespace

void MovementEntryPage::createControls()
{
    m_date = m_texts.add(field::date, new EntryField(TypingRule::Date, this));
    m_date->setType(1.2, QFont::DemiBold);
    m_date->setAccessibleName(QStringLiteral("Ημερομηνία"));
    m_calendar = new CommandButton(QStringLiteral("calendar"), {}, this);
    m_calendar->setObjectName(QStringLiteral("calendar"));
    m_calendar->setAccessibleName(QStringLiteral("Ημερολόγιο"));
    m_calendar->setToolTip(m_calendar->accessibleName());
    m_calendar->setFrameless(true);
    m_calendar->setFocusPolicy(Qt::NoFocus); // the Tab key goes on as ever; a key of the date opens it too
    showKeyInTip(m_calendar, KeyUse::OpenCalendar);
    m_weekday = new ThemedLabel({}, ColourRole::PageText, 1.2, QFont::Normal, this);
    m_weekday->setObjectName(QStringLiteral("Label1(0)"));
    m_state = new StatePlate(QStringLiteral("Ταμείο ανοικτό"), QStringLiteral("Ταμείο κλειστό"), this);
    m_state->label()->setObjectName(QStringLiteral("Label3D1(3)"));

    m_chooser = new CodeChooser(this);
    m_chooser->setObjectName(QStringLiteral("DBCombo1"));
    m_chooser->setAccessibleName(QStringLiteral("Κωδικός"));
    m_chooser->lineEdit()->setAccessibleName(m_chooser->accessibleName());
    m_chooser->view()->setAccessibleName(m_chooser->accessibleName());
    m_picker = new CodePicker(m_chooser);

    m_list = new DayList(this);
    m_list->setObjectName(QStringLiteral("List1"));
    m_list->setToolTip(QStringLiteral("Διπλό κλίκ για διόρθωση"));
    m_list->setAccessibleName(QStringLiteral("Κινήσεις της ημέρας"));
    m_notBack = new ThemedLabel({}, ColourRole::Warning, 1.0, QFont::Normal, this);
    m_notBack->setObjectName(QStringLiteral("entryNotBack"));
    m_notBack->hide();
    createCommands();
}

void MovementEntryPage::createCommands()
{
    using Look = CommandButton::Look;
    const QString exitTip = QStringLiteral("Τερματισμός του προγράμματος");
    addCommand(command::insertMovement, QStringLiteral("insert"), QStringLiteral("Εισαγωγή"),
        QStringLiteral("Εισαγωγή των στοιχείων της αγοράς"), caption::insertMovement);
    addCommand(command::modifyMovement, QStringLiteral("modify"), QStringLiteral("Μεταβολή"),
        QStringLiteral("Μεταβολή των στοιχείων της αγοράς"), caption::modifyMovement)
        ->setLook(Look::Solid);
    addCommand(command::removeMovement, QStringLiteral("delete"), QStringLiteral("Διαγραφή"),
        QStringLiteral("Διαγραφή της αγοράς"), caption::removeMovement)
        ->setLook(Look::Danger);
    addCommand(command::closeCash, QStringLiteral("closecash"), QStringLiteral("Κλείσιμο ταμείου"),
        QStringLiteral("Οριστικό κλήσιμο ταμείου"), caption::closeCash);
    addCommand(command::exitFromCashPage, QStringLiteral("exit"), QStringLiteral("Εξοδος"), exitTip, {})
        ->setLook(Look::Quiet);
}

CommandButton* MovementEntryPage::addCommand(
    int index, const QString& icon, const QString& text, const QString& tip, std::optional<int> captionIndex)
{
    auto* const button = m_commands.add(index, new CommandButton(icon, text, this));
    button->setToolTip(tip);
    if (captionIndex)
        button->captionLabel()->setObjectName(QStringLiteral("Label2(%1)").arg(*captionIndex));
    keepPlaceWhenHidden(button);
    return button;
}

void MovementEntryPage::layOut()
{
    auto* const head = new DayListHead(
        QStringLiteral("AA    Κωδ.   Περιγραφή                          Έσοδα         Εξοδα"), *m_list, this);
    auto* const memorandum = new MemorandumHead(QStringLiteral("Λ τάξεως"), *m_list, this);

    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(pageMarginSide, pageMarginTop, pageMarginSide, pageMarginEnd);
    rows->setSpacing(betweenRows);
    rows->addLayout(dayRow());
    rows->addLayout(entryGrid());
    auto* const listBlock = new QVBoxLayout;
    listBlock->setSpacing(4);
    listBlock->addWidget(dayListHeading(head, memorandum));
    listBlock->addWidget(m_list, 1);
    listBlock->addWidget(m_notBack);
    rows->addLayout(listBlock, 1);
}

QLayout* MovementEntryPage::dayRow()
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(10);
    m_date->setLeastWidth(dateWidth);
    m_weekday->setFixedWidth(widestWeekday(m_weekday->fontMetrics()));
    auto* const dateRow = new QHBoxLayout;
    dateRow->setSpacing(2);
    dateRow->addWidget(m_date);
    dateRow->addWidget(m_calendar);
    row->addLayout(dateRow);
    row->addWidget(m_weekday);
    row->addWidget(m_state);
    row->addStretch(1);
    row->addWidget(m_commands[command::closeCash]);
    return row;
}

QLayout* MovementEntryPage::entryGrid()
{
    enum Column { Code, Description, Income, Expense, Memorandum };
    enum Row { Captions, Fields, Gap, Commands };

    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(betweenControls);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(Code, 1);
    grid->setColumnStretch(Description, 1);
    grid->addWidget(fieldCaption(QStringLiteral("Κωδικός ")), Captions, Code);
    grid->addWidget(fieldCaption(QStringLiteral("Περιγραφή ")), Captions, Description);
    grid->addWidget(fieldCaption(QStringLiteral("Εσοδα"), CaptionOver::Amount), Captions, Income);
    grid->addWidget(fieldCaption(QStringLiteral("Εξοδα"), CaptionOver::Amount), Captions, Expense);
    grid->addWidget(fieldCaption(QStringLiteral("Λ τάξεως"), CaptionOver::Amount), Captions, Memorandum);

    EntryField* const description = m_fields.field(field::description);
    for (QWidget* const stretching : std::initializer_list<QWidget*>{m_chooser, description}) {
        stretching->setMinimumWidth(amountWidth);
        stretching->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }
    grid->addWidget(m_chooser, Fields, Code);
    grid->addWidget(description, Fields, Description);
    for (const auto& [column, index] : {std::pair(Income, field::income), std::pair(Expense, field::expense),
             std::pair(Memorandum, field::memorandum)}) {
        m_fields.field(index)->setLeastWidth(amountWidth);
        grid->addWidget(m_fields.field(index), Fields, column);
    }
    grid->setRowMinimumHeight(Gap, betweenRows - grid->verticalSpacing());
    grid->addWidget(m_fields.cheque(), Commands, Code);
    grid->addLayout(commandRow(), Commands, Description, 1, 4);
    return grid;
}

QLayout* MovementEntryPage::commandRow()
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(betweenControls);
    for (const int index : {command::insertMovement, command::modifyMovement, command::removeMovement})
        row->addWidget(m_commands[index]);
    row->addStretch(1);
    row->addWidget(m_commands[command::exitFromCashPage]);
    return row;
}

void MovementEntryPage::setTabOrders()
{
    QWidgetList order{m_date, m_chooser, m_fields.field(field::description), m_fields.field(field::income),
        m_fields.field(field::expense), m_fields.field(field::memorandum), m_fields.cheque()};
    // Enter leads from the last field to the button for the entry; a loaded movement is not inserted again.
    const QWidgetList changes{m_commands[command::modifyMovement], m_commands[command::removeMovement]};
    if (m_loaded)
        order << changes << m_commands[command::insertMovement];
    else
        order << m_commands[command::insertMovement] << changes;
    order << m_list << m_commands[command::closeCash] << m_commands[command::exitFromCashPage];
    chainTabOrder(order);
}

} // namespace lorvan
