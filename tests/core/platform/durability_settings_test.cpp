#include "platform/confirmation.h"
#include "platform/engine/transaction.h"
#include "platform/files/file_calls.h"
#include "support/files.h"
#include "support/temporary_book.h"

#include <cerrno>
#include <sys/stat.h>

namespace lorvan::test {
namespace {

/// A disk whose folders cannot be synced, from the first, second, ... time on.
class FolderSyncFails : public FileCalls {
public:
    explicit FolderSyncFails(int number, int from = 1)
        : m_number(number)
        , m_left(from)
    {
        replace(this);
    }
    ~FolderSyncFails() override { replace(nullptr); }

    int sync(int descriptor) override
    {
        struct stat found { };
        if ((::fstat(descriptor, &found) == 0 && !S_ISDIR(found.st_mode)) || --m_left > 0)
            return FileCalls::sync(descriptor);
        errno = m_number;
        return -1;
    }

private:
    int m_number;
    int m_left;
};

class DurabilitySettings : public testing::Test {
protected:
    [[nodiscard]] Connection openBook(Connection::Access access = Connection::Access::ReadWrite) const
    {
        const QString path = book.files().mainDatabase();
        const QString other = book.files().auxiliaryDatabase();
        Connection connection = Connection::open(path, testKeys().keyFor(path), access);
        connection.attach(other, testKeys().keyFor(other), "auxiliary");
        return connection;
    }

    TemporaryBook book;
};

} // namespace

TEST_F(DurabilitySettings, everyWritableSchemaSyncsTheJournalsEnd)
{
    Connection both = openBook(); // 3 is EXTRA, 2 is FULL
    EXPECT_EQ(valueOf(both, "PRAGMA main.synchronous"), "3");
    EXPECT_EQ(valueOf(both, "PRAGMA auxiliary.synchronous"), "3");
    Connection created = Connection::create(book.path("made.mdb"), bookPassword());
    EXPECT_EQ(valueOf(created, "PRAGMA main.synchronous"), "3");
}

TEST_F(DurabilitySettings, aFileSystemThatKnowsNoFolderSyncIsWrittenAllTheSame)
{
    for (const int number : {EINVAL, ENOSYS}) {
        const FolderSyncFails disk(number);
        Connection both = openBook();
        EXPECT_EQ(valueOf(both, "PRAGMA main.synchronous"), "2");
        EXPECT_EQ(valueOf(both, "PRAGMA auxiliary.synchronous"), "2");
        Transaction writing(both, byAll());
        both.execute("DELETE FROM main.kvdikoi; DELETE FROM auxiliary.codes");
        EXPECT_NO_THROW(writing.commit());
        EXPECT_FALSE(takeUnconfirmed());
    }
}

TEST_F(DurabilitySettings, anyOtherFailureOfAFolderSyncRefusesToWriteAndLetsRead)
{
    const FolderSyncFails disk(EIO);
    EXPECT_THROW((void)openBook(), SqlError);
    EXPECT_NO_THROW((void)openBook(Connection::Access::ReadOnly));
}

/// The folder's sync is what fails: behind a new journal nothing is stored yet, behind its end everything is.
TEST_F(DurabilitySettings, aCommitWhoseEndIsNotConfirmedCountsAsWhatItIs)
{
    Connection main = book.openMain();
    for (const bool isEnd : {false, true}) {
        const QString before = valueOf(main, "SELECT count(*) FROM kvdikoi");
        const FolderSyncFails disk(EIO, isEnd ? 2 : 1);
        const auto change = [&main] {
            Transaction writing(main, byAll());
            main.execute("INSERT INTO kvdikoi (kvdikos) VALUES (7)");
            writing.commit();
        };
        EXPECT_EQ(troubleOf(change).has_value(), !isEnd);
        EXPECT_EQ(takeUnconfirmed(), isEnd);
        EXPECT_EQ(valueOf(main, "SELECT count(*) FROM kvdikoi") != before, isEnd);
    }
}

TEST_F(DurabilitySettings, aDatabaseIsAPlainFileUnderItsOwnName)
{
    const QString path = book.files().mainDatabase();
    const QString other = book.path("other");
    ASSERT_TRUE(QFile::rename(path, other));
    ASSERT_TRUE(QFile::link(other, path));
    EXPECT_THROW((void)openAt(path), SqlError) << "a link";
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_EQ(::mkfifo(path.toUtf8().constData(), 0600), 0);
    EXPECT_THROW((void)openAt(path), SqlError) << "a pipe";
    ASSERT_TRUE(QFile::remove(path) && QFile::rename(other, path));
    EXPECT_NO_THROW((void)openAt(path));
}

TEST_F(DurabilitySettings, aTriggerDoesNotRun)
{
    book.execute("CREATE TRIGGER spoil AFTER INSERT ON kvdikoi BEGIN DELETE FROM kvdikoi; END");
    book.addCode(300, "ΝΕΟΣ", true);
    Connection main = book.openMain();
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM kvdikoi"), "3");
}

} // namespace lorvan::test
