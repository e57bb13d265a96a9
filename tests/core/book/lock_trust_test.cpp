#include "book/book_opening.h"
#include "book/failure_text.h"
#include "book/lock_trust.h"
#include "platform/engine/steady_reading.h"
#include "proof/opening_balance.h"
#include "support/files.h"
#include "support/temporary_book.h"
#include "support/vain_locks.h"
#include "support/worker_log.h"
#include "support/worker_process.h"

#include <future>
#include <sqlite3.h>
#include <thread>

namespace lorvan::test {
namespace {

Book openBookOf(const TemporaryBook& book)
{
    UsageMarker marker(book.files().usageMarker(), {"Μαρία", "A"});
    const auto ask = [] { return OpeningBalance{}; };
    return openBook(book.files(), testKeys(), marker, byAll(), ask, openingSteps());
}

void overwrite(const QString& path, const QByteArray& beginning)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(10)); // the clock of file times is coarse
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.write(beginning) == beginning.size());
}

} // namespace

TEST(LockTrust, knowsMountsThatKeepLocksToThemselves)
{
    const std::pair<const char*, bool> cases[] = {
        {"1 0 8:1 / /books rw - ext4 /dev/sda1 rw", false},
        {"1 0 0:5 / /books rw shared:7 master:2 - nfs srv:/x rw,vers=3,local_lock=none", false},
        {"1 0 0:5 / /books rw shared:7 - nfs srv:/x rw,vers=3,local_lock=all", true},
        {"1 0 0:5 / /books rw - nfs4 srv:/x rw,local_lock=posix", true},
        {"1 0 0:5 / /books rw - nfs srv:/x rw,nolock", true},
        {"1 0 0:5 / /books rw - cifs //srv/x rw,nobrl", true},
        {"1 0 0:5 / /books rw - cifs //srv/x rw", false},
        {"1 0 0:5 / /books rw - fuse.sshfs me@srv: rw", true},
        {"1 0 0:5 / /books rw - vboxsf x rw", true},
        {"1 0 0:5 / /books rw - 9p x rw,version=9p2000.L", false},
        {"1 0 0:5 / /books rw - 9p x rw,version=9p2000.u", true},
        {"1 0 0:5 / /book rw - vboxsf x rw", false},
        {"1 0 0:5 / /books/ta\\040meia rw - vboxsf x rw", true},
        {"1 0 0:5 / /books rw - vboxsf x rw\n2 1 8:1 / /books/ta\\040meia rw - ext4 /dev/sda1 rw", false},
        {"cut short", false},
    };
    for (const auto& [line, isLocal] : cases)
        EXPECT_EQ(keepsLocksLocal(QByteArray("9 0 8:1 / / rw - ext4 x rw\n") + line, "/books/ta meia"), isLocal)
            << line;
}

TEST(LockTrust, whereLocksKeepNobodyOutTheBookIsOnlyLookedAt)
{
    const TemporaryBook book;
    EXPECT_EQ(lockReachOf(book.files()), LockReach::Everybody);
    EXPECT_NO_THROW(admitUnguarded(book.files()));
    const VainLocks locks;
    EXPECT_EQ(lockReachOf(book.files()), LockReach::Nobody);
    EXPECT_THROW(admitUnguarded(book.files()), LocksUntrusted);
    EXPECT_TRUE(openBookOf(book).main().isReadOnly());
}

TEST(LockTrust, anUnguardedActionWaitsForAJournalToGo)
{
    const TemporaryBook book;
    QFile journal(book.files().mainDatabase() + "-journal");
    ASSERT_TRUE(journal.open(QIODevice::WriteOnly));
    const auto other = std::async(std::launch::async, [&journal] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        journal.remove();
    });
    EXPECT_NO_THROW(admitUnguarded(book.files()));
    EXPECT_FALSE(journal.exists());
}

/// The same process changes the book meanwhile: between its connections, locks of the engine's own are in force.
TEST(LockTrust, whatChangesWhileItIsReadIsReadAgain)
{
    const TemporaryBook book;
    const VainLocks locks;
    Connection main = openBookFile(book.files().mainDatabase(), testKeys());
    std::vector<QString> seen;
    readSteadily(main, [&] {
        if (seen.size() == 1)
            book.execute("DELETE FROM kvdikoi"); // between two readings
        seen.push_back(valueOf(main, "SELECT count(*) FROM kvdikoi"));
        if (seen.size() == 1)
            throw SqlError(SQLITE_CORRUPT, "half written", {});
    });
    EXPECT_EQ(seen, (std::vector<QString>{"2", "0"}));

    // A first page that was written before the others: what is read then must not be kept.
    book.execute("INSERT INTO kvdikoi (kvdikos) VALUES (1)");
    const QByteArray after = readFile(book.files().mainDatabase());
    book.execute("DELETE FROM kvdikoi");
    overwrite(book.files().mainDatabase(), after.first(1024));
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM kvdikoi"), "0");
    overwrite(book.files().mainDatabase(), after);
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM kvdikoi"), "1");

    book.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<1000)"
                 " INSERT INTO tameio (hmeromhnia) SELECT 20240000+i FROM n");
    auto rows = main.prepare("SELECT hmeromhnia FROM tameio");
    ASSERT_TRUE(rows.step());
    overwrite(book.files().mainDatabase(), readFile(book.files().mainDatabase()));
    int read = 1;
    EXPECT_THROW(
        while (rows.step()) { ++read; }, SqlError)
        << "rows of two states";
    EXPECT_LT(read, 1000);
}

