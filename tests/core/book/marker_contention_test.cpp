#include "book/usage_marker.h"
#include "support/temporary_book.h"
#include "support/worker_log.h"
#include "support/worker_process.h"

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

namespace lorvan::test {
namespace {

struct Report {
    int changes = 0;
    int refusals = 0;
};

Report reportIn(const QString& log)
{
    Report report;
    for (const std::string& line : WorkerLog::read(log)) {
        std::istringstream fields(line);
        std::string word;
        fields >> word >> report.changes >> word >> report.refusals;
    }
    return report;
}

} // namespace

TEST(MarkerContention, twoComputersNeverHoldTheMarkerAtOnceInHundredsOfRounds)
{
    const TemporaryBook book;
    const QString rounds = QStringLiteral("200");
    const QString logs[] = {book.path(QStringLiteral("log1")), book.path(QStringLiteral("log2"))};
    WorkerProcess first({QStringLiteral("marker"), book.folder(), logs[0], QStringLiteral("ταμείο1"), rounds});
    WorkerProcess second({QStringLiteral("marker"), book.folder(), logs[1], QStringLiteral("ταμείο2"), rounds});
    ASSERT_EQ(first.waitForExit(50), 0) << first.output().toStdString();
    ASSERT_EQ(second.waitForExit(50), 0) << second.output().toStdString();
    if (first.output().contains(QStringLiteral("no UTS namespace")))
        std::cout << "SKIPPED the computers' own names: the system refuses UTS namespaces\n";

    const Report reports[] = {reportIn(logs[0]), reportIn(logs[1])};
    EXPECT_GT(reports[0].refusals + reports[1].refusals, 0) << "the two never met";
    Connection main = book.openMain();
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM kinhseis").toInt(), reports[0].changes + reports[1].changes);
    EXPECT_EQ(valueOf(main, "SELECT ypoloipo/100 FROM tameio"), QStringLiteral("16"));
}

} // namespace lorvan::test
