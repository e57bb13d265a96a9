#include "support/temporary_book.h"
#include "support/worker_log.h"
#include "support/worker_process.h"

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

struct Tally {
    int whole = 0;
    int none = 0;
    int journals = 0; ///< Kills that caught a transaction with its journal on disk.

    void print(const char* what) const
    {
        std::cout << "killed during " << what << ": whole change kept " << whole << ", nothing kept " << none
                  << ", journal left behind " << journals << '\n';
    }
};

class KillTest : public testing::Test {
protected:
    /// Runs the worker and kills it up to `longest` microseconds after its first line.
    void runAndKill(const QStringList& arguments, unsigned longest)
    {
        WorkerProcess worker(arguments);
        ASSERT_TRUE(worker.waitForLog(log)) << worker.output().toStdString();
        QThread::usleep(static_cast<unsigned>(random() % longest));
        worker.kill();
        tally.journals += QFile::exists(book.files().mainDatabase() + QStringLiteral("-journal"));
    }

    TemporaryBook book;
    const QString log = book.path(QStringLiteral("log"));
    std::mt19937 random{7};
    Tally tally;
};

} // namespace

TEST_F(KillTest, aKilledChangeIsKeptWholeOrNotAtAll)
{
    BookModel model;
    for (int round = 0; round < killRounds(); ++round) {
        QFile::remove(log);
        ASSERT_NO_FATAL_FAILURE(
            runAndKill({QStringLiteral("changes"), book.folder(), log, QString::number(round)}, 60'000));

        std::optional<ModelChange> pending;
        for (const std::string& line : WorkerLog::read(log)) {
            if (line == "done")
                model.apply(*std::exchange(pending, std::nullopt));
            else
                pending = changeIn(line);
        }
        Connection main = book.openMain();
        ASSERT_EQ(valueOf(main, "PRAGMA integrity_check"), QStringLiteral("ok"));
        const bool whole = pending && storedMovements(main) != model.movements();
        if (whole)
            model.apply(*pending);
        ASSERT_EQ(storedMovements(main), model.movements()) << "round " << round;
        ASSERT_EQ(storedCashDays(main), model.cashDays()) << "round " << round;
        ++(whole ? tally.whole : tally.none);
    }
    tally.print("changes");
    EXPECT_GT(tally.journals, 0) << "no kill has hit a transaction";
}

TEST_F(KillTest, aKilledUpgradeIsDoneWholeOrNotAtAll)
{
    book.makeVersionless();
    {
        Connection main = book.openMain();
        main.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<20000)"
                     " INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda, ejoda)"
                     " SELECT 100, 20240101+i%10*100+i/10%28, 'κίνηση', 10000, 0 FROM n;"
                     "INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo)"
                     " SELECT hmeromhnia, 1, 0, 7 FROM kinhseis GROUP BY hmeromhnia");
    }
    const QString main = book.files().mainDatabase();
    const QString original = book.path(QStringLiteral("original"));
    ASSERT_TRUE(QFile::copy(main, original));
    for (int round = 0; round < killRounds(); ++round) {
        QFile::remove(log);
        QFile::remove(main);
        ASSERT_TRUE(QFile::copy(original, main));
        ASSERT_NO_FATAL_FAILURE(runAndKill({QStringLiteral("upgrade"), book.folder(), log}, 120'000));

        Connection reopened = book.openMain();
        ASSERT_EQ(valueOf(reopened, "PRAGMA integrity_check"), QStringLiteral("ok"));
        const bool whole = !needsUpgrade(reopened);
        const QString setBalances = valueOf(reopened, "SELECT count(*) FROM tameio WHERE ypoloipo<>7");
        ASSERT_EQ(setBalances, whole ? QStringLiteral("252") : QStringLiteral("0")) << "round " << round;
        ++(whole ? tally.whole : tally.none);
        upgradeSchema(reopened, upgradeOpening());
        EXPECT_EQ(valueOf(reopened, "SELECT count(*) FROM kinhseis WHERE L_tajeos=0"), QStringLiteral("20000"));
    }
    tally.print("upgrades");
    EXPECT_GT(tally.journals, 0) << "no kill has hit the transaction";
}

} // namespace lorvan::test
