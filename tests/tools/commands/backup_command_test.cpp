#include "tools/tool_run.h"

namespace lorvan::test {
namespace {

class BackupCommandTest : public CommandTest {
protected:
    [[nodiscard]] QString movements() const
    {
        Connection main = book.openMain();
        return valueOf(main, "SELECT count(*) FROM kinhseis");
    }
};

} // namespace

TEST_F(BackupCommandTest, aBackupIsNamedAndNeverReplaced)
{
    EXPECT_EQ(run("backup|@").status, ExitStatus::Done);
    const QString left = words("@/lorvan.mdb-journal"); // of a program that was killed
    writeFile(left, QByteArray(4096, 'x'));
    EXPECT_EQ(run("backup|@").status, ExitStatus::Done);
    EXPECT_FALSE(QFile::exists(left));
    EXPECT_TRUE(QFile::exists(words("@/backup/lorvan-2024-03-20-120000.tar")));
    EXPECT_TRUE(QFile::exists(words("@/backup/lorvan-2024-03-20-120001.tar")));
    EXPECT_EQ(run("backup|@|#/a.tar").status, ExitStatus::Done);
    expectRefusal("backup|@|#/a.tar", "υπάρχει ήδη");
    expectRefusal("backup|@|#", "είναι φάκελος");
    expectRefusal("backup|#", "δεν υπάρχει βιβλίο");
    expectRefusal("backup|@|#/nowhere/a.tar", "nowhere");
    QFile main(book.files().mainDatabase());
    ASSERT_TRUE(
        main.open(QIODevice::ReadWrite) && main.seek(main.size() - 500) && main.write("damage") && main.flush());
    expectRefusal("backup|@|#/b.tar", "το ίδιο το βιβλίο. Τη δείχνει η εντολή lorvan-data check");
}

TEST_F(BackupCommandTest, aRestoreKeepsTheOldBookAndTellsOfWrongBalances)
{
    book.addMovementRow(incomeOf(today, cents(5)));
    ASSERT_EQ(run("backup|@|#/a.tar").status, ExitStatus::Done);
    book.addMovementRow(incomeOf(today, cents(7)));
    expectRefusal("restore|#/a.tar|@", "υπάρχει ήδη βιβλίο");
    expectRefusal("restore|#/b.tar|@|--replace", "Δεν υπάρχει αρχείο");
    EXPECT_EQ(movements(), "2");

    const ToolRun restored = run("restore|#/a.tar|@|--replace");
    EXPECT_EQ(restored.status, ExitStatus::Found) << restored.errors;
    expectParts(restored.out, {"20-03-2024"}); // the day that has no cash day
    EXPECT_EQ(movements(), "1");
    EXPECT_TRUE(readFile(book.files().usageMarker()).startsWith('0'));
    EXPECT_EQ(run("restore|#/a.tar|#/new").status, ExitStatus::Found);
    EXPECT_EQ(run("backup|@/replaced-2024-03-20-120000|#/old.tar").status, ExitStatus::Done);
    EXPECT_EQ(run("restore|#/old.tar|@|--replace").status, ExitStatus::Found);
    EXPECT_EQ(movements(), "2");
}

TEST_F(BackupCommandTest, aRestoreThatIsDecidedIsNotReportedAsRefused)
{
    ASSERT_EQ(run("backup|@|#/a.tar").status, ExitStatus::Done);
    book.addMovementRow(incomeOf(today, cents(7)));
    const QString marker = book.files().usageMarker();
    ASSERT_TRUE(QFile::remove(marker) && QDir().mkdir(marker)); // cannot be made free
    const ToolRun decided = run("restore|#/a.tar|@|--replace");
    EXPECT_EQ(decided.status, ExitStatus::Found);
    expectParts(decided.errors, {"Θα ολοκληρωθεί μόνη της"});
    ASSERT_TRUE(QDir().rmdir(marker));
    EXPECT_EQ(run("check|@").status, ExitStatus::Done);
    EXPECT_EQ(movements(), "0");
    EXPECT_FALSE(QFile::exists(words("@/restore.pending")));
}

} // namespace lorvan::test
