#include "users/login.h"

#include "book/lock_trust.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/guarded_window.h"
#include "controls/path_label.h"
#include "lists/plain_list.h"
#include "look/focus_rules.h"
#include "look/ground_frame.h"
#include "look/icons.h"
#include "look/message_window.h"
#include "look/themed_label.h"
#include "look/window_placement.h"
#include "platform/engine/connection.h"
#include "users/administration_row.h"
#include "users/administrator_tools.h"
#include "users/user_accounts.h"
#include "users/user_maintenance.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace lorvan {
namespace {

enum Field { Name, Password };
enum Command { SignIn, End, AddUser, ChangeUser, RemoveUser, Unlock, CloseDays, DeleteData };

constexpr int windowWidth = 640;
constexpr int compactHeight = 155;
constexpr int enlargedHeight = 400;
constexpr int margin = 16;
constexpr int betweenControls = 8;
constexpr int stripWidth = 172;
constexpr int stripIcon = 48;
constexpr int signInWidth = 124;

ThemedLabel* labelFor(int index, const QString& text, QWidget* buddy)
{
    auto* const label = new ThemedLabel(text, ColourRole::PageText);
    label->setObjectName(QStringLiteral("Label1(%1)").arg(index));
    label->setBuddy(buddy);
    return label;
}

/// In a larger font the caption may need more than that.
void widenTo(int width, CommandButton* button)
{
    button->setMinimumWidth(std::max(width, button->sizeHint().width()));
}

} // namespace

Login::Login(BookFiles files, KeyRing& keys, const Clock& clock)
    : m_files(std::move(files))
    , m_keys(keys)
    , m_gate(this)
    , m_fields(QStringLiteral("Text1"))
    , m_commands(QStringLiteral("Command1"))
{
    setObjectName(QStringLiteral("Login"));
    setWindowTitle(QStringLiteral("Δώστε κωδικό πρόσβασης."));

    auto* const top = new QHBoxLayout;
    top->setSpacing(0);
    top->addWidget(nameStrip());
    top->addLayout(signInForm(), 1);

    m_maintenance = scrolling(maintenanceArea(clock));
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    rows->addLayout(top);
    rows->addWidget(m_maintenance, 1);
    setTabOrders();

    connectCommands();
    connectUsers();
    for (const int onlyForSelected : {ChangeUser, RemoveUser})
        m_commands[onlyForSelected]->setEnabled(false);
    setSize(Size::Compact);
    centreOnWorkArea(this);
    m_fields[Name]->setFocus(Qt::OtherFocusReason);
}

QWidget* Login::nameStrip()
{
    auto* const strip = new GroundFrame(ColourRole::Band, GroundFrame::Separator::Right, this);
    strip->setFixedWidth(stripWidth);
    strip->setMinimumHeight(compactHeight); // of the enlarged window too, so that nothing moves
    auto* const rows = new QVBoxLayout(strip);
    rows->setSpacing(betweenControls);
    rows->addStretch(1);
    rows->addWidget(new IconView(QStringLiteral("daybook"), ColourRole::Accent, stripIcon), 0, Qt::AlignHCenter);
    rows->addWidget(
        new ThemedLabel(QStringLiteral("Lorvan"), ColourRole::Text, 1.45, QFont::Bold), 0, Qt::AlignHCenter);
    rows->addStretch(1);
    return strip;
}

EntryField* Login::addField(int index, QWidget* parent, const QString& name, const QString& tip)
{
    auto* const field = m_fields.add(index, new EntryField(TypingRule::Any, parent));
    field->setAccessibleName(name);
    field->setToolTip(tip);
    return field;
}

CommandButton* Login::addCommand(
    int index, const QString& icon, const QString& caption, const QString& tip, QWidget* parent)
{
    auto* const button = m_commands.add(index, new CommandButton(icon, caption, parent));
    button->setToolTip(tip);
    return button;
}

