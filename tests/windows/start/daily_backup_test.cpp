#include "windows/main_window_test.h"

#include "backup/book_backup.h"
#include "backup/book_restore.h"

namespace lorvan::test {
namespace {

class DailyBackupWindowTest : public MainWindowTest {
protected:
    [[nodiscard]] QStringList backups() const { return QDir(book.folder() + "/backup").entryList(QDir::Files); }
    const QString first = "lorvan-daily-2024-03-15-120000.tar";
};

} // namespace

TEST_F(DailyBackupWindowTest, theFirstClaimOfADayMakesOne)
{
    start();
    ASSERT_TRUE(comesTrue([&] { return backups() == QStringList{first}; }));
    selectTab(PrintingTab);
    selectTab(CashTab);
    QTest::qWait(1500);
    EXPECT_EQ(backups(), QStringList{first});
    EXPECT_EQ(notice(), "");

    UsageMarker other = otherComputer();
    window().close();
    ASSERT_TRUE(other.claim());
    start(noRights, Clock(QDateTime(tomorrow, {8, 0})));
    QTest::qWait(1500);
    EXPECT_EQ(backups(), QStringList{first}) << "who only looks on makes none";
    other.release();
    selectTab(CodesTab);
    ASSERT_TRUE(comesTrue([&] { return backups().size() == 2 && !backups().last().endsWith(u't'); }));
}

TEST_F(DailyBackupWindowTest, aFailureIsSaidInALineAlone)
{
    writeFile(book.path("backup"), {}); // in the folder's place
    start();
    EXPECT_EQ(notice(), "");
    ASSERT_TRUE(comesTrue([&] { return !notice().isEmpty(); }));
    EXPECT_TRUE(user().find("notices").toolTip().contains(book.path("backup")));
    typeMovement("100", "ΠΩΛΗΣΗ", "5");
    press(insert);
    EXPECT_EQ(shownFigures(), "5,00 | 0 | 5,00");
}

TEST_F(DailyBackupWindowTest, aBookThatWasRestoredMeanwhileIsSaidAndNotWritten)
{
    UsageMarker other = otherComputer();
    ASSERT_TRUE(other.claim());
    start(allRights);
    addMovement(incomeOf(today, cents(500), "Α"));
    const QString backup = book.path("a.tar");
    makeBackup(book.files(), backup, testKeys());
    RestoredBook(backup, book.files()).replace(byAll()); // frees the marker
    const ExpectedBox told = warningWith("αντικαταστάθηκε στο μεταξύ από αντίγραφο ασφαλείας");
    for (const Tab tab : {CodesTab, PrintingTab}) {
        boxes.expect(told);
        selectTab(tab);
        EXPECT_EQ(tabs().currentIndex(), CashTab);
    }
    boxes.expect(told);
    typeMovement("100", "ΠΩΛΗΣΗ", "5");
    press(insert);
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), "1");
    EXPECT_EQ(markerBytes().front(), '0');
}

} // namespace lorvan::test
