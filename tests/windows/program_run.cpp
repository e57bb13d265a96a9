#include "windows/program_run.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QTimer>

namespace lorvan::test {

ProgramTest::ProgramTest()
{
    book.addUser(QStringLiteral("Σοφία"), QStringLiteral("μυστικό"));
    writePathFile(book.folder().toUtf8());
}

void ProgramTest::writePathFile(const QByteArray& content) const
{
    QFile file(pathFileName());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

bool ProgramTest::start()
{
    program = std::make_unique<Program>(programFolder.filePath(QStringLiteral("lorvan")), fixedClock());
    return program->start();
}

void ProgramTest::startToSignIn()
{
    ASSERT_TRUE(start());
    ASSERT_NE(shownWindow(QStringLiteral("Login")), nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&loginWindow()));
}

void ProgramTest::signIn(const QString& name, const QString& password) const
{
    const Driver user(loginWindow());
    user.enter(0, name);
    user.press(Qt::Key_Return);
    user.press(Qt::Key_Delete);
    user.type(password);
    user.press(Qt::Key_Return);
    user.press(Qt::Key_Return);
}

bool ProgramTest::endsIn(const std::function<void()>& scenario) const
{
    constexpr int stillRunning = 99;
    constexpr std::chrono::seconds patience{60}; // only where it does not end at all
    QTimer limit; // of this call: a program may be started in the scenario, and the next test must not hear of it
    QObject::connect(&limit, &QTimer::timeout, qApp, [] { QApplication::exit(stillRunning); });
    limit.start(patience);
    QTimer::singleShot(0, qApp, scenario);
    return QApplication::exec() != stillRunning;
}

QWidget* ProgramTest::shownWindow(const QString& objectName)
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == objectName && window->isVisible())
            return window;
    }
    return nullptr;
}

QWidget& ProgramTest::loginWindow()
{
    QWidget* const window = shownWindow(QStringLiteral("Login"));
    if (!window)
        throw std::runtime_error("no sign-in window");
    return *window;
}

std::map<QString, QByteArray> ProgramTest::files() const
{
    std::map<QString, QByteArray> contents;
    for (const QString& name : QDir(book.folder()).entryList(QDir::Files)) {
        QFile file(book.path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        contents[name] = file.readAll();
    }
    return contents;
}

ExpectedBox bookNotFound(const QString& details)
{
    return withDetails(stop(QStringLiteral("Προσοχή στο Path"),
                           QStringLiteral("Δεν βρέθηκε η βάση δεδομένων, ενημερώστε το registry")),
        details);
}

} // namespace lorvan::test
