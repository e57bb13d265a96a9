// From the click on the tab to the painted codes page, with 5,000 codes in 500 groups.
#include "codes/code_catalogue.h"
#include "controls/main_controls.h"
#include "look/theme.h"
#include "main/kentrikh.h"
#include "platform/engine/transaction.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <QTabBar>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <set>
#include <vector>

namespace {

using namespace lorvan;

constexpr int codeCount = 5000;
constexpr int groupCount = 500;
constexpr int rounds = 31;
constexpr double targetMilliseconds = 50;

void addGroups(Connection& main)
{
    for (int group = 1; group <= groupCount; ++group)
        main.prepare("INSERT INTO omades (aa, perigrafh) VALUES (?,?)")
            .bind(group, QStringLiteral("Ομάδα κωδικών %1").arg(group))
            .run();
}

void addCodes(Connection& main)
{
    for (int code = 1; code <= codeCount; ++code) {
        const QString description = QStringLiteral("Κωδικός κίνησης %1").arg(code);
        const int group = code % (groupCount + 1); // some are without a group, and listed as such
        main.prepare("INSERT INTO kvdikoi (kvdikos, perigrafh, omada, aa_omadas, lista, esodo, energos)"
                     " VALUES (?,?,?,?,?,?,?)")
            .bind(code, description, QStringLiteral("Ομάδα κωδικών %1").arg(group), group,
                codeListLine(QString::number(code), description), code % 2 == 0, true)
            .run();
    }
}

Book filledBook(const BookFiles& files, KeyRing& keys)
{
    createBook(files);
    const auto open = [&keys](const QString& path) {
        return Connection::open(path, keys.keyFor(path), Connection::Access::ReadWrite);
    };
    Connection main = open(files.mainDatabase());
    {
        Transaction transaction(main, Authority::companion());
        addGroups(main);
        addCodes(main);
        transaction.commit();
    }
    return {std::move(main), open(files.auxiliaryDatabase())};
}

/// Waits until each of the page's lists has been painted.
class PaintOfLists : public QObject {
public:
    explicit PaintOfLists(const QWidget& window)
    {
        for (const char* const name : {"DBList1(0)", "DBList1(1)", "DBList1(2)"})
            m_missing.insert(window.findChild<QListView*>(QString::fromLatin1(name))->viewport());
        qApp->installEventFilter(this);
    }

    void wait() const
    {
        while (!m_missing.empty())
            QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            m_missing.erase(watched);
        return false;
    }

private:
    std::set<const QObject*> m_missing;
};

double openCodesPage(const QWidget& window, QTabBar& tabs)
{
    tabs.setCurrentIndex(tab::cashBook);
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents();
    const PaintOfLists paint(window);
    QElapsedTimer timer;
    timer.start();
    tabs.setCurrentIndex(tab::codes);
    paint.wait();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void run()
{
    const QTemporaryDir folder;
    const BookFiles files(folder.path());
    KeyRing keys(bookPassword());
    DataFolderSettings settings;
    settings.dataFolder = folder.path();
    Kentrikh window(filledBook(files, keys),
        UsageMarker(files.usageMarker(), {QStringLiteral("user"), QStringLiteral("bench")}), Authority::companion(),
        settings, Clock(), keys);
    window.initialise();
    window.show();
    auto& tabs = *window.findChild<QTabBar*>(QStringLiteral("Tab1"));
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round)
        times.push_back(openCodesPage(window, tabs));
    const double first = times.front();
    std::sort(times.begin(), times.end());
    const double median = times[times.size() / 2];
    std::printf("codes page, %d codes, %d groups: first %.1f ms, median %.1f ms, target %.0f ms%s\n", codeCount,
        groupCount, first, median, targetMilliseconds, first > targetMilliseconds ? "  MISSED" : "");
}

} // namespace

int main(int argumentCount, char** arguments)
{
    const QApplication application(argumentCount, arguments);
    Theme::instance();
    try {
        run();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
