#include "book/usage_marker.h"
#include "support/temporary_book.h"
#include "tools/tool_run.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

const QDate someDay(2026, 11, 18);

class BackupCommandTest : public testing::Test {
protected:
    /// "@" stands for the book's folder, "#" for one beside it.
    [[nodiscard]] ToolRun run(const char* line) const
    {
        return runTool(someDay, QString::fromUtf8(line).replace(u'@', book.folder()).replace(u'#', beside.path()));
    }
    [[nodiscard]] QString movements() const
    {
        Connection main = book.openMain();
        return valueOf(main, "SELECT count(*) FROM kinhseis");
    }
    /// Says why, and nothing in either folder is changed.
    void expectRefusal(const char* line, const char* reason) const
    {
        const auto before = std::pair(contentOf(book.folder()), contentOf(beside.path()));
        const ToolRun refused = run(line);
        EXPECT_EQ(refused.status, ExitStatus::Failed) << line;
        EXPECT_NE(refused.errors.find(reason), std::string::npos) << refused.errors;
        EXPECT_EQ(std::pair(contentOf(book.folder()), contentOf(beside.path())), before) << line;
    }

    const TemporaryBook book;
    const QTemporaryDir beside;
};

} // namespace

TEST_F(BackupCommandTest, aBackupIsNamedAndNeverReplaced)
{
    EXPECT_EQ(run("backup|@").status, ExitStatus::Done);
    QFile left(book.path(QStringLiteral("lorvan.mdb-journal"))); // of a program that was killed
    ASSERT_TRUE(left.open(QIODevice::WriteOnly) && left.write(QByteArray(4096, 'x')) > 0);
    left.close();
    EXPECT_EQ(run("backup|@").status, ExitStatus::Done);
    EXPECT_FALSE(left.exists());
    EXPECT_TRUE(QFile::exists(book.path(QStringLiteral("backup/lorvan-2026-11-18-120000.tar"))));
    EXPECT_TRUE(QFile::exists(book.path(QStringLiteral("backup/lorvan-2026-11-18-120001.tar"))));
    EXPECT_EQ(run("backup|@|#/a.tar").status, ExitStatus::Done);
    expectRefusal("backup|@|#/a.tar", "υπάρχει ήδη");
    expectRefusal("backup|@|#", "είναι φάκελος");
    expectRefusal("backup|#", "δεν υπάρχει βιβλίο");
    expectRefusal("backup|@|#/nowhere/a.tar", "nowhere");
}

TEST_F(BackupCommandTest, aRestoreKeepsTheOldBookAndTellsOfWrongBalances)
{
    book.addMovementRow(incomeOf(someDay, cents(5)));
    ASSERT_EQ(run("backup|@|#/a.tar").status, ExitStatus::Done);
    book.addMovementRow(incomeOf(someDay, cents(7)));
    expectRefusal("restore|#/a.tar|@", "υπάρχει ήδη βιβλίο");
    expectRefusal("restore|#/b.tar|@|--replace", "Δεν υπάρχει αρχείο");
    UsageMarker other(book.files().usageMarker(), {QStringLiteral("Ελένη"), QStringLiteral("γραφείο")});
    ASSERT_TRUE(other.claim());
    expectRefusal("restore|#/a.tar|@|--replace", "Ελένη");
    other.release();
    EXPECT_EQ(movements(), QStringLiteral("2"));

    const ToolRun restored = run("restore|#/a.tar|@|--replace");
    EXPECT_EQ(restored.status, ExitStatus::Found) << restored.errors;
    EXPECT_NE(restored.out.find("18-11-2026"), std::string::npos) << "the day that has no cash day:" << restored.out;
    EXPECT_EQ(movements(), QStringLiteral("1"));
    EXPECT_FALSE(other.heldByAnother());
    EXPECT_EQ(run("restore|#/a.tar|#/new").status, ExitStatus::Found);
    EXPECT_EQ(run("backup|@/replaced-2026-11-18-120000|#/old.tar").status, ExitStatus::Done);
    EXPECT_EQ(run("restore|#/old.tar|@|--replace").status, ExitStatus::Found);
    EXPECT_EQ(movements(), QStringLiteral("2"));
}

TEST_F(BackupCommandTest, aDamagedBookIsNamedAsSuch)
{
    QFile main(book.path(QStringLiteral("lorvan.mdb")));
    ASSERT_TRUE(main.open(QIODevice::ReadWrite) && main.seek(main.size() - 500));
    main.write("damage");
    main.close();
    expectRefusal("backup|@|#/a.tar", "το ίδιο το βιβλίο. Τη δείχνει η εντολή lorvan-data check");
}

TEST_F(BackupCommandTest, aRestoreThatIsDecidedIsNotReportedAsRefused)
{
    ASSERT_EQ(run("backup|@|#/a.tar").status, ExitStatus::Done);
    book.addMovementRow(incomeOf(someDay, cents(7)));
    const QString marker = book.files().usageMarker();
    ASSERT_TRUE(QFile::remove(marker) && QDir().mkdir(marker)); // cannot be made free
    const ToolRun decided = run("restore|#/a.tar|@|--replace");
    EXPECT_EQ(decided.status, ExitStatus::Found);
    EXPECT_NE(decided.errors.find("Θα ολοκληρωθεί μόνη της"), std::string::npos) << decided.errors;
    ASSERT_TRUE(QDir().rmdir(marker));
    EXPECT_EQ(run("check|@").status, ExitStatus::Done);
    EXPECT_EQ(movements(), QStringLiteral("0"));
    EXPECT_FALSE(QFile::exists(book.path(QStringLiteral("restore.pending"))));
}

} // namespace lorvan::test
