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
namespace {

/// Four groups, forty codes in them, a hundred movements of each code.
void fill(const TemporaryBook& book)
{
    book.execute("DELETE FROM kvdikoi; DELETE FROM omades;"
                 "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<4)"
                 " INSERT INTO omades (aa, perigrafh) SELECT i, 'Ομάδα '||i FROM n;"
                 "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<40)"
                 " INSERT INTO kvdikoi (kvdikos, perigrafh, omada, aa_omadas)"
                 " SELECT i, 'Κωδικός '||i, perigrafh, omades.aa FROM n JOIN omades ON omades.aa=1+i%4;"
                 "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<100)"
                 " INSERT INTO kinhseis (kvdikos, hmeromhnia, aa_omada)"
                 " SELECT kvdikos, 20240101+i%28, aa_omadas FROM n, kvdikoi");
}

constexpr auto codesOutOfStep = "SELECT group_concat(kvdikos) FROM kvdikoi LEFT JOIN omades ON omades.aa=aa_omadas"
                                " WHERE CASE aa_omadas WHEN 0 THEN omada<>' ' ELSE omades.perigrafh IS NOT omada END";

/// Movements keep the number of a group that was deleted, until their code gets another.
constexpr auto movementsOutOfStep =
    "SELECT group_concat(DISTINCT kvdikos) FROM kinhseis JOIN kvdikoi USING (kvdikos)"
    " WHERE CASE aa_omadas WHEN 0 THEN aa_omada IN (SELECT aa FROM omades) ELSE aa_omada<>aa_omadas END";

} // namespace

TEST(KilledCodeChange, leavesCodesMovementsAndGroupsInStep)
{
    const TemporaryBook book;
    fill(book);
    const QString log = book.path(QStringLiteral("log"));
    std::mt19937 random{17};
    std::size_t changes = 0;
    int journals = 0;
    const int rounds = std::max(20, qEnvironmentVariableIntValue("LORVAN_KILL_ROUNDS")); // 500 make a soak run
    for (int round = 0; round < rounds; ++round) {
        QFile::remove(log);
        WorkerProcess worker({QStringLiteral("codes"), book.folder(), log, QString::number(round)});
        ASSERT_TRUE(worker.waitForLog(log)) << worker.output().toStdString();
        QThread::usleep(random() % 60'000);
        worker.kill();
        ASSERT_EQ(worker.output(), QString()) << "the changes came to an end by themselves";
        changes += WorkerLog::read(log).size() - 1;
        journals += QFile::exists(book.files().mainDatabase() + QStringLiteral("-journal"));

        Connection main = book.openMain();
        ASSERT_EQ(valueOf(main, "PRAGMA integrity_check"), QStringLiteral("ok"));
        ASSERT_EQ(valueOf(main, codesOutOfStep), QString()) << "round " << round;
        ASSERT_EQ(valueOf(main, movementsOutOfStep), QString()) << "round " << round;
        book.execute("INSERT INTO omades (perigrafh) SELECT 'Νέα' WHERE (SELECT count(*) FROM omades)<4");
    }
    std::cout << "killed during changes of codes and groups: " << changes << " changes made, journal left behind "
              << journals << '\n';
    EXPECT_GT(changes, 0U);
    EXPECT_GT(journals, 0) << "no kill has hit a transaction";
}

} // namespace lorvan::test
