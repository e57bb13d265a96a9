#include <QApplication>

#if __has_include("controls/theme.h")
#include "controls/theme.h"
#define LORVAN_HAS_THEME
#endif

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
