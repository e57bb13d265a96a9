#include "backup/book_restore.h"

#include "backup/book_archive.h"
#include "backup/book_backup.h"
#include "book/path_file.h"
#include "book/pending_restore.h"
#include "book/startup.h"
#include "cashbook/cash_book.h"
#include "platform/engine/sql_error.h"
#include "support/temporary_book.h"
#include "support/worker_process.h"
#include "users/user_accounts.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <gtest/gtest.h>

#include <iostream>
#include <random>

namespace lorvan::test {
namespace {

/// A folder with a book "old", and a backup of a book "new"; the names stand in both databases.
class BookRestoreTest : public testing::Test {
protected:
    BookRestoreTest()
    {
        name(QStringLiteral("new"));
        makeBackup(source.files(), backup, testKeys(), {});
        name(QStringLiteral("old"));
        layOut();
    }

    void name(const QString& text) const
    {
        source.openMain().prepare("UPDATE omades SET perigrafh=?").bind(text).run();
        source.execute("DELETE FROM tameio");
        Connection users = source.openAuxiliary();
        users.execute("DELETE FROM codes");
        addUser(users, text, text, {});
    }

    void layOut() const
    {
        QDir(folder).removeRecursively();
        QFile::remove(log);
        ASSERT_TRUE(QDir().mkdir(folder) && QFile::copy(source.files().mainDatabase(), files.mainDatabase())
            && QFile::copy(source.files().auxiliaryDatabase(), files.auxiliaryDatabase())
            && QFile::copy(source.files().usageMarker(), files.usageMarker()));
    }

    static QString bookIn(const QString& place)
    {
        const auto valueIn = [](const QString& path, std::string_view sql) {
            try {
                Connection database =
                    Connection::open(path, testKeys().keyForCopy(path), Connection::Access::ReadWrite);
                return valueOf(database, "PRAGMA integrity_check") + u' ' + valueOf(database, sql);
            } catch (const SqlError& error) {
                return error.engineMessage();
            }
        };
        const BookFiles book(place);
        return valueIn(book.mainDatabase(), "SELECT perigrafh FROM omades") + u' '
            + valueIn(book.auxiliaryDatabase(), "SELECT uname FROM codes");
    }

    /// The folder of what was put aside, if there is one.
    [[nodiscard]] QString aside() const
    {
        const QStringList names = QDir(folder).entryList({QStringLiteral("replaced-*")});
        return names.isEmpty() ? QString() : folder + u'/' + names.first();
    }

    static void write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    /// The new book, as a restore puts it beside the old one.
    void stage(const QString& name) const
    {
        ASSERT_TRUE(QDir(folder).mkdir(name));
        unpackBook(backup, Folder(folder + u'/' + name));
    }