QLayout* Login::signInForm()
{
    EntryField* const name = addField(Name, this, QStringLiteral("Χρήστης"), QStringLiteral("Το όνομα του χρήστη"));
    EntryField* const password =
        addField(Password, this, QStringLiteral("Κωδικός"), QStringLiteral("Ο κωδικός του χρήστη"));
    password->setEchoMode(QLineEdit::Password);
    CommandButton* const signIn = addCommand(SignIn, QStringLiteral("key"), QStringLiteral("Σύνδεση"),
        QStringLiteral("Ελεγχος για σωστό Ονομα/κωδικό"), this);
    signIn->setLook(CommandButton::Look::Solid);
    CommandButton* const end = addCommand(
        End, QStringLiteral("exit"), QStringLiteral("Εξοδος"), QStringLiteral("Τερματισμός του προγράμματος"), this);
    end->setLook(CommandButton::Look::Quiet);
    widenTo(signInWidth, signIn);
    widenTo(signInWidth, end);

    auto* const grid = new QGridLayout;
    grid->setContentsMargins(20, 0, margin, 0);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(10);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(0, 1);
    grid->setRowStretch(3, 1);
    grid->addWidget(labelFor(Name, QStringLiteral("Χρήστης"), name), 1, 0);
    grid->addWidget(name, 1, 1);
    grid->addWidget(signIn, 1, 2);
    grid->addWidget(labelFor(Password, QStringLiteral("Κωδικός "), password), 2, 0);
    grid->addWidget(password, 2, 1);
    grid->addWidget(end, 2, 2);
    return grid;
}

/// On a small screen the lower part scrolls, and follows the focus.
QScrollArea* Login::scrolling(QWidget* part)
{
    auto* const area = new QScrollArea(this);
    area->setWidget(part);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    connect(qApp, &QApplication::focusChanged, area, [area](QWidget*, QWidget* now) {
        if (area->isAncestorOf(now))
            area->ensureWidgetVisible(now);
    });
    return area;
}

QWidget* Login::maintenanceArea(const Clock& clock)
{
    auto* const area = new GroundFrame(ColourRole::Page, GroundFrame::Separator::Top, this);
    auto* const rows = new QVBoxLayout(area);
    rows->setContentsMargins(margin, betweenControls, margin, 12);
    rows->setSpacing(betweenControls);
    m_users = new UserMaintenance(m_files, m_keys, clock, area);
    addUserCommands(m_users);
    m_users->layOut({m_commands[AddUser], m_commands[ChangeUser], m_commands[RemoveUser]});
    rows->addWidget(m_users, 1);
    m_administration = new AdministrationRow(m_files, m_keys, clock, area);
    addAdministrationCommands(m_administration);
    m_tools = new AdministratorTools(m_files, m_keys, clock, m_gate, m_administration);
    connect(m_tools, &AdministratorTools::restoreAsked, this, &Login::restoreAsked);
    m_administration->layOut({m_commands[Unlock], m_commands[CloseDays], m_commands[DeleteData]}, m_tools);
    rows->addWidget(m_administration);
    return area;
}

void Login::addUserCommands(QWidget* parent)
{
    addCommand(AddUser, QStringLiteral("insert"), QStringLiteral("Εισαγωγή"),
        QStringLiteral("Εισάγει το νεο χρήστη στη βάση"), parent);
    addCommand(ChangeUser, QStringLiteral("modify"), QStringLiteral("Μεταβολή"),
        QStringLiteral("Μεταβολή στοιχείων του χρήστη"), parent);
    addCommand(RemoveUser, QStringLiteral("delete"), QStringLiteral("Διαγραφή"),
        QStringLiteral("Διαγράφει το χρήστη από τη βάση"), parent)
        ->setLook(CommandButton::Look::Danger);
    for (const int index : {AddUser, ChangeUser, RemoveUser})
        widenTo(signInWidth, m_commands[index]);
}

void Login::addAdministrationCommands(QWidget* parent)
{
    addCommand(Unlock, QStringLiteral("unlock"), {}, QStringLiteral("Ξεκλείδωμα βάσης"), parent)
        ->setAccessibleName(QStringLiteral("Ξεκλείδωμα βάσης"));
    addCommand(CloseDays, QStringLiteral("closecash"), QStringLiteral("Ταμεία"),
        QStringLiteral("Κλείσιμο ανοικτών ταμείων"), parent);
    addCommand(DeleteData, QStringLiteral("delete"), QStringLiteral("Διαγραφή βάσης"),
        QStringLiteral("Διαγραφή όλων των στοιχείων της βάσης"), parent)
        ->setLook(CommandButton::Look::Danger);
}

void Login::setTabOrders()
{
    const auto& checks = m_users->checks();
    chainTabOrder({m_fields[Name], m_fields[Password], m_commands[SignIn], m_commands[End], m_users->list(),
        m_users->name(), m_users->password(), checks[0], checks[1], checks[2], m_commands[AddUser],
        m_commands[ChangeUser], m_commands[RemoveUser], m_commands[Unlock], m_commands[CloseDays],
        m_administration->copyPath(), m_commands[DeleteData], m_tools});
}

