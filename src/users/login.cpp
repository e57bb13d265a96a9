#include "users/login.h"

#include "app/start_failure_window.h"
#include "controls/busy_pointer.h"
#include "controls/check_field.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/ground_frame.h"
#include "controls/icons.h"
#include "controls/plain_list.h"
#include "controls/themed_label.h"
#include "controls/window_placement.h"
#include "platform/connection.h"
#include "platform/message_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace lorvan {
namespace {

enum Field { Name, Password, EditedName, EditedPassword };
enum Command { SignIn, End, AddUser, ChangeUser, RemoveUser, Unlock, CloseDays, DeleteData };

constexpr int windowWidth = 640;
constexpr int compactHeight = 155;
constexpr int enlargedHeight = 400;
constexpr int margin = 16;
constexpr int betweenControls = 8;
constexpr int stripWidth = 172;
constexpr int stripIcon = 48;
constexpr int signInWidth = 124;
constexpr int listWidth = 140;

ThemedLabel* labelFor(int index, const QString& text, QWidget* buddy)
{
    auto* const label = new ThemedLabel(text, ColourRole::PageText);
    label->setObjectName(QStringLiteral("Label1(%1)").arg(index));
    label->setBuddy(buddy);
    return label;
}

} // namespace

Login::Login(BookFiles files, KeyRing& keys)
    : m_files(std::move(files))
    , m_keys(keys)
    , m_fields(QStringLiteral("Text1"))
    , m_commands(QStringLiteral("Command1"))
{
    setObjectName(QStringLiteral("Login"));
    setWindowTitle(QStringLiteral("Δώστε κωδικό πρόσβασης."));

    auto* const top = new QHBoxLayout;
    top->setSpacing(0);
    top->addWidget(nameStrip());
    top->addLayout(signInForm(), 1);

    m_maintenance = maintenanceArea();
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    rows->addLayout(top, 1);
    rows->addWidget(m_maintenance);
    setTabOrders();

    connect(m_commands[SignIn], &CommandButton::clicked, this, &Login::signInAsTyped);
    connect(m_commands[End], &CommandButton::clicked, this, &Login::abandoned);
    setSize(Size::Compact);
    centreOnWorkArea(this);
    m_fields[Name]->setFocus(Qt::OtherFocusReason);
}

