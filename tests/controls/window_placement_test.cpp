#include "controls/window_placement.h"

#include <gtest/gtest.h>

#include <QRect>

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

} // namespace lorvan::test
