#pragma once

#include "book/book_files.h"
#include "controls/action_gate.h"
#include "controls/control_array.h"
#include "users/sign_in.h"

#include <QDialog>

class QLayout;

namespace lorvan {

class AdministrationRow;
class Clock;
class CommandButton;
class EntryField;
class KeyRing;
class SealsEntry;
class UserMaintenance;

/// The sign-in window. For the built-in administrator it also shows the list of users and the operations on the whole
/// book.
class Login : public QDialog {
    Q_OBJECT

public:
    /// `keys` must outlive the window.
    Login(BookFiles files, KeyRing& keys, const Clock& clock);

Q_SIGNALS:
    void signedIn(const lorvan::UserSession& session);
    void abandoned(); ///< The window was closed, or the users could not be read; the program has to end.

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Size { Compact, Enlarged };

    QWidget* nameStrip();
    QLayout* signInForm();
    QWidget* maintenanceArea(const Clock& clock);
    void addUserCommands(QWidget* parent);
    void addAdministrationCommands(QWidget* parent);
    EntryField* addField(int index, QWidget* parent, const QString& name, const QString& tip);
    CommandButton* addCommand(
        int index, const QString& icon, const QString& caption, const QString& tip, QWidget* parent);
    void setTabOrders();

    void connectCommands();
    void connectUsers();

    void setSize(Size size);
    void signInAsTyped();

    BookFiles m_files;
    KeyRing& m_keys;
    const ActionGate m_gate;
    ControlArray<EntryField> m_fields;
    ControlArray<CommandButton> m_commands;
    UserMaintenance* m_users = nullptr;
    AdministrationRow* m_administration = nullptr;
    SealsEntry* m_seals = nullptr;
    QWidget* m_maintenance;
};

} // namespace lorvan
