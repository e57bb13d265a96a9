#include "support/temporary_book.h"
#include "support/worker_log.h"
#include "support/worker_process.h"

#include <QFile>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <random>

namespace lorvan::test {

/// 20 rounds; LORVAN_KILL_ROUNDS=500 makes a soak run of it.
TEST(KillTest, aKilledChangeIsKeptWholeOrNotAtAll)
{
    const TemporaryBook book;
    const QString log = book.path(QStringLiteral("log"));
    const int rounds = std::max(20, qEnvironmentVariableIntValue("LORVAN_KILL_ROUNDS"));
    std::mt19937 random{7};
    int kept = 0;
    BookModel model;
    for (int round = 0; round < rounds; ++round) {
        QFile::remove(log);
        WorkerProcess worker({QStringLiteral("changes"), book.folder(), log, QString::number(round)});
        ASSERT_TRUE(worker.waitForLog(log)) << worker.output().toStdString();
        QThread::usleep(random() % 60'000);
        worker.kill();

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
        kept += whole;
    }
    std::cout << "killed during changes: whole change kept " << kept << " of " << rounds << '\n';
}

} // namespace lorvan::test
