#include "marker/usage_marker.h"
#include "support/files.h"
#include "support/watched_disk.h"

#include <QTemporaryDir>

#include <cerrno>

namespace lorvan::test {

TEST(MarkerFault, noFailingCallLeavesItInUseByNobody)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("lorvan.dat");
    UsageMarker::unlock(path);
    UsageMarker marker(path, {"Μαρία", "TAMEIO1"});
    QDir notes(qEnvironmentVariable("XDG_STATE_HOME") + "/Lorvan/claims");
    const auto isFree = [&path] { return readFile(path).startsWith('0'); };
    for (const bool isLasting : {false, true}) {
        DiskFault fault;
        for (int call = 1; fault.calls >= call - 1; ++call) {
            fault = {call, EIO, isLasting};
            notes.removeRecursively(); // each that is left is read by the next claim
            {
                const WatchedDisk watched(nullptr, &fault);
                (void)failureOf([&] { (void)marker.claim(); });
                EXPECT_TRUE(marker.owns() || isFree()) << "call " << call;
                const bool isReleased = failureOf([&] { marker.release(); }).empty();
                EXPECT_TRUE(isReleased || marker.owns()) << "call " << call;
            }
            marker.release();
            EXPECT_TRUE(isFree()) << "call " << call;
        }
        EXPECT_GT(fault.at, 10);
    }
}

} // namespace lorvan::test
