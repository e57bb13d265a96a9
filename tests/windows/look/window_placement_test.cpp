#include "look/remembered_size.h"
#include "look/window_placement.h"
#include "platform/files/settings_store.h"
#include "windows/main_window_test.h"

#include <gtest/gtest.h>

#include <QRect>
#include <QWidget>

namespace lorvan::test {

TEST(WindowPlacement, middlesMatchAlsoWhenTheWindowIsTheLarger)
{
    const QRect area(0, 30, 1024, 708);
    EXPECT_EQ(centredIn(area, {788, 541}), QPoint(118, 113));
    EXPECT_EQ(centredIn(area, {1224, 908}), QPoint(-100, -70));
}

TEST(WindowPlacement, aWindowThatGrewMovesOnlyAsFarAsItMust)
{
    const QRect area(0, 30, 1024, 708);
    const struct {
        QRect window;
        QPoint place;
    } cases[] = {
        {{192, 300, 640, 400}, {192, 300}},
        {{192, 339, 640, 400}, {192, 338}},
        {{500, 500, 640, 400}, {384, 338}},
        {{-5, 10, 640, 400}, {0, 30}},
        {{100, 100, 1200, 900}, {0, 30}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(keptIn(area, each.window), each.place) << each.window.x() << ' ' << each.window.y();
}

TEST(RememberedSize, isWhatTheUserLeftWithinTheScreen)
{
    const SettingsStore settings;
    const struct {
        const char* stored;
        QSize size;
        bool isMaximised;
    } cases[] = {
        {"", {500, 400}, false},
        {"640 480", {640, 480}, false},
        {"640 480 maximised", {640, 480}, true},
        {"640", {500, 400}, false},
        {"-640 480 maximised", {500, 400}, false},
        {"99999 99999", {}, false},
    };
    for (const auto& each : cases) {
        settings.write({{"Windows", "form", each.stored}});
        QWidget window;
        window.setObjectName("form");
        restoreSize(&window, {500, 400});
        EXPECT_EQ(window.size(), each.size.isValid() ? each.size : roomFor(&window)) << each.stored;
        EXPECT_EQ(window.isMaximized(), each.isMaximised) << each.stored;
        window.setWindowState(Qt::WindowNoState);
        window.resize(530, 410);
        rememberSize(&window);
        EXPECT_EQ(settings.value("Windows", "form"), "530 410");
    }
}

class MainWindowSize : public MainWindowTest { };

TEST_F(MainWindowSize, ThatASmallScreenCutIsNotStoredForTheNextOne)
{
    const SettingsStore settings;
    settings.write({{"Windows", "kentrikh", "5000 4000"}});
    start();
    window().end();
    EXPECT_EQ(settings.value("Windows", "kentrikh"), "5000 4000");
    start();
    window().resize(760, 520);
    window().end();
    EXPECT_EQ(settings.value("Windows", "kentrikh"), "760 520");
}

} // namespace lorvan::test