    const TemporaryBook source;
    const QString stagedName = QStringLiteral(".restore-0123456789abcdef");
    const QString backup = source.path(QStringLiteral("new.tar"));
    const QString folder = source.path(QStringLiteral("book"));
    const QString log = source.path(QStringLiteral("log"));
    const BookFiles files{folder};
    const QDateTime now{QDate(2026, 11, 23), QTime(10, 15, 30)};
    const QString theOld = QStringLiteral("ok old ok old");
    const QString theNew = QStringLiteral("ok new ok new");
};

} // namespace

TEST_F(BookRestoreTest, isFinishedFromEachStepOnWhichItCanBeCutShort)
{
    const QString asideName = QStringLiteral("replaced-2026-11-23-101530");
    const QString old = folder + u'/' + asideName;
    for (const bool isEarlierForm : {false, true}) {
        const BookFiles staged(folder + u'/' + (isEarlierForm ? QStringLiteral(".restore") : stagedName));
        const std::pair<QString, QString> steps[] = {
            {files.auxiliaryDatabase() + QStringLiteral("-journal"), old + QStringLiteral("/mapcodes.mdb-journal")},
            {files.auxiliaryDatabase(), old + QStringLiteral("/mapcodes.mdb")},
            {files.mainDatabase(), old + QStringLiteral("/lorvan.mdb")},
            {staged.auxiliaryDatabase(), files.auxiliaryDatabase()},
            {staged.mainDatabase(), files.mainDatabase()},
        };
        for (std::size_t done = 0; done <= std::size(steps); ++done) {
            layOut();
            write(files.auxiliaryDatabase() + QStringLiteral("-journal"), "of a change that was not taken back");
            stage(QFileInfo(staged.dataFolder()).fileName());
            if (isEarlierForm)
                write(folder + QStringLiteral("/restore.pending"), "Lorvan restore 1\n" + asideName.toUtf8() + '\n');
            else
                decideRestore(Folder(folder), stagedName, asideName);
            ASSERT_TRUE(QDir().mkdir(old));
            for (std::size_t step = 0; step < done; ++step)
                ASSERT_TRUE(QFile::rename(steps[step].first, steps[step].second)) << step;
            finishRestore(files);
            finishRestore(files);
            EXPECT_EQ(bookIn(folder), theNew) << done;
            EXPECT_EQ(bookIn(old), theOld) << done;
            EXPECT_EQ(QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                (QStringList{QStringLiteral("lorvan.dat"), QStringLiteral("lorvan.mdb"), QStringLiteral("mapcodes.mdb"),
                    asideName}))
                << done;
        }
    }
}

TEST_F(BookRestoreTest, isFinishedByTheNextStartOrSaidThatItCannotBe)
{
    const PathFile pathFile(source.folder());
    pathFile.writeFolder(folder);
    stage(stagedName);
    const QString record = folder + QStringLiteral("/restore.pending");
    for (const QByteArray& foreign : {QByteArray("Lorvan restore 1\n../elsewhere\n"),
             QByteArray("Lorvan restore 2\nreplaced-1\n../elsewhere\n"), QByteArray("Lorvan restore 2\nreplaced-1\n"),
             "Lorvan restore 2\nreplaced-1/../1\n" + stagedName.toUtf8() + '\n'}) {
        write(record, foreign);
        const StartDecision stopped = decideStart(source.folder());
        EXPECT_EQ(stopped.outcome, StartOutcome::RestoreUnfinished);
        EXPECT_TRUE(stopped.trouble.contains(QStringLiteral("restore.pending"))) << stopped.trouble.toStdString();
        EXPECT_EQ(bookIn(folder), theOld);
    }
    QFile::remove(record);
    decideRestore(Folder(folder), stagedName, QStringLiteral("replaced-1"));
    EXPECT_EQ(decideStart(source.folder()).outcome, StartOutcome::SignIn);
    EXPECT_EQ(bookIn(folder), theNew);
}

/// 10 rounds; LORVAN_KILL_ROUNDS=100 makes a soak run of it.
TEST_F(BookRestoreTest, killedAtAnyMomentThereIsTheOldBookOrTheNew)
{
    const int rounds = std::max(10, qEnvironmentVariableIntValue("LORVAN_KILL_ROUNDS"));
    std::mt19937 random{5};
    qint64 duration = 0; // microseconds; the first restore is let alone, and measured
    std::array<int, 3> ends{}; // old, new, new after it was finished
    for (int round = 0; round < rounds; ++round) {
        layOut();
        WorkerProcess worker({QStringLiteral("restore"), folder, log, backup});
        ASSERT_TRUE(worker.waitForLog(log)) << worker.output().toStdString();
        QElapsedTimer timer;
        timer.start();
        if (round == 0) {
            ASSERT_EQ(worker.waitForExit(30), 0) << worker.output().toStdString();
            duration = timer.nsecsElapsed() / 1000;
        } else {
            QThread::usleep(static_cast<unsigned>(random() % duration));
            worker.kill();
        }
        const bool isPending = QFile::exists(folder + QStringLiteral("/restore.pending"));
        finishRestore(files);
        const QString found = bookIn(folder);
        ASSERT_TRUE(found == theOld || found == theNew) << round << ' ' << found.toStdString();
        if (found == theNew) {
            ASSERT_EQ(bookIn(aside()), theOld) << round;
        }
        ++ends.at(found == theOld ? 0 : isPending ? 2 : 1);
        RestoredBook again(backup, files); // whatever the killed one has left
        (void)again.replace(now);
        ASSERT_EQ(bookIn(folder), theNew) << round;
    }
    std::cout << "killed during restores: old " << ends[0] << ", new " << ends[1] << ", finished later " << ends[2]
              << '\n';
}

TEST_F(BookRestoreTest, putsADamagedBookAside)
{
    write(files.mainDatabase(), "no database at all");
    write(files.mainDatabase() + QStringLiteral("-journal"), "a journal");
    RestoredBook restored(backup, files);
    EXPECT_EQ(restored.replace(now), folder + QStringLiteral("/replaced-2026-11-23-101530"));
    EXPECT_EQ(bookIn(folder), theNew);
    QFile old(aside() + QStringLiteral("/lorvan.mdb"));
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), "no database at all");
    EXPECT_FALSE(QFile::exists(files.mainDatabase() + QStringLiteral("-journal")));
    EXPECT_TRUE(QFile::exists(aside() + QStringLiteral("/lorvan.dat")));
}

