#pragma once

#include "book/book_files.h"
#include "book/startup.h"
#include "platform/clock.h"
#include "platform/engine/key_ring.h"
#include "platform/files/instance_guard.h"
#include "users/sign_in.h"

#include <QObject>

#include <memory>

namespace lorvan {

class Kentrikh;
class Login;

/// The running program: the start, the sign-in window and, after it, the main window. Ending either window ends the
/// process's event loop.
class Program : public QObject {
    Q_OBJECT

public:
    /// `programFile` is the executable; its folder holds the path file.
    Program(const QString& programFile, Clock clock);
    ~Program() override;

    /// Shows the sign-in window, or says why not. False when the process is to end; without a word where another
    /// instance runs, which is asked to come forward.
    [[nodiscard]] bool start();

    /// Ends the program in good order, as closing the main window does.
    void end();

private:
    void comeForward(const QByteArray& token);
    bool announce(const StartDecision& decision);
    void showSignIn();
    void openMainWindow(const UserSession& session);

    QString m_programFile;
    Clock m_clock;
    InstanceGuard m_instance;
    DataFolderSettings m_settings;
    KeyRing m_keys;
    std::unique_ptr<Login> m_login;
    std::unique_ptr<Kentrikh> m_mainWindow;
};

} // namespace lorvan
