#include "backup/book_backup.h"

#include "backup/backup_retention.h"
#include "backup/book_archive.h"
#include "backup/book_restore.h"
#include "backup/copy_writing.h"
#include "backup/daily_backup.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/transaction.h"
#include "support/mount.h"
#include "support/temporary_book.h"
#include "support/worker_log.h"
#include "support/worker_process.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lorvan::test {
namespace {

const auto always = [] { return true; };

QStringList namesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

/// What a backup holds: integrity and one value of each database.
QString valuesIn(const QString& backup, std::string_view main, std::string_view auxiliary)
{
    const QTemporaryDir folder;
    const BookFiles copy(folder.path());
    unpackBook(backup, Folder(folder.path()));
    Connection mainCopy = Connection::open(
        copy.mainDatabase(), testKeys().keyForCopy(copy.mainDatabase()), Connection::Access::ReadWrite);
    Connection auxiliaryCopy = Connection::open(
        copy.auxiliaryDatabase(), testKeys().keyForCopy(copy.auxiliaryDatabase()), Connection::Access::ReadWrite);
    return QStringList{valueOf(mainCopy, "PRAGMA integrity_check"), valueOf(auxiliaryCopy, "PRAGMA integrity_check"),
        valueOf(mainCopy, main), valueOf(auxiliaryCopy, auxiliary)}
        .join(u' ');
}

/// Asked from another process: does anybody hold a lock on the file?
bool isLocked(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const pid_t child = ::fork();
    if (child == 0) {
        struct flock lock { };
        lock.l_type = F_WRLCK;
        const int descriptor = ::open(name.constData(), O_RDWR);
        ::fcntl(descriptor, F_GETLK, &lock);
        ::_exit(lock.l_type == F_UNLCK ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WEXITSTATUS(status) == 1;
}

} // namespace

TEST(BookBackup, isOfOneMomentWhileAnotherProgramWrites)
{
    const TemporaryBook book;
    const QString log = book.path(QStringLiteral("log"));
    WorkerProcess writer({QStringLiteral("pairs"), book.folder(), log, QStringLiteral("1000")});
    ASSERT_TRUE(writer.waitForLog(log)) << writer.output().toStdString();
    std::size_t whileWriting = 0;
    for (int i = 0; WorkerLog::read(log).size() < 2 && i < 200; ++i) {
        const QString path = book.path(QStringLiteral("%1.tar").arg(i));
        makeBackup(book.files(), path, testKeys(), always);
        whileWriting += WorkerLog::read(log).size() < 2;
        const QString values =
            valuesIn(path, "SELECT (SELECT count(*) FROM kinhseis) || ' ' || ifnull((SELECT ypoloipo FROM tameio), 0)",
                "SELECT count(*) FROM klhsimotameioy");
        const QString count = values.section(u' ', -1);
        ASSERT_EQ(values, QStringLiteral("ok ok %1 %1 %1").arg(count));
    }
    EXPECT_EQ(writer.waitForExit(60), 0) << writer.output().toStdString();
    EXPECT_GE(whileWriting, 2U) << "no backup has met the writer";
}

TEST(BookBackup, givesLocksBackAndHoldsThemOnlyAtLast)
{
    const TemporaryBook book;
    QDir().mkdir(book.path(QStringLiteral("copy")));
    CopyPatience patience;
    patience.locked = std::chrono::milliseconds(0);
    patience.between = std::chrono::milliseconds(50);
    patience.attempts = 3;
    EXPECT_EQ(
        copyBook(book.files(), BookFiles(book.path(QStringLiteral("copy"))), testKeys(), always, patience).attempts, 3);

    Connection other = book.openMain();
    std::optional<Transaction> busy;
    const auto beginWriting = [&] {
        if (!busy)
            busy.emplace(other, Transaction::Mode::Exclusive);
        return true;
    };
    QDir().mkdir(book.path(QStringLiteral("second")));
    patience.all = std::chrono::seconds(0);
    EXPECT_THROW(
        copyBook(book.files(), BookFiles(book.path(QStringLiteral("second"))), testKeys(), beginWriting, patience),
        SqlError);
}

TEST(BookBackup, leavesNothingBehindWhenItFailsOrIsGivenUp)
{
    const TemporaryBook book;
    const QString path = book.path(QStringLiteral("a.tar"));
    const QStringList before = namesIn(book.folder());
    for (int questions = 0; questions < 8; ++questions) {
        int left = questions;
        EXPECT_THROW(makeBackup(book.files(), path, testKeys(), [&left] { return left-- > 0; }), GivenUp) << questions;
        EXPECT_EQ(namesIn(book.folder()), before) << questions;
    }
    makeBackup(book.files(), path, testKeys(), always);
    EXPECT_THROW(makeBackup(book.files(), path, testKeys(), always), BookCopyFailed) << "a file that exists";

    const QString disk = book.path(QStringLiteral("disk"));
    QDir().mkdir(disk);
    if (!Mount::smallDisk(disk))
        GTEST_SKIP() << "SKIPPED: the system does not let a test mount a small disk";
    QFile filler(disk + QStringLiteral("/filler"));
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly));
    for (const int room : {8, 20, 40}) { // kB: it is full at the first copy, the second, the packing
        ASSERT_TRUE(filler.resize(0) && filler.seek(0));
        filler.write(QByteArray((640 - room) * 1024, 'x'));
        ASSERT_TRUE(filler.flush());
        EXPECT_THROW(makeBackup(book.files(), disk + QStringLiteral("/a.tar"), testKeys(), always), BookCopyFailed)
            << room;
        if (room < 40) {
            EXPECT_THROW(RestoredBook(path, BookFiles(disk + QStringLiteral("/new"))), RestoreFailed) << room;
        }
        EXPECT_EQ(namesIn(disk), QStringList{QStringLiteral("filler")}) << room;
    }
    filler.close();
    Mount::undo(disk);
}

