// From the press of "sign in" to the day on screen, against one key derivation plus an empty window in the same run.
#include "look/theme.h"
#include "start/program.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

using namespace lorvan;

double milliseconds(const std::function<void()>& action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Waits for the first painting of a widget.
class FirstPaint : public QObject {
public:
    explicit FirstPaint(std::function<bool(QObject*)> isWanted)
        : m_isWanted(std::move(isWanted))
    {
        qApp->installEventFilter(this);
    }

    void wait()
    {
        while (!m_seen)
            QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        m_seen = m_seen || (event->type() == QEvent::Paint && m_isWanted(watched));
        return false;
    }

private:
    std::function<bool(QObject*)> m_isWanted;
    bool m_seen = false;
};

double emptyWindow()
{
    return milliseconds([] {
        QWidget window;
        window.resize(788, 541);
        FirstPaint paint([&window](QObject* painted) { return painted == &window; });
        window.show();
        paint.wait();
    });
}

double derivation()
{
    return milliseconds([] { (void)FileKey::derive(bookPassword(), QByteArray(16, 's')); });
}

template <typename Widget> Widget* control(const QString& window, const QString& name)
{
    for (QWidget* const top : QApplication::topLevelWidgets()) {
        if (top->isVisible() && top->objectName() == window)
            return top->findChild<Widget*>(name);
    }
    return nullptr;
}

/// The program folder holds the path file and a file named lorvan that stands for the executable.
double signIn(const QString& programFolder, const QString& user, const QString& password)
{
    Program program(programFolder + QStringLiteral("/lorvan"), Clock());
    if (!program.start())
        return 0;
    control<QLineEdit>(QStringLiteral("Login"), QStringLiteral("Text1(0)"))->setText(user);
    control<QLineEdit>(QStringLiteral("Login"), QStringLiteral("Text1(1)"))->setText(password);
    QElapsedTimer typing;
    typing.start();
    while (typing.elapsed() < 500) // a user types; both keys are derived meanwhile
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    auto* const button = control<QAbstractButton>(QStringLiteral("Login"), QStringLiteral("Command1(0)"));
    return milliseconds([button] {
        FirstPaint paint([](QObject* painted) {
            return painted->parent() && painted->parent()->objectName() == QStringLiteral("List1");
        });
        button->click();
        paint.wait();
    });
}

} // namespace

int main(int argumentCount, char** arguments)
{
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    Theme::install(application);
    const QStringList words = QApplication::arguments();
    if (words.size() < 4) {
        std::fputs("usage: lorvan-sign-in-bench PROGRAM_FOLDER USER PASSWORD\n", stderr);
        return 2;
    }
    std::vector<double> derivations;
    std::vector<double> windows;
    std::vector<double> signIns;
    for (int round = 0; round < 7; ++round) {
        derivations.push_back(derivation());
        windows.push_back(emptyWindow());
        signIns.push_back(signIn(words[1], words[2], words[3]));
    }
    const auto print = [](const char* which, double derived, double window, double day) {
        std::printf("%s: key derivation %.1f ms, empty window %.1f ms, sign-in to day on screen %.1f ms, ratio %.2f\n",
            which, derived, window, day, day / (derived + window));
    };
    print("first ", derivations.front(), windows.front(), signIns.front());
    print("median", median(derivations), median(windows), median(signIns));
    return 0;
}
