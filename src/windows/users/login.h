#pragma once

#include "book/book_files.h"
#include "controls/action_gate.h"
#include "controls/control_array.h"
#include "users/sign_in.h"

#include <QDialog>

class QLayout;
class QScrollArea;

namespace lorvan {

class AdministrationRow;
class AdministratorTools;
class Clock;
class CommandButton;
class EntryField;
class KeyRing;
class UserMaintenance;

/// The sign-in window. For the built-in administrator it also shows the list of users and the operations on the whole
/// book.
class Login : public QDialog {
    Q_OBJECT

public:
    /// `keys` must outlive the window.
    Login(BookFiles files, KeyRing& keys, const Clock& clock);

    /// The administrator may choose a backup for the place of the book, whose name is `heading`.
    void offerRestore(const QString& heading);

Q_SIGNALS:
    void signedIn(const lorvan::UserSession& session);
    void restoreAsked(const QString& backup); ///< The program has to end and leave the rest to the door.
    void abandoned(); ///< The window was closed, or the users could not be read; the program has to end.

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    enum class Size { Compact, Enlarged };

    QWidget* nameStrip();
    QLayout* signInForm();
    QWidget* maintenanceArea(const Clock& clock);
    QScrollArea* scrolling(QWidget* part);
    void addUserCommands(QWidget* parent);
    void addAdministrationCommands(QWidget* parent);
    EntryField* addField(int index, QWidget* parent, const QString& name, const QString& tip);
    CommandButton* addCommand(
        int index, const QString& icon, const QString& caption, const QString& tip, QWidget* parent);
    void setTabOrders();

    void connectCommands();
    void connectUsers();

    [[nodiscard]] QSize enlarged() const;
    void setSize(Size size);
    void signInAsTyped();

    BookFiles m_files;
    KeyRing& m_keys;
    const ActionGate m_gate;
    ControlArray<EntryField> m_fields;
    ControlArray<CommandButton> m_commands;
    UserMaintenance* m_users = nullptr;
    AdministrationRow* m_administration = nullptr;
    AdministratorTools* m_tools = nullptr;
    QScrollArea* m_maintenance;
};

} // namespace lorvan
