#include "platform/confirmation.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/transaction.h"
#include "platform/files/file_calls.h"
#include "support/temporary_book.h"

#include <QFile>

#include <cerrno>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace lorvan::test {
namespace {

/// A disk whose folders cannot be synced.
class FolderSyncFails : public FileCalls {
public:
    explicit FolderSyncFails(int number)
        : m_number(number)
    {
        replace(this);
    }
    ~FolderSyncFails() override { replace(nullptr); }

    int sync(int descriptor) override
    {
        struct stat found { };
        if (::fstat(descriptor, &found) == 0 && !S_ISDIR(found.st_mode))
            return FileCalls::sync(descriptor);
        errno = m_number;
        return -1;
    }

private:
    int m_number;
};

class DurabilitySettings : public testing::Test {
protected:
    [[nodiscard]] Connection openBoth(Connection::Access access) const
    {
        const BookFiles files = book.files();
        Connection connection = Connection::open(files.mainDatabase(), testKeys().keyFor(files.mainDatabase()), access);
        connection.attach(
            files.auxiliaryDatabase(), testKeys().keyFor(files.auxiliaryDatabase()), QStringLiteral("auxiliary"));
        return connection;
    }

    TemporaryBook book;
};

const QString full = QStringLiteral("2");
const QString extra = QStringLiteral("3");

} // namespace

TEST_F(DurabilitySettings, everyWritableSchemaSyncsTheJournalsEnd)
{
    Connection both = openBoth(Connection::Access::ReadWrite);
    EXPECT_EQ(valueOf(both, "PRAGMA main.synchronous"), extra);
    EXPECT_EQ(valueOf(both, "PRAGMA auxiliary.synchronous"), extra);
    const QString made = book.path(QStringLiteral("made.mdb"));
    Connection created = Connection::create(made, bookPassword());
    EXPECT_EQ(valueOf(created, "PRAGMA main.synchronous"), extra);
}

TEST_F(DurabilitySettings, aFileSystemThatKnowsNoFolderSyncIsWrittenAllTheSame)
{
    for (const int number : {EINVAL, ENOSYS}) {
        const FolderSyncFails disk(number);
        Connection both = openBoth(Connection::Access::ReadWrite);
        EXPECT_EQ(valueOf(both, "PRAGMA main.synchronous"), full);
        EXPECT_EQ(valueOf(both, "PRAGMA auxiliary.synchronous"), full);
        Transaction writing(both);
        both.execute("DELETE FROM main.kvdikoi; DELETE FROM auxiliary.codes");
        EXPECT_NO_THROW(writing.commit());
        EXPECT_FALSE(takeUnconfirmed());
    }
}

TEST_F(DurabilitySettings, anyOtherFailureOfAFolderSyncRefusesToWriteAndLetsRead)
{
    const FolderSyncFails disk(EIO);
    EXPECT_THROW((void)openBoth(Connection::Access::ReadWrite), SqlError);
    EXPECT_NO_THROW((void)openBoth(Connection::Access::ReadOnly));
}

/// The folder's sync is what fails: behind a new journal nothing is stored yet, behind its end everything is.
TEST_F(DurabilitySettings, aCommitWhoseEndIsNotConfirmedCountsAsWhatItIs)
{
    class FailsFrom : public FileCalls {
    public:
        explicit FailsFrom(int first)
            : m_left(first)
        {
            replace(this);
        }
        ~FailsFrom() override { replace(nullptr); }
        int sync(int descriptor) override
        {
            if (--m_left > 0)
                return FileCalls::sync(descriptor);
            errno = EIO;
            return -1;
        }

    private:
        int m_left;
    };
    Connection main = book.openMain();
    for (const bool isEnd : {false, true}) {
        const QString before = valueOf(main, "SELECT count(*) FROM kvdikoi");
        const FailsFrom disk(isEnd ? 2 : 1);
        const auto change = [&main] {
            Transaction writing(main);
            main.execute("INSERT INTO kvdikoi (kvdikos) VALUES (7)");
            writing.commit();
        };
        if (isEnd)
            EXPECT_NO_THROW(change());
        else
            EXPECT_THROW(change(), SqlError);
        EXPECT_EQ(takeUnconfirmed(), isEnd);
        EXPECT_EQ(valueOf(main, "SELECT count(*) FROM kvdikoi") != before, isEnd);
    }
}

TEST_F(DurabilitySettings, aDatabaseIsAPlainFileUnderItsOwnName)
{
    const QString path = book.files().mainDatabase();
    const QString other = book.path(QStringLiteral("other"));
    ASSERT_TRUE(QFile::rename(path, other));
    const auto open = [&path] { (void)Connection::open(path, testKeys().keyFor(path), Connection::Access::ReadWrite); };

    ASSERT_TRUE(QFile::link(other, path));
    EXPECT_THROW(open(), SqlError) << "a link";
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_EQ(::mkfifo(path.toUtf8().constData(), 0600), 0);
    EXPECT_THROW(open(), SqlError) << "a pipe";
    ASSERT_TRUE(QFile::remove(path) && QFile::rename(other, path));
    EXPECT_NO_THROW(open());
}

TEST_F(DurabilitySettings, aTriggerDoesNotRun)
{
    book.execute("CREATE TRIGGER spoil AFTER INSERT ON kvdikoi BEGIN DELETE FROM kvdikoi; END");
    book.addCode(300, QStringLiteral("ΝΕΟΣ"), true);
    Connection main = book.openMain();
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM kvdikoi"), QStringLiteral("3"));
}

} // namespace lorvan::test
