#include "app/usage_marker.h"
#include "platform/windows1253.h"
#include "support/printing.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace lorvan {
namespace {

class UsageMarkerTest : public testing::Test {
protected:
    void write(const QByteArray& bytes) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    [[nodiscard]] QByteArray read() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
    }

    static QByteArray record(const char* state, const char* user, const char* computer)
    {
        const auto field = [](const char* name) { return toWindows1253(QString::fromUtf8(name)).leftJustified(25); };
        return state + field(user) + field(computer);
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("lorvan.dat"));
    UsageMarker first{path, {QStringLiteral("Μαρία"), QStringLiteral("TAMEIO1")}};
    UsageMarker second{path, {QStringLiteral("Νίκος"), QStringLiteral("TAMEIO2")}};
    const QByteArray heldByFirst = record("1", "Μαρία", "TAMEIO1");
    const QByteArray heldBySecond = record("1", "Νίκος", "TAMEIO2");
    const QByteArray freedByFirst = record("0", "Μαρία", "TAMEIO1");
};

} // namespace

TEST_F(UsageMarkerTest, isOneRecordOfFiftyOneBytesInGreek)
{
    UsageMarker::unlock(path);
    ASSERT_TRUE(first.claim());
    EXPECT_EQ(read(), "1\xCC\xE1\xF1\xDF\xE1                    TAMEIO1                  ");
    EXPECT_EQ(read().size(), 51);
    first.release();
    EXPECT_EQ(read(), freedByFirst);
}

TEST_F(UsageMarkerTest, longNamesAreCut)
{
    UsageMarker::unlock(path);
    UsageMarker marker(path, {QString(30, u'α'), QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ")});
    EXPECT_TRUE(marker.claim());
    EXPECT_EQ(read(), "1" + QByteArray(25, '\xE1') + "ABCDEFGHIJKLMNOPQRSTUVWXY");
    EXPECT_FALSE(marker.heldByAnother()) << "its own cut names are its own";
    EXPECT_EQ(second.heldByAnother()->computer, QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXY"));
}

TEST_F(UsageMarkerTest, keepsTheSecondOutUntilTheFirstLetsGo)
{
    UsageMarker::unlock(path);
    EXPECT_FALSE(second.heldByAnother());
    ASSERT_TRUE(first.claim());
    EXPECT_FALSE(second.claim());
    const auto holder = second.guardChange();
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->user, QStringLiteral("Μαρία"));
    EXPECT_EQ(holder->computer, QStringLiteral("TAMEIO1"));
    EXPECT_EQ(
        markerCaption(holder), QStringLiteral("Lorvan  -  Η βάση χρησιμοποιήτε από τον (την) Μαρία στον Η/Υ TAMEIO1"));
    EXPECT_EQ(markerCaption(std::nullopt), QStringLiteral("Lorvan"));
    EXPECT_FALSE(first.heldByAnother());
    EXPECT_FALSE(first.guardChange());

    second.release();
    EXPECT_EQ(read(), heldByFirst) << "only the owner releases";
    first.release();
    EXPECT_FALSE(second.guardChange()) << "a change claims a free marker first";
    EXPECT_TRUE(second.owns());
    EXPECT_EQ(read(), heldBySecond);
}

TEST_F(UsageMarkerTest, twoProgramsOfOneUserOnOneComputerAreTwo)
{
    UsageMarker::unlock(path);
    UsageMarker twin{path, {QStringLiteral("Μαρία"), QStringLiteral("TAMEIO1")}};
    ASSERT_TRUE(first.claim());
    EXPECT_FALSE(twin.claim());
    EXPECT_TRUE(twin.heldByAnother());
    twin.release();
    EXPECT_EQ(read(), heldByFirst);
}

TEST_F(UsageMarkerTest, anUnlockUnderTheOwnersFeetHandsItOn)
{
    UsageMarker::unlock(path);
    ASSERT_TRUE(first.claim());
    UsageMarker::unlock(path);
    EXPECT_EQ(read(), freedByFirst) << "the names stay";
    ASSERT_TRUE(second.claim());
    EXPECT_TRUE(first.heldByAnother());
    EXPECT_FALSE(first.owns());
    EXPECT_TRUE(first.guardChange());
    first.release();
    EXPECT_EQ(read(), heldBySecond) << "the new owner keeps it";
}

TEST_F(UsageMarkerTest, anOwnerWhoLostItIsRefusedHisNextChange)
{
    UsageMarker::unlock(path);
    ASSERT_TRUE(first.claim());
    UsageMarker::unlock(path);
    ASSERT_TRUE(second.claim());
    EXPECT_TRUE(first.guardChange());
    EXPECT_FALSE(first.owns());
}

TEST_F(UsageMarkerTest, anOwnerWhoReleasesBlindlyLeavesTheNewOwnerAlone)
{
    UsageMarker::unlock(path);
    ASSERT_TRUE(first.claim());
    UsageMarker::unlock(path);
    ASSERT_TRUE(second.claim());
    first.release(); // without having looked
    EXPECT_EQ(read(), heldBySecond);
    EXPECT_FALSE(first.owns());
}

TEST_F(UsageMarkerTest, aRecordOfNoKnownStateIsNeverClaimedAndRefusesNobody)
{
    const QByteArray records[] = {"", "?", "2" + heldByFirst.mid(1), QByteArray(51, '\0'), " 1"};
    for (const QByteArray& unknown : records) {
        write(unknown);
        EXPECT_FALSE(first.claim()) << unknown.toStdString();
        EXPECT_FALSE(first.heldByAnother());
        EXPECT_FALSE(first.guardChange());
        EXPECT_FALSE(first.owns());
        EXPECT_EQ(read(), unknown);
    }
    QFile::remove(path);
    EXPECT_FALSE(first.claim());
    EXPECT_EQ(read(), QByteArray()) << "a missing file is made, empty";
    UsageMarker::unlock(path);
    EXPECT_EQ(read(), "0" + QByteArray(50, ' '));
    EXPECT_TRUE(first.claim());
}

TEST_F(UsageMarkerTest, anOwnerFreesAMarkerThatWasLostMeanwhile)
{
    UsageMarker::unlock(path);
    ASSERT_TRUE(first.claim());
    QFile::remove(path);
    EXPECT_FALSE(first.guardChange());
    first.release();
    EXPECT_EQ(read(), freedByFirst);
}

TEST_F(UsageMarkerTest, whatGoesOnAfterTheEndClaimsNothing)
{
    write(record("0", "", ""));
    ASSERT_TRUE(first.claim());
    first.retire();
    EXPECT_FALSE(first.claim());
    EXPECT_EQ(first.guardChange(), std::nullopt);
    EXPECT_EQ(read(), freedByFirst);
}

TEST_F(UsageMarkerTest, anUnusableFileIsAnErrorThatNamesIt)
{
    UsageMarker nowhere(folder.filePath(QStringLiteral("none/lorvan.dat")), {});
    try {
        (void)nowhere.heldByAnother();
        ADD_FAILURE() << "nothing failed";
    } catch (const MarkerError& error) {
        EXPECT_NE(std::string(error.what()).find("none/lorvan.dat: No such file"), std::string::npos) << error.what();
    }
}

} // namespace lorvan