TEST(LockTrust, whereLocksDoNothingWriterAndReadersLeaveTheBookWhole)
{
    const TemporaryBook book;
    book.addUser("Μαρία", "1");
    const QString log = book.path("log");
    WorkerProcess writer({"typing", book.folder(), log, "1800"});
    ASSERT_TRUE(writer.waitForLog(log));
    WorkerProcess first({"looking", book.folder(), book.path("looked1"), "1200"});
    WorkerProcess second({"looking", book.folder(), book.path("looked2"), "1200"});
    EXPECT_EQ(first.waitForExit(40), 0) << first.output().toStdString();
    EXPECT_EQ(second.waitForExit(40), 0) << second.output().toStdString();
    EXPECT_EQ(writer.waitForExit(40), 0) << writer.output().toStdString();
    BookModel model;
    for (const std::string& line : WorkerLog::read(log)) {
        if (line != "ready")
            model.apply(changeIn(line));
    }
    Connection main = book.openMain();
    EXPECT_EQ(valueOf(main, "PRAGMA integrity_check"), "ok");
    EXPECT_EQ(storedMovements(main), model.movements());
    EXPECT_EQ(storedCashDays(main), model.cashDays());
}

TEST(LockTrust, whatAKilledProgramLeftIsTakenBackUnlessAnotherHoldsTheMarker)
{
    const TemporaryBook book;
    leaveJournal(book.files().mainDatabase(), "DELETE FROM kvdikoi");
    ASSERT_TRUE(Connection::hasJournal(book.files().mainDatabase()));
    UsageMarker other(book.files().usageMarker(), {"Νίκος", "PC7"});
    ASSERT_TRUE(other.claim());
    try {
        (void)openBookOf(book);
        ADD_FAILURE() << "opened";
    } catch (const SqlError& error) {
        EXPECT_EQ(error.kind(), SqlError::Kind::JournalStands);
        EXPECT_TRUE(failureText(error).startsWith("Ο υπολογιστής PC7 διακόπηκε· τον ξεκλειδώνει ο διαχειριστής."));
    }
    EXPECT_TRUE(Connection::hasJournal(book.files().mainDatabase()));
    UsageMarker::unlock(book.files().usageMarker());
    const SqlError stands(SQLITE_READONLY_ROLLBACK, {}, {}, book.files().mainDatabase());
    EXPECT_TRUE(failureText(stands).startsWith("Μια αλλαγή έμεινε μισή δίπλα στο βιβλίο."));
    const QString foreign = book.files().auxiliaryDatabase() + "-journal";
    ASSERT_TRUE(QDir().mkdir(foreign));
    EXPECT_TRUE(failureText(stands).startsWith(QStringLiteral("Το %1 δεν είναι αρχείο").arg(foreign)));
    ASSERT_TRUE(QDir().rmdir(foreign));
    Book opened = openBookOf(book);
    EXPECT_FALSE(opened.main().isReadOnly());
    EXPECT_FALSE(Connection::hasJournal(book.files().mainDatabase()));
    EXPECT_EQ(valueOf(opened.main(), "SELECT count(*) FROM kvdikoi"), "2");
}

TEST(LockTrust, accessFollowsTheMarkerUnlessTheBookWasReplaced)
{
    const TemporaryBook book;
    Book opened = openBookOf(book);
    Connection& main = opened.main();
    opened.setAccess(Connection::Access::ReadOnly);
    EXPECT_TRUE(main.isReadOnly());
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM kvdikoi"), "2");
    opened.setAccess(Connection::Access::ReadWrite);
    EXPECT_FALSE(main.isReadOnly());
    opened.setAccess(Connection::Access::ReadOnly);
    ASSERT_TRUE(QFile::rename(book.files().mainDatabase(), book.path("aside")));
    ASSERT_TRUE(QFile::copy(book.path("aside"), book.files().mainDatabase()));
    opened.setAccess(Connection::Access::ReadWrite);
    EXPECT_TRUE(main.isReadOnly()) << "the new file is not what the window shows";
}

} // namespace lorvan::test
