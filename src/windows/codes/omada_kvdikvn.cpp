#include "codes/omada_kvdikvn.h"

#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "lists/plain_list.h"
#include "lists/row_filter_field.h"
#include "look/focus_rules.h"
#include "look/message_window.h"
#include "look/themed_label.h"
#include "look/window_placement.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>

namespace lorvan {
namespace {

constexpr QSize firstSize{520, 380};
constexpr int margin = 16;
constexpr int betweenGroups = 12;
constexpr int betweenControls = 8;

} // namespace

OmadaKvdikvn::OmadaKvdikvn(Connection& main, Authority authority, MayChange mayChange, QWidget* parent)
    : QDialog(parent)
    , m_main(main)
    , m_authority(std::move(authority))
    , m_mayChange(std::move(mayChange))
    , m_gate(this)
    , m_list(new PlainList)
    , m_name(new EntryField(TypingRule::Any))
    , m_commands(QStringLiteral("Command1"))
{
    setObjectName(QStringLiteral("OmadaKvdikvn"));
    setWindowTitle(QStringLiteral("Ομάδες κωδικών"));
    setModal(true);
    layOut();
    connectCommands();
    connectList();
    setLoaded(std::nullopt);
    refill();
    m_name->setFocus(Qt::OtherFocusReason);
}

void OmadaKvdikvn::layOut()
{
    auto* const heading = listHeading(QStringLiteral("Διαθέσιμες ομάδες "));
    m_list->setObjectName(QStringLiteral("DBList1"));
    m_list->setAccessibleName(heading->text().trimmed());
    m_list->setToolTip(QStringLiteral("Διπλό κλίκ για διόρθωση ή διαγραφή"));
    m_list->setEmptyText(QStringLiteral("Καμία ομάδα ακόμη. Γράψτε την ονομασία της πρώτης και Enter."));
    auto* const caption = fieldCaption(QStringLiteral("Ονομασία ομάδας  "));
    m_name->setObjectName(QStringLiteral("Text1"));
    m_name->setAccessibleName(caption->text().trimmed());

    auto* const panel = new QWidget(this);
    panel->setObjectName(QStringLiteral("SSPanel1"));
    auto* const rows = new QVBoxLayout(panel);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(0);
    auto* const headingRow = new QHBoxLayout;
    headingRow->addWidget(heading);
    headingRow->addStretch(1);
    m_filter = new RowFilterField(QStringLiteral("filterGroups"), QStringLiteral("ομάδων"),
        QStringLiteral("Μένουν οι ομάδες με λέξη που αρχίζει έτσι. Με Esc φαίνονται όλες"), m_list);
    headingRow->addWidget(m_filter->field(), 2);
    rows->addLayout(headingRow);
    rows->addSpacing(4);
    rows->addWidget(m_list, 1);
    rows->addSpacing(betweenGroups);
    rows->addWidget(caption);
    rows->addSpacing(2);
    rows->addWidget(m_name);
    rows->addSpacing(betweenGroups);
    rows->addLayout(commandRow());
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    whole->addWidget(panel);
    chainTabOrder(
        {m_name, m_commands[Add], m_commands[Rename], m_commands[Remove], m_commands[Exit], m_filter->field(), m_list});
    sizeWithin(this, firstSize);
}

QLayout* OmadaKvdikvn::commandRow()
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(betweenControls);
    row->addWidget(addCommand(
        Add, QStringLiteral("insert"), QStringLiteral("Εισαγωγή"), QStringLiteral("Εισαγωγή ομάδας στη λίστα")));
    row->addWidget(addCommand(
        Rename, QStringLiteral("modify"), QStringLiteral("Μεταβολή"), QStringLiteral("Μεταβολή της ονομασίας")));
    row->addWidget(addCommand(
        Remove, QStringLiteral("delete"), QStringLiteral("Διαγραφή"), QStringLiteral("Διαγραφή της ομάδας")));
    row->addStretch(1);
    row->addWidget(addCommand(
        Exit, QStringLiteral("exit"), QStringLiteral("Εξοδος"), QStringLiteral("Επιστροφή πίσω στο κυρίως πρόγραμμα")));
    m_commands[Rename]->setLook(CommandButton::Look::Solid);
    m_commands[Remove]->setLook(CommandButton::Look::Danger);
    m_commands[Exit]->setLook(CommandButton::Look::Quiet);
    return row;
}

CommandButton* OmadaKvdikvn::addCommand(Command index, const QString& icon, const QString& caption, const QString& tip)
{
    auto* const button = m_commands.add(index, new CommandButton(icon, caption));
    button->setToolTip(tip);
    button->captionLabel()->setObjectName(QStringLiteral("Label2(%1)").arg(index));
    QSizePolicy keepPlace = button->sizePolicy();
    keepPlace.setRetainSizeWhenHidden(true);
    button->setSizePolicy(keepPlace);
    return button;
}

void OmadaKvdikvn::connectCommands()
{
    const ActionGate::Conditions change{{}, [this] { return m_mayChange(this); }};
    m_gate.connect(m_commands[Exit], {}, [this] { hide(); });
    m_gate.connect(m_commands[Add], change, [this] { addGroup(); });
    m_gate.connect(m_commands[Rename], change, [this] { renameGroup(); });
    m_gate.connect(m_commands[Remove], change, [this] { removeGroup(); });
}