QWidget* Login::nameStrip()
{
    auto* const strip = new GroundFrame(ColourRole::Band, GroundFrame::Separator::Right, this);
    strip->setFixedWidth(stripWidth);
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
    signIn->setMinimumWidth(signInWidth);
    end->setMinimumWidth(signInWidth);

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

QWidget* Login::maintenanceArea()
{
    auto* const area = new GroundFrame(ColourRole::Page, GroundFrame::Separator::Top, this);
    auto* const rows = new QVBoxLayout(area);
    rows->setContentsMargins(margin, betweenControls, margin, 12);
    rows->setSpacing(betweenControls);
    rows->addWidget(userFrame(), 1);
    rows->addLayout(administrationRow(area));
    area->setEnabled(false);
    return area;
}

QGroupBox* Login::userFrame()
{
    auto* const frame = new QGroupBox(QStringLiteral("Μεταβολή χρηστών"));
    frame->setObjectName(QStringLiteral("SSFrame1"));
    auto* const list = new PlainList(PlainList::Face::Desktop, frame);
    list->setObjectName(QStringLiteral("DBList1"));
    list->setToolTip(QStringLiteral("Περιέχει το σύνολο των χρηστών"));
    list->setFixedWidth(listWidth);
    auto* const columns = new QHBoxLayout(frame);
    columns->setSpacing(12);
    columns->addWidget(list);
    columns->addLayout(userFields(frame), 1);
    columns->addLayout(userCommands(frame));
    return frame;
}

QLayout* Login::userFields(QWidget* parent)
{
    EntryField* const name =
        addField(EditedName, parent, QStringLiteral("Χρήστης"), QStringLiteral("Το όνομα του χρήστη"));
    EntryField* const password =
        addField(EditedPassword, parent, QStringLiteral("Κωδικός"), QStringLiteral("Ο κωδικός πρόσβασης"));
    password->setEchoMode(QLineEdit::Password);
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(betweenControls);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    grid->addWidget(labelFor(EditedName, QStringLiteral("Χρήστης"), name), 0, 0);
    grid->addWidget(name, 0, 1);
    grid->addWidget(labelFor(EditedPassword, QStringLiteral("Κωδικός"), password), 1, 0);
    grid->addWidget(password, 1, 1);
    int row = 2;
    for (const QString& right : {QStringLiteral("Να μεταβάλει τις εγγραφές του ταμείου"),
             QStringLiteral("Να κλήνει το ταμείο"), QStringLiteral("Να μεταβάλει ομάδες και κωδικούς")}) {
        auto* const check = new CheckField(right, parent);
        check->setObjectName(QStringLiteral("SSCheck1(%1)").arg(row - 2));
        grid->addWidget(check, row++, 0, 1, 2);
    }
    grid->setRowStretch(row, 1);
    return grid;
}

QLayout* Login::userCommands(QWidget* parent)
{
    auto* const column = new QVBoxLayout;
    column->setSpacing(6);
    column->addWidget(addCommand(AddUser, QStringLiteral("insert"), QStringLiteral("Εισαγωγή"),
        QStringLiteral("Εισάγει το νεο χρήστη στη βάση"), parent));
    column->addWidget(addCommand(ChangeUser, QStringLiteral("modify"), QStringLiteral("Μεταβολή"),
        QStringLiteral("Μεταβολή στοιχείων του χρήστη"), parent));
    column->addWidget(addCommand(RemoveUser, QStringLiteral("delete"), QStringLiteral("Διαγραφή"),
        QStringLiteral("Διαγράφει το χρήστη από τη βάση"), parent));
    m_commands[RemoveUser]->setLook(CommandButton::Look::Danger);
    for (const int index : {AddUser, ChangeUser, RemoveUser})
        m_commands[index]->setMinimumWidth(signInWidth);
    column->addStretch(1);
    return column;
}

QLayout* Login::administrationRow(QWidget* parent)
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(betweenControls);
    CommandButton* const unlock =
        addCommand(Unlock, QStringLiteral("unlock"), {}, QStringLiteral("Ξεκλείδωμα βάσης"), parent);
    unlock->setAccessibleName(QStringLiteral("Ξεκλείδωμα βάσης"));
    row->addWidget(unlock);
    row->addWidget(addCommand(CloseDays, QStringLiteral("closecash"), QStringLiteral("Ταμεία"),
        QStringLiteral("Κλείσιμο ανοικτών ταμείων"), parent));
    row->addStretch(1);
    row->addWidget(addCommand(DeleteData, QStringLiteral("delete"), QStringLiteral("Διαγραφή βάσης"),
        QStringLiteral("Διαγραφή όλων των στοιχείων της βάσης"), parent));
    m_commands[DeleteData]->setLook(CommandButton::Look::Danger);
    return row;
}

void Login::setTabOrders()
{
    setTabOrder(m_fields[Name], m_fields[Password]);
    setTabOrder(m_fields[Password], m_commands[SignIn]);
    setTabOrder(m_commands[SignIn], m_commands[End]);
}

void Login::setSize(Size size)
{
    m_maintenance->setVisible(size == Size::Enlarged);
    const int height = size == Size::Enlarged ? enlargedHeight : compactHeight;
    setMinimumSize(0, 0);
    sizeWithin(this, {windowWidth, height});
}

void Login::signInAsTyped()
{
    if (BusyPointer::isShown())
        return;
    const BusyPointer busy;
    const QString name = m_fields[Name]->text();
    const QString password = m_fields[Password]->text();
    if (isBuiltInAdministrator(name, password)) {
        setSize(Size::Enlarged);
        return;
    }
    setSize(Size::Compact);
    try {
        const QString users = m_files.auxiliaryDatabase();
        Connection auxiliary = Connection::open(users, m_keys.keyFor(users), Connection::Access::ReadOnly);
        if (const auto session = signIn(auxiliary, name, password)) {
            Q_EMIT signedIn(*session);
            return;
        }
    } catch (const std::exception& failure) {
        showStartFailure(failure);
        Q_EMIT abandoned();
        return;
    }
    showMessage(this, QMessageBox::Information, QStringLiteral("Εισαγωγή Ονόματος / κωδικού"),
        QStringLiteral("Εχετε δώσει λάθος Ονομα ή κωδικό "));
    m_fields[Name]->setFocus(Qt::OtherFocusReason);
}

void Login::closeEvent(QCloseEvent* event)
{
    event->accept();
    Q_EMIT abandoned();
}

void Login::keyPressEvent(QKeyEvent* event)
{
    event->ignore(); // Escape would end the program
}

} // namespace lorvan
