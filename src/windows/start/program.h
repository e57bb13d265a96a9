#pragma once

#include "book/book_files.h"
#include "book/startup.h"
#include "platform/clock.h"
#include "platform/engine/key_ring.h"
#include "platform/files/instance_guard.h"
#include "users/sign_in.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace lorvan {

class HelpWindow;
class Kentrikh;
class Login;

/// The running program: the start, the sign-in window and, after it, the main window. When either window ends, so does
/// the process's event loop.
class Program : public QObject {
    Q_OBJECT

public:
    /// `programFile` is the executable; its folder contains the path file.
    Program(const QString& programFile, Clock clock);
    ~Program() override;

    /// Shows the sign-in window, or says why it cannot. Returns false if the process is to end; if another instance is
    /// running, no message is shown, but that instance is asked to come to the front.
    [[nodiscard]] bool start();

    /// The program that this process is to become after its end, with its options; empty if there is none.
    [[nodiscard]] QStringList next() const;

    /// Ends the program properly, as closing the main window does.
    void end();

private:
    bool announce(const StartDecision& decision);
    void showSignIn();
    void openMainWindow(const UserSession& session);

    QString m_programFile;
    Clock m_clock;
    InstanceGuard m_instance;
    DataFolderSettings m_settings;
    KeyRing m_keys;
    QString m_backup; ///< What the door has to put in the place of the book after the end; empty if nothing.
    std::unique_ptr<Login> m_login;
    std::unique_ptr<HelpWindow> m_help; ///< At the sign-in; a child of that window.
    std::unique_ptr<Kentrikh> m_mainWindow;
};

} // namespace lorvan
