#include "codes/codes_page.h"

#include "book/book.h"
#include "codes/code_refusal_window.h"
#include "controls/check_field.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/main_controls.h"
#include "lists/list_reader.h"
#include "lists/plain_list.h"
#include "lists/row_filter_field.h"
#include "look/focus_rules.h"
#include "look/message_window.h"

#include <QLineEdit>

#include <algorithm>

namespace lorvan {
namespace {

std::vector<ListRow> rowsOf(const std::vector<MovementCode>& codes)
{
    std::vector<ListRow> rows;
    rows.reserve(codes.size());
    for (const MovementCode& code : codes)
        rows.push_back({code.listLine, code.row});
    return rows;
}

const CodeGroup* findGroup(const std::vector<CodeGroup>& groups, qint32 number)
{
    const auto found = std::ranges::find(groups, number, &CodeGroup::number);
    return found == groups.end() ? nullptr : &*found;
}

QString nameOf(const CodeGroup* group)
{
    return group ? group->name : QString();
}

} // namespace

CodesPage::CodesPage(Book& book, Authority authority, QWidget* parent)
    : QWidget(parent)
    , m_book(book)
    , m_authority(std::move(authority))
    , m_gate(this)
    , m_panel(new QWidget)
    , m_reader(new ListReader(m_panel, this))
    , m_fields(QStringLiteral("Text1"))
    , m_commands(QStringLiteral("Command1"))
    , m_lists(QStringLiteral("DBList1"))
    , m_income(new CheckField(QStringLiteral("Είναι έσοδο;")))
    , m_active(new CheckField(QStringLiteral("Eνεργός")))
{
    m_panel->setObjectName(QStringLiteral("Panel1(2)"));
    layOut();
    connectLists();
    m_active->setChecked(true);
    setOffered(false);
}

void CodesPage::connectLists()
{
    connect(m_lists[Codes], &PlainList::clicked, this, m_gate.action(this, &CodesPage::codeClicked));
    connect(m_lists[Codes], &PlainList::opened, this, m_gate.action(this, &CodesPage::codeOpened));
    connect(m_lists[Groups], &PlainList::clicked, this, m_gate.action(this, &CodesPage::groupClicked));
    connect(m_lists[Groups], &PlainList::opened, this, m_gate.action(this, &CodesPage::groupOpened));
    connect(m_lists[Codes], &PlainList::removalAsked, this, [this](const QModelIndex& index) {
        if (m_offered && m_selected == index.data(Qt::UserRole).toLongLong())
            m_commands[command::removeCode]->click();
    });
}

// What is shown

void CodesPage::start()
{
    const bool mayModify = m_authority.has(Right::ModifyCodes);
    m_reader->setReading(!mayModify);
    m_lists[Codes]->setEmptyText(mayModify
            ? QStringLiteral("Κανένας κωδικός ακόμη. Γράψτε τον αριθμό του πρώτου και Enter.")
            : QStringLiteral("Το βιβλίο δεν έχει ακόμη κωδικούς."));
    m_lists[Groups]->setEmptyText(mayModify ? QStringLiteral("Καμία ομάδα ακόμη: πατήστε «Επεξεργασία».")
                                            : QStringLiteral("Το βιβλίο δεν έχει ακόμη ομάδες."));
    clearFields();
    m_filter->field()->clear();
    m_selected.reset();
    setOffered(false);
    refillGroups();
    refill();
    (mayModify ? static_cast<QWidget*>(m_fields[field::code]) : m_reader)->setFocus(Qt::OtherFocusReason);
}

void CodesPage::clearFields()
{
    for (const int index : {field::code, field::codeDescription, field::codeGroup})
        m_fields[index]->clear();
    m_income->setChecked(false);
    m_settled = typed();
    setGroup(0);
}

void CodesPage::refill()
{
    m_lists[Codes]->setRows(rowsOf(listCodes(m_book.main(), CodeSelection::All)));
    selectCode(m_selected);
    m_filter->apply();
    showCodesOfGroup(m_listedGroup);
}

void CodesPage::refillGroups()
{
    m_groups = listGroups(m_book.main());
    std::vector<ListRow> rows;
    for (const CodeGroup& group : m_groups)
        rows.push_back({group.name, group.number});
    m_lists[Groups]->setRows(rows);
    if (findGroup(m_groups, m_listedGroup))
        m_lists[Groups]->selectData(m_listedGroup);
    else
        m_listedGroup = 0;
}

void CodesPage::refreshGroups()
{
    refillGroups();
    refill();
    if (!m_groupName)
        return;
    const bool wasUntouched = isUntouched();
    const CodeGroup* const now = findGroup(m_groups, m_group);
    if (m_fields[field::codeGroup]->text() == *m_groupName)
        m_fields[field::codeGroup]->setText(nameOf(now));
    setGroup(now ? m_group : 0);
    if (wasUntouched)
        m_settled = typed();
}

void CodesPage::lookAgain()
{
    refreshGroups();
    if (m_selected && isUntouched())
        show(*m_selected);
}

void CodesPage::setGroup(qint32 group)
{
    const CodeGroup* const listed = findGroup(m_groups, group);
    m_group = group;
    m_groupName = listed ? std::optional(listed->name) : std::nullopt;
}

void CodesPage::showCodesOfGroup(qint32 group)
{
    m_listedGroup = group;
    m_lists[CodesOfGroup]->setRows(rowsOf(listCodesOfGroup(m_book.main(), group)));
    m_lists[CodesOfGroup]->setEmptyText(group == 0
            ? QStringLiteral("Διαλέξτε μια ομάδα: εδώ φαίνονται οι κωδικοί της.")
            : QStringLiteral("Κανένας κωδικός σε αυτή την ομάδα. Με F2 στην ομάδα τη δίνετε στον κωδικό των πεδίων."));
}

void CodesPage::selectCode(std::optional<qint64> row)
{
    m_selected = row;
    if (row)
        m_lists[Codes]->selectData(*row);
}

void CodesPage::setOffered(bool isOffered)
{
    m_offered = isOffered;
    m_commands[command::modifyCode]->setVisible(isOffered);
    m_commands[command::removeCode]->setVisible(isOffered);
    m_commands[command::modifyCode]->setLook(CommandButton::Look::Solid);
    m_commands[command::insertCode]->setLook(isOffered ? CommandButton::Look::Outlined : CommandButton::Look::Solid);
}

// Lists

bool CodesPage::show(qint64 row)
{
    const auto code = readCode(m_book.main(), row);
    if (!code) {
        explain(CodeRefusal::IsGone);
        return false;
    }
    m_selected = row;
    m_fields[field::code]->setText(QString::number(code->code));
    m_fields[field::codeDescription]->setText(code->description);
    m_fields[field::codeGroup]->setText(code->groupName);
    for (const int index : {field::code, field::codeDescription, field::codeGroup})
        m_fields[index]->setCursorPosition(0);
    m_income->setChecked(code->income);
    m_active->setChecked(code->active);
    m_settled = typed();
    setGroup(code->group);
    return true;
}

void CodesPage::codeClicked(const QModelIndex& index)
{
    setOffered(false);
    show(index.data(Qt::UserRole).toLongLong());
}

void CodesPage::codeOpened(const QModelIndex& index)
{
    setOffered(show(index.data(Qt::UserRole).toLongLong()));
}

void CodesPage::groupClicked(const QModelIndex& index)
{
    setGroup(index.data(Qt::UserRole).toInt());
    showCodesOfGroup(m_group);
}

void CodesPage::groupOpened(const QModelIndex& index)
{
    groupClicked(index);
    m_fields[field::codeGroup]->setText(nameOf(findGroup(m_groups, m_group)));
    m_fields[field::codeGroup]->setCursorPosition(0);
}

// Changes

/// What they contain is stored: none of it can be taken back as typing.
void CodesPage::settleFields()
{
    for (const auto& [index, entryField] : m_fields)
        entryField->setText(entryField->text());
    m_settled = typed();
}

CodeEntry CodesPage::typed() const
{
    return {m_fields[field::code]->text(), m_fields[field::codeDescription]->text(), m_fields[field::codeGroup]->text(),
        m_income->isChecked(), m_active->isChecked()};
}

std::optional<qint32> CodesPage::shownCode() const
{
    const auto code = m_selected ? readCode(m_book.main(), *m_selected) : std::nullopt;
    return code ? std::optional(code->code) : std::nullopt;
}

void CodesPage::insertCode()
{
    const auto outcome = lorvan::insertCode(m_book.main(), m_authority, typed());
    refillGroups(); // another computer may have edited them
    if (const auto* const refusal = std::get_if<CodeRefusal>(&outcome)) {
        refill();
        explain(*refusal);
        return;
    }
    const auto& inserted = std::get<MovementCode>(outcome);
    setGroup(inserted.group);
    m_selected = inserted.row;
    settleFields();
    changed();
    goBackTo(*m_fields[field::code]);
}

void CodesPage::modifyCode()
{
    refreshGroups();
    if (!m_selected)
        return;
    const auto effects = effectsOfModification(m_book.main(), *m_selected, typed(), m_group);
    if (!askModification(window(), effects.value_or(ModificationEffects())))
        return;
    const auto outcome = lorvan::modifyCode(m_book.main(), m_authority, *m_selected, typed(), m_group);
    if (const auto* const refusal = std::get_if<CodeRefusal>(&outcome)) {
        explain(*refusal);
        return;
    }
    settleFields();
    Q_EMIT stored(std::get<CodeChange>(outcome));
    changed();
}

void CodesPage::removeCode()
{
    if (!m_selected)
        return;
    if (const auto refusal = refusalOfRemoval(m_book.main(), *m_selected)) {
        explain(*refusal);
        return;
    }
    if (!askOkCancel(window(), QMessageBox::Question, QStringLiteral("Διαγραφή κωδικού"),
            QStringLiteral("Να γίνει η διαγραφή του κωδικού;")))
        return;
    if (const auto refusal = lorvan::removeCode(m_book.main(), m_authority, *m_selected)) {
        explain(*refusal);
        return;
    }
    const int place = m_lists[Codes]->currentIndex().row();
    m_selected.reset();
    setGroup(0);
    setOffered(false);
    changed();
    const QAbstractItemModel& rows = *m_lists[Codes]->model();
    m_lists[Codes]->selectRow(rows.index(std::min(place, rows.rowCount() - 1), 0));
}

void CodesPage::changed()
{
    refill();
    Q_EMIT codesChanged();
}

void CodesPage::explain(CodeRefusal refusal)
{
    explainCodeRefusal(window(), refusal);
    if (refusal == CodeRefusal::IsGone) {
        m_selected.reset();
        setOffered(false);
        changed();
    } else if (EntryField* const field = fieldToCorrect(refusal)) {
        goBackTo(*field);
    }
}

EntryField* CodesPage::fieldToCorrect(CodeRefusal refusal) const
{
    switch (refusal) {
    case CodeRefusal::Incomplete:
        return m_fields[m_fields[field::code]->text().trimmed().isEmpty() ? field::code : field::codeDescription];
    case CodeRefusal::NoWholeNumber:
    case CodeRefusal::CodeExists:
        return m_fields[field::code];
    case CodeRefusal::DescriptionExists:
        return m_fields[field::codeDescription];
    case CodeRefusal::UnknownGroup:
        return m_fields[field::codeGroup];
    case CodeRefusal::IsUsed:
    case CodeRefusal::IsGone:
    case CodeRefusal::IsAnother:
    case CodeRefusal::MovementsDiffer:
        break;
    }
    return nullptr;
}

} // namespace lorvan
