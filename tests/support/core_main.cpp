#include <QCoreApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    const QTemporaryDir state; // of the programs that the tests run
    qputenv("XDG_STATE_HOME", state.path().toUtf8());
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