TEST_F(BookRestoreTest, refusesWhatIsNoWholeBackup)
{
    QFile whole(backup);
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    QByteArray flipped = bytes;
    flipped[5000] = static_cast<char>(~flipped[5000]);
    QByteArray twice = bytes;
    twice.replace("mapcodes.mdb", QByteArrayLiteral("lorvan.mdb\0\0"));
    QByteArray outside = bytes;
    outside.replace("mapcodes.mdb", "../codes.mdb");
    const QByteArray cases[] = {{}, "text", bytes.first(300), bytes.first(5000), bytes.first(bytes.size() / 2),
        QByteArray(bytes.size(), '\0'), flipped, twice, outside, bytes.mid(512)};
    const QString path = source.path(QStringLiteral("bad.tar"));
    for (const QByteArray& bad : cases) {
        write(path, bad);
        EXPECT_THROW(RestoredBook(path, files), BackupUnusable) << &bad - cases;
        EXPECT_EQ(bookIn(folder), theOld);
        EXPECT_EQ(QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 3);
        EXPECT_THROW(RestoredBook(path, BookFiles(source.path(QStringLiteral("fresh")))), BackupUnusable);
        EXPECT_FALSE(QFile::exists(source.path(QStringLiteral("fresh"))));
    }
}

TEST_F(BookRestoreTest, whoHasTheOldBookOpenWritesNothingAnyMore)
{
    const auto open = [](const QString& path) {
        return Connection::open(path, testKeys().keyForCopy(path), Connection::Access::ReadWrite);
    };
    Book lookerOn{open(files.mainDatabase()), open(files.auxiliaryDatabase())};
    RestoredBook restored(backup, files);
    (void)restored.replace(now);
    const auto kindOf = [](const auto& action) {
        try {
            action();
        } catch (const SqlError& error) {
            return error.kind();
        }
        return SqlError::Kind::Other;
    };
    CashBook cashBook(lookerOn, {});
    EXPECT_EQ(kindOf([&] { (void)cashBook.insert(incomeOf(now.date(), cents(5))); }), SqlError::Kind::Replaced);
    EXPECT_EQ(kindOf([&] { (void)addUser(lookerOn.auxiliary(), QStringLiteral("x"), QStringLiteral("y"), {}); }),
        SqlError::Kind::Replaced);
    EXPECT_EQ(kindOf([&] { lookerOn.refuseReplaced(); }), SqlError::Kind::Replaced);
    EXPECT_EQ(bookIn(aside()), theOld);
    EXPECT_EQ(bookIn(folder), theNew);
    EXPECT_EQ(valueOf(lookerOn.main(), "SELECT count(*) FROM kinhseis"), QStringLiteral("0"));
}

} // namespace lorvan::test
