#pragma once

#include "start/program.h"
#include "support/files.h"
#include "support/temporary_book.h"
#include "windows/box_script.h"

namespace lorvan::test {

/// The whole program on a book of its own, from the path file on. Its day is 15 March 2024.
class ProgramTest : public testing::Test {
protected:
    ProgramTest()
    {
        book.addUser("Σοφία", "μυστικό");
        writeFile(pathFileName(), book.folder().toUtf8());
    }

    [[nodiscard]] QString pathFileName() const { return programFolder.filePath("DIADROMH.DAT"); }

    /// Starts the program: true when the sign-in window shows.
    bool start()
    {
        program = std::make_unique<Program>(programFolder.filePath("lorvan"), fixedClock());
        return program->start();
    }
    /// Starts it and waits for the sign-in window, which must come.
    void startToSignIn()
    {
        ASSERT_TRUE(start());
        waitForActive(loginWindow());
    }
    /// Types name and password into the sign-in window and presses Enter on its button.
    void signIn(const QString& name, const QString& password) const
    {
        user().enter(0, name);
        user().press(Qt::Key_Return);
        user().press(Qt::Key_Delete);
        user().type(password + "\n\n");
    }
    void signInAsSofia() const { signIn("Σοφία", "μυστικό"); }
    void startAsAdministrator()
    {
        startToSignIn();
        signIn("wardenly", "73816");
    }
    /// Goes to a button of the sign-in window and presses Enter.
    static void press(int command)
    {
        user().goTo(user().command(command));
        user().press(Qt::Key_Return);
    }

    /// True when the program ends its event loop within the scenario or soon after it.
    [[nodiscard]] bool endsIn(const std::function<void()>& scenario) const
    {
        constexpr int stillRunning = 99;
        QTimer limit; // of this call: a program may be started in the scenario, and the next test must not hear of it
        QObject::connect(&limit, &QTimer::timeout, qApp, [] { QApplication::exit(stillRunning); });
        limit.start(patience);
        QTimer::singleShot(0, qApp, scenario);
        return QApplication::exec() != stillRunning;
    }

    /// A shown window of the program; null when there is none.
    [[nodiscard]] static QWidget* shownWindow(const QString& objectName)
    {
        for (QWidget* const window : QApplication::topLevelWidgets())
            if (window->objectName() == objectName && window->isVisible())
                return window;
        return nullptr;
    }
    [[nodiscard]] static QWidget* mainWindow() { return shownWindow("kentrikh"); }
    [[nodiscard]] static QWidget& loginWindow()
    {
        if (QWidget* const window = shownWindow("Login"))
            return *window;
        throw std::runtime_error("no sign-in window");
    }
    [[nodiscard]] static Driver user() { return Driver(loginWindow()); } ///< At the sign-in window.

    /// The content of every file in the data folder, by name.
    [[nodiscard]] std::map<QString, QByteArray> files() const
    {
        std::map<QString, QByteArray> contents;
        for (const QString& name : QDir(book.folder()).entryList(QDir::Files))
            contents[name] = readFile(book.path(name));
        return contents;
    }
    [[nodiscard]] char markerState() const { return files().at("lorvan.dat").front(); }

    TemporaryBook book; ///< Its user Σοφία, with the password μυστικό, has no rights.
    QTemporaryDir programFolder;
    BoxScript boxes;
    std::unique_ptr<Program> program;
};

[[nodiscard]] inline ExpectedBox bookNotFound(const QString& details)
{
    return withDetails(stop("Προσοχή στο Path", "Δεν βρέθηκε η βάση δεδομένων, ενημερώστε το registry"), details);
}

} // namespace lorvan::test
