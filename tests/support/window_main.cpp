#include "controls/alt_keys.h"
#include "look/busy_pointer.h"
#include "look/theme.h"

#include <QApplication>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

/// Whether a loop runs until it is told to end. After a call of exit() outside exec() every loop ends at once, and no
/// dialog waits for an answer any more.
bool loopsRun()
{
    constexpr int told = 1;
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&loop] { loop.exit(told); });
    return loop.exec() == told;
}

/// What a test leaves in the application would fail those that come after it in the same process.
class LeavesNothing : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo& /*test*/) override
    {
        EXPECT_FALSE(lorvan::BusyPointer::isShown()) << "the busy pointer is left behind";
        EXPECT_TRUE(loopsRun()) << "the application is left ending";
    }
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir configuration; // or a test would write the settings of whoever runs it
    qputenv("XDG_CONFIG_HOME", configuration.path().toUtf8());
    qputenv("XDG_STATE_HOME", configuration.path().toUtf8());
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false); // as in the program
    lorvan::Theme::install(application);
    lorvan::installAltKeys(application);
    testing::UnitTest::GetInstance()->listeners().Append(new LeavesNothing);
    return RUN_ALL_TESTS();
}
