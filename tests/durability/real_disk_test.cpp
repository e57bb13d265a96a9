#include "support/mount.h"
#include "support/temporary_book.h"
#include "support/worker_log.h"
#include "support/worker_process.h"

#include <QDir>
#include <QFile>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace lorvan::test {
namespace {

constexpr int rounds = 5;

/// A disk in a file, with the file system that most have.
class RealDiskTest : public testing::Test {
protected:
    ~RealDiskTest() override
    {
        for (const QString& folder : {disk, afterCut})
            Mount::undo(folder);
    }

    static bool run(const QString& command)
    {
        return std::system((command + QStringLiteral(" >/dev/null 2>&1")).toUtf8().constData()) == 0;
    }
    static bool mount(const QString& image, const QString& folder)
    {
        QDir().mkpath(folder);
        return run(QStringLiteral("mount -o loop '%1' '%2'").arg(image, folder));
    }
    [[nodiscard]] bool makeDisk() const
    {
        return run(QStringLiteral("truncate -s 32M '%1' && mkfs.ext4 -q -F '%1'").arg(image)) && mount(image, disk);
    }
    void putBook() const
    {
        for (const char* name : {"lorvan.mdb", "mapcodes.mdb", "lorvan.dat"})
            ASSERT_TRUE(QFile::copy(book.path(QString::fromUtf8(name)), disk + u'/' + QString::fromUtf8(name)));
        const int folder = ::open(disk.toUtf8().constData(), O_RDONLY | O_DIRECTORY);
        ::syncfs(folder);
        ::close(folder);
    }

    /// What the log of a worker says: the changes that were confirmed, and the one under way.
    void follow(BookModel& model, std::optional<ModelChange>& pending) const
    {
        for (const std::string& line : WorkerLog::read(log)) {
            if (line == "done")
                model.apply(*std::exchange(pending, std::nullopt));
            else
                pending = changeIn(line);
        }
    }

    TemporaryBook book;
    const QTemporaryDir temporary;
    const QString image = temporary.filePath(QStringLiteral("image"));
    const QString copy = temporary.filePath(QStringLiteral("copy"));
    const QString log = temporary.filePath(QStringLiteral("log"));
    const QString disk = temporary.filePath(QStringLiteral("disk"));
    const QString afterCut = temporary.filePath(QStringLiteral("after"));
};

} // namespace

TEST_F(RealDiskTest, aConfirmedMovementOutlivesThePowerCut)
{
    if (!makeDisk()) {
        std::cout << "SKIPPED: no ext4 disk in a file can be mounted here\n";
        GTEST_SKIP() << "SKIPPED: no ext4 disk in a file can be mounted here";
    }
    putBook();
    BookModel model;
    for (int round = 0; round < rounds; ++round) {
        QFile::remove(log);
        WorkerProcess worker({QStringLiteral("changes"), disk, log, QString::number(round)});
        ASSERT_TRUE(worker.waitForLog(log)) << worker.output().toStdString();
        QThread::msleep(static_cast<unsigned long>(20 + 13 * round));
        worker.send(SIGSTOP);
        QThread::msleep(100);
        ASSERT_TRUE(run(QStringLiteral("cp --sparse=always '%1' '%2'").arg(image, copy)));
        std::optional<ModelChange> pending;
        follow(model, pending);
        worker.kill();

        ASSERT_TRUE(mount(copy, afterCut));
        const QString main = BookFiles(afterCut).mainDatabase();
        {
            Connection stored = Connection::open(main, testKeys().keyForCopy(main), Connection::Access::ReadWrite);
            ASSERT_EQ(valueOf(stored, "PRAGMA integrity_check"), QStringLiteral("ok"));
            BookModel next = model;
            if (pending)
                next.apply(*pending);
            const auto movements = storedMovements(stored);
            EXPECT_TRUE(movements == model.movements() || movements == next.movements()) << "round " << round;
        }
        Mount::undo(afterCut);

        // The next round goes on where this disk really stands.
        const QString original = BookFiles(disk).mainDatabase();
        Connection stored = Connection::open(original, testKeys().keyForCopy(original), Connection::Access::ReadWrite);
        if (pending && storedMovements(stored) != model.movements())
            model.apply(*pending);
    }
}

} // namespace lorvan::test
