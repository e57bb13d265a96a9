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

} // namespace lorvan::test