TEST(KeyRing, leavesTheLocksOfTheProcessAlone)
{
    const TemporaryBook book;
    KeyRing keys(bookPassword());
    const QString path = book.files().mainDatabase();
    Connection main = Connection::open(path, keys.keyFor(path), Connection::Access::ReadWrite);
    const Transaction writing(main);
    (void)keys.keyFor(path);
    EXPECT_TRUE(isLocked(path));
}

TEST(DailyBackup, isMadeOnceADayAndRemovesItsOldOnesOnly)
{
    const TemporaryBook book;
    const QString folder = backupFolder(book.files());
    QDir().mkdir(folder);
    const QDateTime morning(QDate(2026, 11, 23), QTime(9, 0));
    QStringList expected;
    for (const char* const name : {"lorvan-2020-01-01-080000.tar", "lorvan-daily-2020-01-02-080000.tar", "notes.txt"})
        expected += QString::fromUtf8(name);
    for (const QString& name : expected
            + QStringList{QStringLiteral("lorvan-daily-2020-01-01-080000.tar"),
                QStringLiteral("lorvan-daily-2026-11-22-080000.tar.part")})
        ASSERT_TRUE(QFile(folder + u'/' + name).open(QIODevice::WriteOnly));
    for (int day = -29; day < 0; ++day) {
        expected += QStringLiteral("lorvan-daily-%1-080000.tar").arg(morning.date().addDays(day).toString(Qt::ISODate));
        ASSERT_TRUE(QFile(folder + u'/' + expected.last()).open(QIODevice::WriteOnly));
    }
    const auto made = makeDailyBackup(book.files(), testKeys(), morning, always);
    ASSERT_TRUE(made);
    EXPECT_EQ(
        valuesIn(*made, "SELECT count(*) FROM kvdikoi", "SELECT count(*) FROM codes"), QStringLiteral("ok ok 2 0"));
    EXPECT_FALSE(makeDailyBackup(book.files(), testKeys(), morning.addSecs(36'000), always));
    expected += QStringLiteral("lorvan-daily-2026-11-23-090000.tar");
    expected.sort();
    EXPECT_EQ(namesIn(folder), expected);
    EXPECT_TRUE(makeDailyBackup(book.files(), testKeys(), morning.addDays(1), always));
}

} // namespace lorvan::test
