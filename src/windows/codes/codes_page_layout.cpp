#include "codes/codes_page.h"

#include "controls/check_field.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/main_controls.h"
#include "lists/list_reader.h"
#include "lists/plain_list.h"
#include "lists/row_filter_field.h"
#include "look/focus_rules.h"
#include "look/themed_label.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>

#include <functional>

namespace lorvan {
namespace {

constexpr int marginSide = 12;
constexpr int marginTop = 2; // below the line of notices
constexpr int marginEnd = 10;
constexpr int betweenControls = 8;
constexpr int codeWidth = 84;

} // namespace

void CodesPage::layOut()
{
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    whole->addWidget(m_reader);
    auto* const rows = new QVBoxLayout(m_panel);
    rows->setContentsMargins(marginSide, marginTop, marginSide, marginEnd);
    rows->setSpacing(betweenControls);
    rows->addWidget(entryFrame());
    rows->addLayout(commandRow());
    auto* const columns = new QHBoxLayout;
    columns->setSpacing(12);
    columns->addLayout(groupsColumn(), 9);
    columns->insertLayout(0, codesColumn(), 11);
    rows->addLayout(columns, 1);
    m_reader->setLists({m_lists[Codes], m_lists[Groups], m_lists[CodesOfGroup]});
    setTabOrders();
}

QGroupBox* CodesPage::entryFrame()
{
    m_income->setObjectName(QStringLiteral("SSCheck1"));
    m_active->setObjectName(QStringLiteral("SSCheck2"));
    EntryField* const code = addField(field::code, QStringLiteral("Κωδικός"));
    EntryField* const description = addField(field::codeDescription, QStringLiteral("Περιγραφή"));
    EntryField* const group = addField(field::codeGroup, QStringLiteral("Ομάδα"));
    code->setLeastWidth(codeWidth);

    auto* const frame = new QGroupBox(QStringLiteral("Στοιχεία κωδικού"));
    auto* const grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(betweenControls);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(2, 2);
    grid->addWidget(fieldCaption(code->accessibleName()), 0, 0);
    grid->addWidget(fieldCaption(description->accessibleName()), 0, 1);
    grid->addWidget(fieldCaption(group->accessibleName()), 0, 2);
    grid->addWidget(code, 1, 0);
    grid->addWidget(description, 1, 1);
    grid->addWidget(group, 1, 2);
    auto* const checks = new QVBoxLayout;
    checks->addWidget(m_income);
    checks->addWidget(m_active);
    grid->setColumnMinimumWidth(3, 6);
    grid->addLayout(checks, 0, 4, 2, 1);
    return frame;
}

EntryField* CodesPage::addField(int index, const QString& name)
{
    auto* const field = m_fields.add(index, new EntryField(TypingRule::Capitals));
    field->setAccessibleName(name);
    return field;
}

CommandButton* CodesPage::addCommand(
    int index, const QString& icon, const QString& text, const QString& tip, int captionIndex)
{
    auto* const button = m_commands.add(index, new CommandButton(icon, text));
    button->setToolTip(tip);
    button->captionLabel()->setObjectName(QStringLiteral("Label2(%1)").arg(captionIndex));
    QSizePolicy keepPlace = button->sizePolicy();
    keepPlace.setRetainSizeWhenHidden(true);
    button->setSizePolicy(keepPlace);
    return button;
}

QLayout* CodesPage::commandRow()
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(betweenControls);
    row->addWidget(addCommand(command::insertCode, QStringLiteral("insert"), QStringLiteral("Εισαγωγή"),
        QStringLiteral("Εισαγωγή κωδικού στη λίστα"), caption::insertCode));
    row->addWidget(addCommand(command::modifyCode, QStringLiteral("modify"), QStringLiteral("Μεταβολή"),
        QStringLiteral("Μεταβολή των στοιχείων του κωδικού"), caption::modifyCode));
    row->addWidget(addCommand(command::removeCode, QStringLiteral("delete"), QStringLiteral("Διαγραφή"),
        QStringLiteral("Διαγραφή του κωδικού"), caption::removeCode));
    m_commands[command::removeCode]->setLook(CommandButton::Look::Danger);
    row->addStretch(1);
    row->addWidget(addCommand(command::exitFromCodesPage, QStringLiteral("exit"), QStringLiteral("Εξοδος"),
        QStringLiteral("Τερματισμός του προγράμματος"), caption::exitFromCodesPage));
    m_commands[command::exitFromCodesPage]->setLook(CommandButton::Look::Quiet);
    return row;
}

PlainList* CodesPage::addList(int index, const QString& name, const QString& tip)
{
    const auto face = index == Groups ? PlainList::Face::Desktop : PlainList::Face::FixedWidth;
    auto* const list = m_lists.add(index, new PlainList(face));
    list->setAccessibleName(name);
    list->setToolTip(tip);
    return list;
}

QLayout* CodesPage::codesColumn()
{
    const QString title = QStringLiteral("Διαθέσιμοι κωδικοί");
    auto* const column = new QVBoxLayout;
    column->setSpacing(4);
    auto* const heading = new QHBoxLayout;
    heading->addWidget(listHeading(title));
    heading->addStretch(1);
    column->addLayout(heading);
    column->addWidget(addList(Codes, title, {}), 1);
    addFilter(*heading);
    return column;
}

void CodesPage::addFilter(QHBoxLayout& heading)
{
    m_filter = new RowFilterField(QStringLiteral("filterCodes"), QStringLiteral("κωδικών"),
        QStringLiteral("Μένουν οι κωδικοί με λέξη ή αριθμό που αρχίζει έτσι. Με Esc φαίνονται όλοι"), m_lists[Codes]);
    m_filter->field()->setFixedHeight(
        m_commands[command::editGroups]->sizeHint().height()); // the two lists begin level
    heading.addWidget(m_filter->field(), 2);
}

QLayout* CodesPage::groupsColumn()
{
    const QString title = QStringLiteral("Ομάδες κωδικών");
    auto* const heading = new QHBoxLayout;
    heading->addWidget(listHeading(title));
    heading->addStretch(1);
    heading->addWidget(addCommand(command::editGroups, QStringLiteral("groups"), QStringLiteral("Επεξεργασία"),
        QStringLiteral("Επεξεργασία ομάδων κωδικών"), caption::editGroups));
    m_commands[command::editGroups]->setSmall(true);

    const QString groupTitle = QStringLiteral("Κωδικοί στην ομάδα");
    auto* const column = new QVBoxLayout;
    column->setSpacing(4);
    column->addLayout(heading);
    column->addWidget(
        addList(Groups, title, QStringLiteral("Διπλό κλίκ για την αντοιστίχηση της ομάδας στο κωδικό")), 7);
    column->addSpacing(4);
    column->addWidget(listHeading(groupTitle));
    column->addWidget(addList(CodesOfGroup, groupTitle, QStringLiteral("Κωδικοί που ανήκουν στην ίδια ομάδα")), 5);
    return column;
}

void CodesPage::setTabOrders()
{
    chainTabOrder({m_fields[field::code], m_fields[field::codeDescription], m_fields[field::codeGroup], m_income,
        m_active, m_commands[command::insertCode], m_commands[command::modifyCode], m_commands[command::removeCode],
        m_lists[Codes], m_lists[Groups], m_commands[command::editGroups], m_lists[CodesOfGroup],
        m_commands[command::exitFromCodesPage], m_filter->field()});
}

} // namespace lorvan
