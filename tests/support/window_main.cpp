#include "controls/theme.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    lorvan::Theme::install(application);
    return RUN_ALL_TESTS();
}
