#include "controls/theme.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir configuration; // or a test would write the settings of whoever runs it
    qputenv("XDG_CONFIG_HOME", configuration.path().toUtf8());
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    lorvan::Theme::install(application);
    return RUN_ALL_TESTS();
}
