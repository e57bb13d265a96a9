#include "windows/main_window_test.h"

#include "backup/book_backup.h"
#include "backup/book_restore.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTabBar>
#include <QTest>

namespace lorvan::test {
namespace {

class DailyBackupWindowTest : public MainWindowTest {
protected:
    enum Tab { CashBook, Codes, Printing };
    static constexpr int patience = 10'000;

    [[nodiscard]] QStringList backups() const
    {
        return QDir(book.folder() + QStringLiteral("/backup")).entryList(QDir::Files);
    }
    [[nodiscard]] QLabel& line() const { return user().find<QLabel>(QStringLiteral("notices")); }

    const QString first = QStringLiteral("lorvan-daily-2024-03-15-120000.tar");
};

} // namespace

TEST_F(DailyBackupWindowTest, theFirstClaimOfADayMakesOne)
{
    start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return backups() == QStringList{first}; }, patience));
    selectTab(Printing);
    selectTab(CashBook);
    QTest::qWait(1500);
    EXPECT_EQ(backups(), QStringList{first});
    EXPECT_EQ(line().text(), QString());

    UsageMarker other = otherComputer();
    window().close();
    ASSERT_TRUE(other.claim());
    start(noRights, Clock(QDateTime(tomorrow, {8, 0})));
    QTest::qWait(1500);
    EXPECT_EQ(backups(), QStringList{first}) << "who only looks on makes none";
    other.release();
    selectTab(Codes);
    ASSERT_TRUE(QTest::qWaitFor([&] { return backups().size() == 2 && !backups().last().endsWith(u't'); }, patience));
}

TEST_F(DailyBackupWindowTest, aFailureIsSaidInALineAlone)
{
    ASSERT_TRUE(QFile(book.path(QStringLiteral("backup"))).open(QIODevice::WriteOnly)); // in the folder's place
    start();
    EXPECT_EQ(line().text(), QString());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !line().text().isEmpty(); }, patience));
    EXPECT_TRUE(line().toolTip().contains(book.path(QStringLiteral("backup")))) << line().toolTip().toStdString();
    typeMovement(QStringLiteral("100"), QStringLiteral("ΠΩΛΗΣΗ"), QStringLiteral("5"));
    user().click(user().command(insert));
    EXPECT_EQ(shownFigures(), QStringLiteral("5,00 | 0 | 5,00"));
}

TEST_F(DailyBackupWindowTest, aBookThatWasRestoredMeanwhileIsSaidAndNotWritten)
{
    UsageMarker other = otherComputer();
    ASSERT_TRUE(other.claim());
    start(allRights);
    addMovement(incomeOf(today, cents(500), QStringLiteral("Α")));
    const QString backup = book.path(QStringLiteral("a.tar"));
    makeBackup(book.files(), backup, testKeys(), {});
    RestoredBook(backup, book.files()).replace(fixedClock().now()); // frees the marker
    const ExpectedBox told = partly(
        warning(QStringLiteral("Προσοχή"), QStringLiteral("αντικαταστάθηκε στο μεταξύ από αντίγραφο ασφαλείας")));
    for (const Tab tab : {Codes, Printing}) {
        boxes.expect(told);
        selectTab(tab);
        EXPECT_TRUE(boxes.allSeen());
        EXPECT_EQ(user().find<QTabBar>(QStringLiteral("Tab1")).currentIndex(), CashBook);
    }
    boxes.expect(told);
    typeMovement(QStringLiteral("100"), QStringLiteral("ΠΩΛΗΣΗ"), QStringLiteral("5"));
    user().click(user().command(insert));
    EXPECT_TRUE(boxes.allSeen());
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), QStringLiteral("1"));
    EXPECT_EQ(markerBytes().front(), '0');
}

} // namespace lorvan::test