void OmadaKvdikvn::connectList()
{
    connect(m_list, &PlainList::clicked, this, m_gate.quick(this, &OmadaKvdikvn::release));
    connect(m_list, &PlainList::opened, this, m_gate.quick(this, &OmadaKvdikvn::load));
    connect(m_list, &PlainList::removalAsked, this, [this](const QModelIndex& group) {
        if (m_loaded == group.data(Qt::UserRole).toInt())
            m_commands[Remove]->click();
    });
}

void OmadaKvdikvn::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event))
        focusNextChild();
    else if (event->matches(QKeySequence::Cancel) && holdsUnstoredText())
        m_name->setFocus(Qt::OtherFocusReason); // closing would lose it
    else
        QDialog::keyPressEvent(event);
}

bool OmadaKvdikvn::holdsUnstoredText() const
{
    return m_name->isModified() && isGroupName(m_name->text());
}

// Changes

void OmadaKvdikvn::addGroup()
{
    const auto outcome = lorvan::addGroup(m_main, m_authority, m_name->text());
    if (const auto* const refusal = std::get_if<GroupRefusal>(&outcome)) {
        explain(*refusal, Add);
        return;
    }
    m_name->setModified(false);
    refill();
    const qint32 added = std::get<CodeGroup>(outcome).number;
    m_list->selectData(added);
    if (m_loaded)
        setLoaded(added); // the buttons act on what is selected and shown
    goBackTo(*m_name);
}

void OmadaKvdikvn::renameGroup()
{
    if (!isGroupName(m_name->text())) {
        explain(GroupRefusal::NoName, Rename);
        return;
    }
    if (!askOkCancel(this, QMessageBox::Question, QStringLiteral("Μεταβολή στοιχείων"),
            QStringLiteral("Να γίνει η μεταβολή των στοιχείων;")))
        return;
    const qint32 group = *m_loaded;
    const auto outcome = lorvan::renameGroup(m_main, m_authority, group, m_name->text());
    if (const auto* const refusal = std::get_if<GroupRefusal>(&outcome)) {
        explain(*refusal, Rename);
        return;
    }
    Q_EMIT stored(std::get<GroupChange>(outcome));
    m_name->setModified(false);
    refill();
    m_list->selectData(group);
    setLoaded(std::nullopt);
    goBackTo(*m_name);
}

void OmadaKvdikvn::removeGroup()
{
    if (!askOkCancel(this, QMessageBox::Critical, QStringLiteral("Διαγραφή ομάδας"),
            QStringLiteral("Να γίνει η διαγραφή της ομάδας;")))
        return;
    if (const auto refusal = lorvan::removeGroup(m_main, m_authority, *m_loaded)) {
        explain(*refusal, Remove);
        return;
    }
    const int place = m_list->currentIndex().row();
    const bool byKey = focusWidget() == m_list;
    refill();
    release();
    const QAbstractItemModel& groups = *m_list->model();
    m_list->selectRow(groups.index(std::min(place, groups.rowCount() - 1), 0));
    if (!byKey)
        goBackTo(*m_name);
}

void OmadaKvdikvn::explain(GroupRefusal refusal, Command refused)
{
    const auto inform = [this](const QString& text) {
        showMessage(this, QMessageBox::Information, QStringLiteral("Προσοχή"), text);
    };
    switch (refusal) {
    case GroupRefusal::NoName:
        inform(refused == Add ? QStringLiteral("Δεν έχετε δώσει την ονομασία της ομάδας")
                              : QStringLiteral("Δεν έχετε δώσει την περιγραφή της ομάδας"));
        break;
    case GroupRefusal::NameExists:
        inform(QStringLiteral("Η περιγραφή υπάρχει ήδη καταχωρημένη"));
        break;
    case GroupRefusal::IsGone:
        inform(QStringLiteral("Η ομάδα δεν υπάρχει πια. Την έχει διαγράψει άλλος χρήστης."));
        setLoaded(std::nullopt);
        refill();
        break;
    case GroupRefusal::IsAnother: // an undo or a redo, which explains itself
        break;
    }
    goBackTo(*m_name);
}

// What is shown

void OmadaKvdikvn::refill()
{
    std::vector<ListRow> rows;
    for (const CodeGroup& group : listGroups(m_main))
        rows.push_back({group.name, group.number});
    m_list->setRows(rows);
    m_filter->apply();
}

void OmadaKvdikvn::load(const QModelIndex& group)
{
    setLoaded(group.data(Qt::UserRole).toInt());
    m_name->setText(group.data().toString());
    m_name->setCursorPosition(0);
}

void OmadaKvdikvn::release()
{
    setLoaded(std::nullopt);
    m_name->clear();
}

void OmadaKvdikvn::setLoaded(std::optional<qint32> group)
{
    m_loaded = group;
    m_commands[Rename]->setVisible(group.has_value());
    m_commands[Remove]->setVisible(group.has_value());
    m_commands[Add]->setLook(group ? CommandButton::Look::Outlined : CommandButton::Look::Solid);
}

} // namespace lorvan
