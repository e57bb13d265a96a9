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

QString rowsIn(const QString& path, std::string_view count)
{
    Connection database = Connection::open(path, testKeys().keyFor(path), Connection::Access::ReadWrite);
    return valueOf(database, "PRAGMA integrity_check") + u' ' + valueOf(database, count);
}

} // namespace

/// 20 rounds; LORVAN_KILL_ROUNDS=500 makes a soak run of it.
TEST(KilledDeletion, emptiesBothFilesOrNone)
{
    const std::string rows = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<5000) INSERT INTO ";
    const TemporaryBook book;
    book.execute(rows + "kinhseis (kvdikos, hmeromhnia, perigrafh) SELECT 100, 20240101, 'κίνηση' FROM n");
    book.openAuxiliary().execute(rows + "klhsimotameioy (hmeraklhsimatos) SELECT 20240101 FROM n");
    const QString folder = book.path(QStringLiteral("killed"));
    const QString log = book.path(QStringLiteral("log"));
    const BookFiles files(folder);
    const int rounds = std::max(20, qEnvironmentVariableIntValue("LORVAN_KILL_ROUNDS"));
    std::mt19937 random{11};
    qint64 duration = 0; // microseconds; the first deletion is let alone, and measured
    int journals = 0;
    for (int round = 0; round < rounds; ++round) {
        QDir(folder).removeRecursively();
        QFile::remove(log);
        ASSERT_TRUE(QDir().mkdir(folder) && QFile::copy(book.files().mainDatabase(), files.mainDatabase())
            && QFile::copy(book.files().auxiliaryDatabase(), files.auxiliaryDatabase()));
        WorkerProcess worker({QStringLiteral("deletion"), folder, log});
        ASSERT_TRUE(worker.waitForLog(log)) << worker.output().toStdString();
        QElapsedTimer timer;
        timer.start();
        if (round == 0) {
            ASSERT_EQ(worker.waitForExit(30), 0);
            duration = timer.nsecsElapsed() / 1000;
        } else {
            QThread::usleep(static_cast<unsigned>(random() % duration));
            worker.kill();
        }
        journals += !QDir(folder).entryList({QStringLiteral("*.mdb-journal")}).isEmpty();
        const QString movements = rowsIn(files.mainDatabase(), "SELECT count(*) FROM kinhseis");
        ASSERT_EQ(rowsIn(files.auxiliaryDatabase(), "SELECT count(*) FROM klhsimotameioy"), movements) << round;
        ASSERT_TRUE(movements == QStringLiteral("ok 5000") || movements == QStringLiteral("ok 0")) << round;
    }
    std::cout << "killed during deletions: journal left behind " << journals << " of " << rounds << '\n';
    EXPECT_GT(journals, 0) << "no kill has hit the transaction";
}

} // namespace lorvan::test
