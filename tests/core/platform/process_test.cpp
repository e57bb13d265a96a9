#include "platform/engine/key_ring.h"
#include "platform/engine/transaction.h"
#include "platform/files/instance_guard.h"
#include "platform/machine_identity.h"
#include "support/files.h"
#include "support/temporary_book.h"

#include <QCoreApplication>

#include <fcntl.h>
#include <sched.h>
#include <thread>
#include <unistd.h>

namespace lorvan::test {

TEST(InstanceGuard, oneProgramFileIsOneProgramWhateverItsName)
{
    const QTemporaryDir folder;
    const auto programAt = [&folder](const char* name) {
        writeFile(folder.filePath(name), {});
        return folder.filePath(name);
    };
    const QString program = programAt("lorvan");
    const QString link = folder.filePath("link");
    ASSERT_TRUE(QFile::link(program, link));
    {
        InstanceGuard first(program);
        EXPECT_TRUE(first.isOnlyInstance());
        EXPECT_TRUE(first.isOnlyInstance());
        QList<QByteArray> calls;
        first.whenCalled([&calls](const QByteArray& token) { calls += token; });
        InstanceGuard(link).callOther("let me");
        InstanceGuard(link).callOther({});
        InstanceGuard(programAt("copy")).callOther("not you");
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        EXPECT_EQ(calls, (QList<QByteArray>{"let me", ""}));
        EXPECT_FALSE(InstanceGuard(program).isOnlyInstance());
        EXPECT_FALSE(InstanceGuard(link).isOnlyInstance());
        EXPECT_TRUE(InstanceGuard(programAt("copy")).isOnlyInstance());
    }
    InstanceGuard(program).callOther({}); // of nobody
    EXPECT_TRUE(InstanceGuard(program).isOnlyInstance());
}

TEST(KeyRing, derivesAKeyForEachSaltFollowsAReplacedFileAndLeavesTheProcessesLocksAlone)
{
    const TemporaryBook first;
    const TemporaryBook second;
    const QString path = first.files().mainDatabase();
    KeyRing keys(bookPassword());
    const QByteArray before = keys.keyFor(path).engineText();
    {
        Connection main = Connection::open(path, keys.keyFor(path), Connection::Access::ReadWrite);
        const Transaction writing(main, byAll());
        EXPECT_EQ(keys.keyFor(path).engineText(), before);
        const auto lockSeenByAnother = [&path] {
            struct flock lock { };
            lock.l_type = F_WRLCK;
            ::fcntl(::open(path.toUtf8().constData(), O_RDWR), F_GETLK, &lock);
            return lock.l_type;
        };
        EXPECT_EXIT(::_exit(lockSeenByAnother()), testing::ExitedWithCode(F_WRLCK), "");
    }
    EXPECT_NE(keys.keyFor(first.files().auxiliaryDatabase()).engineText(), before);

    QFile::remove(path);
    ASSERT_TRUE(QFile::copy(second.files().mainDatabase(), path));
    EXPECT_NE(keys.keyFor(path).engineText(), before);
    EXPECT_NO_THROW((void)Connection::open(path, keys.keyFor(path), Connection::Access::ReadWrite));
}

TEST(MachineIdentity, isTheAccountsNameAndTheHosts)
{
    EXPECT_FALSE(machineIdentity().user.isEmpty());
    bool isRenamed = false;
    std::thread([&isRenamed] { // the other threads' computer keeps its name
        isRenamed = ::unshare(CLONE_NEWUTS) == 0 && ::sethostname("tameio9", 7) == 0;
        if (!isRenamed)
            return;
        EXPECT_EQ(machineIdentity().computer, "tameio9");
        EXPECT_EQ(::sethostname("", 0), 0);
        EXPECT_EQ(machineIdentity().computer, "Ανώνυμος");
    })
        .join();
    if (!isRenamed)
        GTEST_SKIP() << "SKIPPED: the system does not let a test rename its computer";
}

} // namespace lorvan::test