void Login::connectCommands()
{
    m_gate.connect(m_commands[SignIn], {}, [this] { signInAsTyped(); });
    m_gate.connect(m_commands[End], {}, [this] { Q_EMIT abandoned(); });
    const auto connectTo = [this](int index, auto* part, auto operation) {
        m_gate.connect(m_commands[index], {}, [this, part, operation] {
            (part->*operation)();
            tellUnconfirmed(this);
        });
    };
    connectTo(AddUser, m_users, &UserMaintenance::addUser);
    connectTo(ChangeUser, m_users, &UserMaintenance::changeUser);
    connectTo(RemoveUser, m_users, &UserMaintenance::removeUser);
    connectTo(Unlock, m_administration, &AdministrationRow::unlock);
    connectTo(CloseDays, m_administration, &AdministrationRow::closeDays);
    connectTo(DeleteData, m_administration, &AdministrationRow::deleteData);
}

void Login::connectUsers()
{
    connect(m_users, &UserMaintenance::offered, this, [this](bool isOffered) {
        const QWidget* const focused = focusWidget();
        if (!isOffered && (focused == m_commands[ChangeUser] || focused == m_commands[RemoveUser]))
            m_users->list()->setFocus(Qt::OtherFocusReason); // or it would go on to the button that unlocks
        m_commands[ChangeUser]->setEnabled(isOffered);
        m_commands[RemoveUser]->setEnabled(isOffered);
    });
    connect(m_users, &UserMaintenance::removalAsked, m_commands[RemoveUser], &CommandButton::click);
    connect(m_users, &UserMaintenance::removed, this, [this] {
        for (EntryField* const field : {m_fields[Name], m_fields[Password], m_users->name(), m_users->password()})
            field->clear();
    });
}

/// With room for the scroll bar where the screen is too low for all of it.
QSize Login::enlarged() const
{
    const QSize part = m_maintenance->widget()->minimumSizeHint();
    const int height = std::max(enlargedHeight, compactHeight + part.height());
    const int bar = height > roomFor(this).height() ? m_maintenance->verticalScrollBar()->sizeHint().width() : 0;
    return {std::max(windowWidth, part.width()) + bar, height};
}

void Login::setSize(Size size)
{
    m_maintenance->setVisible(size == Size::Enlarged);
    const QSize wanted = size == Size::Enlarged ? enlarged() : QSize(windowWidth, compactHeight);
    setMinimumSize(0, 0);
    layout()->activate();
    sizeWithin(this, wanted);
    keepOnWorkArea(this);
}

void Login::signInAsTyped()
{
    const QString name = m_fields[Name]->text();
    const QString password = m_fields[Password]->text();
    if (isBuiltInAdministrator(name, password)) {
        setSize(Size::Enlarged);
        m_users->refill();
        return;
    }
    setSize(Size::Compact);
    QString details;
    try {
        const QString users = m_files.auxiliaryDatabase();
        Connection auxiliary = openBookFile(users, m_keys);
        if (const auto session = signIn(auxiliary, name, password)) {
            Q_EMIT signedIn(*session);
            return;
        }
        if (listUsers(auxiliary).empty())
            details = QStringLiteral("Το βιβλίο δεν έχει ακόμη χρήστες. Προσθέστε τον πρώτο από τα «Βιβλία…».");
    } catch (const std::exception& failure) {
        showStartFailure(failure);
        Q_EMIT abandoned();
        return;
    }
    showMessage(this, QMessageBox::Information, QStringLiteral("Εισαγωγή Ονόματος / κωδικού"),
        QStringLiteral("Εχετε δώσει λάθος Ονομα ή κωδικό "), details);
    goBackTo(*m_fields[Name]);
}

void Login::offerRestore(const QString& heading)
{
    m_tools->offerRestore(heading);
}

void Login::hideEvent(QHideEvent* event)
{
    m_tools->cancel();
    QDialog::hideEvent(event);
}

void Login::closeEvent(QCloseEvent* event)
{
    event->accept();
    Q_EMIT abandoned();
}

void Login::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event))
        focusNextPrevChild(true);
    else
        event->ignore(); // Escape would end the program
}

} // namespace lorvan
