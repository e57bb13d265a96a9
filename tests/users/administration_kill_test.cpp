#include "support/temporary_book.h"
#include "support/worker_log.h"
#include "support/worker_process.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <gtest/gtest.h>

#include <iostream>
#include <random>

namespace lorvan::test {
namespace {

/// 20 rounds; LORVAN_KILL_ROUNDS=500 makes a soak run of it.
int killRounds()
{
    const int wanted = qEnvironmentVariableIntValue("LORVAN_KILL_ROUNDS");
    return wanted > 0 ? wanted : 20;
}

/// A book of which both files take a while to be emptied.
void fill(const TemporaryBook& book)
{
    constexpr auto numbers = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<5000) ";
    book.execute(std::string(numbers)
        + "INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda) SELECT 100, 20240101, 'κίνηση', i FROM n");
    book.openAuxiliary().execute(
        std::string(numbers) + "INSERT INTO klhsimotameioy (hmeraklhsimatos) SELECT 20240101 FROM n");
}

qint64 microsecondsUntilEnd(WorkerProcess& worker)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(worker.waitForExit(30), 0) << worker.output().toStdString();
    return timer.nsecsElapsed() / 1000 + 1;
}

} // namespace

TEST(KilledDeletion, emptiesBothFilesOrNone)
{
    const TemporaryBook book;
    fill(book);
    const QString folder = book.path(QStringLiteral("killed"));
    const QString log = book.path(QStringLiteral("log"));
    const BookFiles files(folder);
    std::mt19937 random{11};
    qint64 longest = 0; ///< Microseconds that a deletion takes when it is let alone; found in the first round.
    int emptied = 0;
    int journals = 0;
    for (int round = 0; round < killRounds(); ++round) {
        QDir(folder).removeRecursively();
        QFile::remove(log);
        ASSERT_TRUE(QDir().mkdir(folder) && QFile::copy(book.files().mainDatabase(), files.mainDatabase())
            && QFile::copy(book.files().auxiliaryDatabase(), files.auxiliaryDatabase()));
        WorkerProcess worker({QStringLiteral("deletion"), folder, log});
        ASSERT_TRUE(worker.waitForLog(log)) << worker.output().toStdString();
        if (longest == 0)
            longest = microsecondsUntilEnd(worker);
        else
            QThread::usleep(static_cast<unsigned>(random() % longest));
        worker.kill();
        journals += !QDir(folder).entryList({QStringLiteral("*.mdb-journal")}).isEmpty();

        const auto open = [](const QString& path) { return Connection::open(path, testKeys().keyFor(path)); };
        const auto rowsOf = [&](const QString& path, std::string_view sql) {
            Connection database = open(path);
            EXPECT_EQ(valueOf(database, "PRAGMA integrity_check"), QStringLiteral("ok"));
            return valueOf(database, sql);
        };
        const QString movements = rowsOf(files.mainDatabase(), "SELECT count(*) FROM kinhseis");
        ASSERT_EQ(rowsOf(files.auxiliaryDatabase(), "SELECT count(*) FROM klhsimotameioy"), movements)
            << "round " << round;
        ASSERT_TRUE(movements == QStringLiteral("0") || movements == QStringLiteral("5000"));
        if (movements == QStringLiteral("0")) {
            ++emptied;
            const QString copy = folder + QStringLiteral("/lorvan-2024-03-15-120000.mdb");
            EXPECT_EQ(rowsOf(copy, "SELECT count(*) FROM kinhseis"), QStringLiteral("5000"));
        }
    }
    std::cout << "killed during deletions: " << emptied << " of " << killRounds() << " emptied, " << journals
              << " with a journal left behind\n";
    EXPECT_GT(journals, 0) << "no kill has hit the transaction";
    EXPECT_GT(emptied, 0);
    EXPECT_LT(emptied, killRounds());
}

} // namespace lorvan::test
