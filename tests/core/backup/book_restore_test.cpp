#include "backup/book_restore.h"

#include "backup/book_archive.h"
#include "backup/book_backup.h"
#include "book/path_file.h"
#include "book/pending_restore.h"
#include "book/startup.h"
#include "cashbook/cash_book.h"
#include "support/files.h"
#include "support/temporary_book.h"
#include "users/user_accounts.h"

namespace lorvan::test {
namespace {

/// A folder with a book "old", and a backup of a book "new"; the names stand in both databases.
class BookRestoreTest : public testing::Test {
protected:
    BookRestoreTest()
    {
        name("new");
        makeBackup(source.files(), backup, testKeys());
        name("old");
        layOut();
    }

    void name(const char* text) const
    {
        source.execute(std::string("UPDATE omades SET perigrafh='") + text + "'");
        source.openAuxiliary().execute("DELETE FROM codes");
        source.addUser(text, text);
    }

    void layOut() const
    {
        QDir(folder).removeRecursively();
        ASSERT_TRUE(QDir().mkdir(folder));
        for (const char* each : {"/lorvan.mdb", "/mapcodes.mdb", "/lorvan.dat"})
            ASSERT_TRUE(QFile::copy(source.folder() + each, folder + each));
    }

    static QString bookIn(const QString& place)
    {
        Connection book = openBoth(place);
        return valueOf(book, "PRAGMA integrity_check") + u' '
            + valueOf(book, "SELECT (SELECT perigrafh FROM omades) || ' ' || (SELECT uname FROM other.codes)");
    }

    /// The new book, as a restore puts it beside the old one.
    void stage(const QString& name) const
    {
        ASSERT_TRUE(QDir(folder).mkdir(name));
        unpackBook(backup, Folder(folder + u'/' + name));
    }

    const TemporaryBook source;
    const QString stagedName = ".restore-0123456789abcdef";
    const QString backup = source.path("new.tar");
    const QString folder = source.path("book");
    const QString asideName = "replaced-2026-11-23-101530";
    const QString aside = folder + u'/' + asideName;
    const BookFiles files{folder};
    const QDateTime now{QDate(2026, 11, 23), QTime(10, 15, 30)};
    const QString theOld = "ok old old";
    const QString theNew = "ok new new";
};

} // namespace

TEST_F(BookRestoreTest, isFinishedFromEachStepOnWhichItCanBeCutShort)
{
    for (const bool isEarlierForm : {false, true}) {
        const BookFiles staged(folder + u'/' + (isEarlierForm ? ".restore" : stagedName));
        const std::pair<QString, QString> steps[] = {
            {files.auxiliaryDatabase() + "-journal", aside + "/mapcodes.mdb-journal"},
            {files.auxiliaryDatabase(), aside + "/mapcodes.mdb"},
            {files.mainDatabase(), aside + "/lorvan.mdb"},
            {staged.auxiliaryDatabase(), files.auxiliaryDatabase()},
            {staged.mainDatabase(), files.mainDatabase()},
        };
        for (std::size_t done = 0; done <= std::size(steps); ++done) {
            layOut();
            writeFile(files.auxiliaryDatabase() + "-journal", "of a change that was not taken back");
            stage(QFileInfo(staged.dataFolder()).fileName());
            if (isEarlierForm)
                writeFile(folder + "/restore.pending", "Lorvan restore 1\n" + asideName.toUtf8() + '\n');
            else
                decideRestore(Folder(folder), stagedName, asideName);
            ASSERT_TRUE(QDir().mkdir(aside));
            for (std::size_t step = 0; step < done; ++step)
                ASSERT_TRUE(QFile::rename(steps[step].first, steps[step].second)) << step;
            finishRestore(files);
            finishRestore(files);
            EXPECT_EQ(bookIn(folder), theNew) << done;
            EXPECT_EQ(bookIn(aside), theOld) << done;
            EXPECT_EQ(namesIn(folder), "lorvan.dat lorvan.mdb mapcodes.mdb " + asideName) << done;
        }
    }
}

TEST_F(BookRestoreTest, isFinishedByTheNextStartOrSaidThatItCannotBe)
{
    const PathFile pathFile(source.folder());
    pathFile.writeFolder(folder);
    stage(stagedName);
    const QString record = folder + "/restore.pending";
    for (const QByteArray& foreign : {QByteArray("Lorvan restore 1\n../elsewhere\n"),
             QByteArray("Lorvan restore 2\nreplaced-1\n../elsewhere\n"), QByteArray("Lorvan restore 2\nreplaced-1\n"),
             "Lorvan restore 2\nreplaced-1/../1\n" + stagedName.toUtf8() + '\n'}) {
        writeFile(record, foreign);
        const StartDecision stopped = decideStart(source.folder());
        EXPECT_EQ(stopped.outcome, StartOutcome::RestoreUnfinished);
        EXPECT_TRUE(stopped.trouble.contains("restore.pending")) << stopped.trouble.toStdString();
        EXPECT_EQ(bookIn(folder), theOld);
    }
    QFile::remove(record);
    decideRestore(Folder(folder), stagedName, "replaced-1");
    EXPECT_EQ(decideStart(source.folder()).outcome, StartOutcome::SignIn);
    EXPECT_EQ(bookIn(folder), theNew);
}

TEST_F(BookRestoreTest, putsADamagedBookAside)
{
    writeFile(files.mainDatabase(), "no database at all");
    writeFile(files.mainDatabase() + "-journal", "a journal");
    RestoredBook restored(backup, files);
    EXPECT_EQ(restored.replace(Authority::companion(Clock(now))), aside);
    EXPECT_EQ(bookIn(folder), theNew);
    EXPECT_EQ(readFile(aside + "/lorvan.mdb"), "no database at all");
    EXPECT_EQ(namesIn(folder), "lorvan.dat lorvan.mdb mapcodes.mdb " + asideName);
    EXPECT_TRUE(QFile::exists(aside + "/lorvan.dat"));
}

TEST_F(BookRestoreTest, whoHasTheOldBookOpenWritesNothingAnyMore)
{
    Book lookerOn{openAt(files.mainDatabase()), openAt(files.auxiliaryDatabase())};
    RestoredBook restored(backup, files);
    (void)restored.replace(Authority::companion(Clock(now)));
    CashBook cashBook(lookerOn, by());
    const auto replaced = SqlError::Kind::Replaced;
    EXPECT_EQ(troubleOf([&] { (void)cashBook.insert(incomeOf(now.date(), cents(5))); }), replaced);
    EXPECT_EQ(troubleOf([&] { (void)addUser(lookerOn.auxiliary(), byAll(), "x", "y", {}); }), replaced);
    EXPECT_EQ(troubleOf([&] { lookerOn.refuseReplaced(); }), replaced);
    EXPECT_EQ(bookIn(aside), theOld);
    EXPECT_EQ(bookIn(folder), theNew);
    EXPECT_EQ(valueOf(lookerOn.main(), "SELECT count(*) FROM kinhseis"), "0");
}

} // namespace lorvan::test
