#include "users/user_maintenance.h"

#include "book/lock_trust.h"
#include "controls/check_field.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/guarded_window.h"
#include "lists/plain_list.h"
#include "look/message_window.h"
#include "look/themed_label.h"
#include "platform/engine/connection.h"
#include "platform/entry_rules.h"

#include <QGridLayout>

namespace lorvan {
namespace {

constexpr int listWidth = 140;
constexpr int betweenControls = 8;

EntryField* newField(QWidget* parent, const QString& objectName, const QString& name, const QString& tip)
{
    auto* const field = new EntryField(TypingRule::Any, parent);
    field->setObjectName(objectName);
    field->setAccessibleName(name);
    field->setToolTip(tip);
    return field;
}

void addLabelled(QGridLayout* grid, int row, int labelIndex, EntryField* field)
{
    auto* const label = new ThemedLabel(field->accessibleName(), ColourRole::PageText);
    label->setObjectName(QStringLiteral("Label1(%1)").arg(labelIndex));
    label->setBuddy(field);
    grid->addWidget(label, row, 0);
    grid->addWidget(field, row, 1);
}

} // namespace

UserMaintenance::UserMaintenance(BookFiles files, KeyRing& keys, Clock clock, QWidget* parent)
    : QGroupBox(QStringLiteral("Μεταβολή χρηστών"), parent)
    , m_files(std::move(files))
    , m_keys(keys)
    , m_clock(std::move(clock))
    , m_list(new PlainList(PlainList::Face::Desktop, this))
    , m_name(
          newField(this, QStringLiteral("Text1(2)"), QStringLiteral("Χρήστης"), QStringLiteral("Το όνομα του χρήστη")))
    , m_password(
          newField(this, QStringLiteral("Text1(3)"), QStringLiteral("Κωδικός"), QStringLiteral("Ο κωδικός πρόσβασης")))
    , m_checks{new CheckField(QStringLiteral("Να μεταβάλει τις εγγραφές του ταμείου"), this),
          new CheckField(QStringLiteral("Να κλήνει το ταμείο"), this),
          new CheckField(QStringLiteral("Να μεταβάλει ομάδες και κωδικούς"), this)}
{
    setObjectName(QStringLiteral("SSFrame1"));
    m_list->setObjectName(QStringLiteral("DBList1"));
    m_list->setToolTip(QStringLiteral("Περιέχει το σύνολο των χρηστών"));
    m_list->setAccessibleName(title());
    m_list->setEmptyText(QStringLiteral("Κανένας χρήστης ακόμη. Γράψτε το όνομα του πρώτου και Enter."));
    m_list->setFixedWidth(listWidth);
    m_password->setEchoMode(QLineEdit::Password);
    connectList();
}

void UserMaintenance::connectList()
{
    connect(m_list, &PlainList::clicked, this, [this](const QModelIndex& index) {
        show(index);
        offer(std::nullopt);
    });
    connect(m_list, &PlainList::opened, this, [this](const QModelIndex& index) {
        show(index);
        offer(userAt(index));
    });
    connect(m_list, &PlainList::removalAsked, this, [this](const QModelIndex& index) {
        if (m_offered && m_offered->row == userAt(index).row)
            Q_EMIT removalAsked();
    });
}

void UserMaintenance::layOut(const std::array<CommandButton*, 3>& commands)
{
    auto* const buttons = new QVBoxLayout;
    buttons->setSpacing(6);
    for (CommandButton* const command : commands)
        buttons->addWidget(command);
    buttons->addStretch(1);
    auto* const columns = new QHBoxLayout(this);
    columns->setContentsMargins(12, 9, 12, 9);
    columns->setSpacing(12);
    columns->addWidget(m_list);
    columns->addLayout(fields(), 1);
    columns->addLayout(buttons);
}

QLayout* UserMaintenance::fields()
{
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(betweenControls);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    addLabelled(grid, 0, 2, m_name);
    addLabelled(grid, 1, 3, m_password);
    int row = 2;
    for (QCheckBox* const check : m_checks) {
        check->setObjectName(QStringLiteral("SSCheck1(%1)").arg(row - 2));
        grid->addWidget(check, row++, 0, 1, 2);
    }
    grid->setRowStretch(row, 1);
    return grid;
}

void UserMaintenance::refill()
{
    fillList();
    offer(std::nullopt);
}

void UserMaintenance::fillList()
{
    m_users.clear();
    guarded(window(), [this] {
        const QString path = m_files.auxiliaryDatabase();
        Connection auxiliary = openBookFile(path, m_keys);
        m_users = listUsers(auxiliary);
    });
    std::vector<ListRow> rows;
    for (const UserAccount& user : m_users)
        rows.push_back({user.name, user.row});
    m_list->setRows(rows);
}

void UserMaintenance::offer(std::optional<UserAccount> user)
{
    m_offered = std::move(user);
    Q_EMIT offered(m_offered.has_value());
}

const UserAccount& UserMaintenance::userAt(const QModelIndex& index) const
{
    return m_users.at(static_cast<std::size_t>(index.row()));
}

void UserMaintenance::show(const QModelIndex& index)
{
    const UserAccount& user = userAt(index);
    m_name->setText(user.name);
    m_name->setCursorPosition(0);
    m_password->setText(user.password);
    m_checks[0]->setChecked(user.rights.modifyCash);
    m_checks[1]->setChecked(user.rights.closeCash);
    m_checks[2]->setChecked(user.rights.modifyCodes);
}

UserAccount UserMaintenance::typed() const
{
    return {0, m_name->text(), m_password->text(),
        {m_checks[0]->isChecked(), m_checks[1]->isChecked(), m_checks[2]->isChecked()}};
}

bool UserMaintenance::refusedAsIncomplete()
{
    if (isComplete(m_name->text(), m_password->text()))
        return false;
    showMessage(window(), QMessageBox::Information, QStringLiteral("Προσοχή"),
        QStringLiteral("Δεν έχετε δώσει το Ονομα του χρήστη ή το κωδικό του"));
    goBackTo(isComplete(m_name->text(), QStringLiteral("-")) ? *m_password : *m_name);
    return true;
}

bool UserMaintenance::write(const std::function<void(Connection&, const Authority&)>& change)
{
    const bool written = guarded(window(), [this, &change] {
        Connection book = openUnguarded(m_files, m_keys);
        change(book, Authority::administrator(m_clock));
    });
    if (written)
        fillList();
    return written;
}

void UserMaintenance::addUser()
{
    if (refusedAsIncomplete())
        return;
    const UserAccount user = typed();
    qint64 row = 0;
    if (!write([&](Connection& book, const Authority& authority) {
            row = lorvan::addUser(book, authority, user.name, user.password, user.rights);
        }))
        return;
    m_list->selectData(row);
    offer(std::nullopt);
}

void UserMaintenance::changeUser()
{
    if (!m_offered || refusedAsIncomplete())
        return;
    UserAccount user = typed();
    user.row = m_offered->row;
    bool isThere = false;
    if (!write([&](Connection& book, const Authority& authority) {
            isThere = lorvan::changeUser(book, authority, *m_offered, user);
        }))
        return;
    if (isThere && m_list->selectData(user.row))
        offer(userAt(m_list->currentIndex()));
    else
        tellThatUserIsGone();
}

void UserMaintenance::removeUser()
{
    if (!m_offered
        || !askOkCancel(window(), QMessageBox::Question, QStringLiteral("Διαγραφή χρήστη"),
            QStringLiteral("Να γίνει η διαγραφή του χρήστη; ")))
        return;
    bool wasThere = false;
    if (!write([&](Connection& book, const Authority& authority) {
            wasThere = lorvan::removeUser(book, authority, *m_offered);
        }))
        return;
    if (!wasThere)
        return tellThatUserIsGone();
    offer(std::nullopt);
    Q_EMIT removed();
}

void UserMaintenance::tellThatUserIsGone()
{
    offer(std::nullopt);
    showMessage(window(), QMessageBox::Warning, QStringLiteral("Προσοχή"),
        QStringLiteral("Ο χρήστης άλλαξε ή διαγράφηκε στο μεταξύ από άλλον υπολογιστή."));
}

} // namespace lorvan
