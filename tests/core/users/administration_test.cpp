#include "backup/book_copy.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/transaction.h"
#include "support/mount.h"
#include "support/temporary_book.h"
#include "users/administration.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace lorvan::test {
namespace {

const QString allThere = QStringLiteral("800 1 2 1 2 | 1 3");
const QString allGone = QStringLiteral("0 0 0 0 0 | 1 3");

/// How many rows each table has that a deletion empties, and those that it leaves.
QString sizes(const BookFiles& files)
{
    Connection main =
        Connection::open(files.mainDatabase(), testKeys().keyFor(files.mainDatabase()), Connection::Access::ReadWrite);
    const QString users = files.auxiliaryDatabase();
    main.attach(users, testKeys().keyFor(users), QStringLiteral("other"));
    return valueOf(main,
        "SELECT (SELECT count(*) FROM kinhseis) || ' ' || (SELECT count(*) FROM tameio) || ' ' ||"
        " (SELECT count(*) FROM kvdikoi) || ' ' || (SELECT count(*) FROM omades) || ' ' ||"
        " (SELECT count(*) FROM klhsimotameioy) || ' | ' || (SELECT count(*) FROM codes) || ' ' ||"
        " (SELECT ariumos FROM taytothta)");
}

class DeletionTest : public testing::Test {
protected:
    DeletionTest()
    {
        book.addUser(QStringLiteral("Σοφία"), QStringLiteral("μυστικό"));
        book.close(QDate(2024, 3, 1));
        book.close(QDate(2024, 3, 5));
        book.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<800)"
                     " INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda) SELECT 100, 20240301, 'κίνηση', i"
                     " FROM n; INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (20240301, 1, 0, 1);"
                     " INSERT INTO taken_imports (digest) VALUES ('once');"
                     " INSERT INTO opening_difference VALUES (20240301, 5)");
        QDir().mkdir(disk);
    }
    ~DeletionTest() override { Mount::undo(disk); }

    void copyToDisk(const char* name) const
    {
        ASSERT_TRUE(QFile::copy(book.path(QString::fromUtf8(name)), disk + u'/' + QString::fromUtf8(name)));
    }
    [[nodiscard]] CopiedBook deleteAll(const QString& folder) const
    {
        return deleteAllData(BookFiles(folder), testKeys(), fixedClock().now());
    }
    [[nodiscard]] static QString valueIn(const QString& path, std::string_view sql)
    {
        Connection database = Connection::open(path, testKeys().keyFor(path), Connection::Access::ReadWrite);
        return valueOf(database, sql);
    }
    [[nodiscard]] static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    TemporaryBook book;
    const QString disk = book.path(QStringLiteral("disk"));
};

} // namespace

TEST(CloseOpenDays, fillsTheGapsBetweenTheFirstAndTheLast)
{
    const struct {
        std::vector<int> closed;
        const char* then;
    } cases[] = {
        {{}, ""},
        {{20240305}, "20240305"},
        {{20240305, 20240301, 20240302}, "20240301 20240302 20240303 20240304 20240305"},
        {{20240301, 20240302, 20240303}, "20240301 20240302 20240303"},
        {{20231230, 20240102}, "20231230 20231231 20240101 20240102"},
        {{20240228, 20240301}, "20240228 20240229 20240301"},
        {{20240301, 20240301, 20240303}, "20240301 20240301 20240302 20240303"},
        {{0, 20240230, 20240303, 20240305, 99999999}, "0 20240230 20240303 20240304 20240305 99999999"},
    };
    for (const auto& each : cases) {
        const TemporaryBook book;
        Connection auxiliary = book.openAuxiliary();
        for (const int day : each.closed)
            auxiliary.prepare("INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (?)").bind(day).run();
        closeOpenDays(auxiliary, [] { return true; });
        EXPECT_EQ(valueOf(auxiliary,
                      "SELECT group_concat(d, ' ') FROM (SELECT hmeraklhsimatos d FROM klhsimotameioy ORDER BY d)"),
            QString::fromUtf8(each.then));
    }
}

TEST_F(DeletionTest, copiesTheBookThenEmptiesItButForUsersAndVersion)
{
    const QByteArray main = bytesOf(book.files().mainDatabase());
    const QByteArray auxiliary = bytesOf(book.files().auxiliaryDatabase());
    const CopiedBook copy = deleteAll(book.folder());
    EXPECT_EQ(sizes(book.files()), allGone);
    EXPECT_EQ(valueIn(book.files().mainDatabase(),
                  "SELECT (SELECT count(*) FROM taken_imports)||(SELECT count(*) FROM opening_difference)"),
        QStringLiteral("00"));
    EXPECT_EQ(copy.mainDatabase, book.path(QStringLiteral("lorvan-2024-03-15-120000.mdb")));
    EXPECT_EQ(bytesOf(book.path(QStringLiteral("mapcodes-2024-03-15-120000.mdb"))), auxiliary);

    book.addMovementRow(incomeOf(QDate(2024, 3, 1), cents(1)));
    EXPECT_EQ(valueIn(book.files().mainDatabase(), "SELECT aa FROM kinhseis"), QStringLiteral("801"));
    EXPECT_EQ(deleteAll(book.folder()).mainDatabase, book.path(QStringLiteral("lorvan-2024-03-15-120001.mdb")));
    EXPECT_EQ(bytesOf(copy.mainDatabase), main) << "no copy overwrites another";
}

TEST_F(DeletionTest, theCopyOfABookThatAKilledProgramLeftIsWholeAgain)
{
    Connection killed = book.openMain();
    killed.execute("PRAGMA cache_size = 2; BEGIN; UPDATE kinhseis SET esoda = -1"); // half of it is in the file
    for (const char* name : {"lorvan.mdb", "lorvan.mdb-journal", "mapcodes.mdb"})
        ASSERT_NO_FATAL_FAILURE(copyToDisk(name));
    EXPECT_EQ(valueIn(deleteAll(disk).mainDatabase, "SELECT sum(esoda) FROM kinhseis"), QStringLiteral("320400"));
    EXPECT_EQ(sizes(BookFiles(disk)), allGone);
}

TEST_F(DeletionTest, whatAWriterElsewhereIsJustSavingIsCopiedToo)
{
    std::promise<void> writing;
    const auto writer = std::async(std::launch::async, [&] {
        Connection other = book.openMain();
        Transaction change(other);
        other.execute("INSERT INTO kinhseis (kvdikos) VALUES (100)");
        writing.set_value();
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        change.commit();
    });
    writing.get_future().wait();
    EXPECT_EQ(valueIn(deleteAll(book.folder()).mainDatabase, "SELECT count(*) FROM kinhseis"), QStringLiteral("801"));
    EXPECT_EQ(sizes(book.files()), allGone);
}

TEST_F(DeletionTest, aFullDiskKeepsTheBookAndNoPartOfACopy)
{
    if (!Mount::smallDisk(disk))
        GTEST_SKIP() << "SKIPPED: the system does not let a test mount a small disk";
    for (const char* name : {"lorvan.mdb", "mapcodes.mdb"})
        ASSERT_NO_FATAL_FAILURE(copyToDisk(name));
    const auto roomFor = [](const QString& path) { return (QFileInfo(path).size() + 4095) / 4096 * 4096; };
    const qint64 main = roomFor(BookFiles(disk).mainDatabase());
    const qint64 both = main + roomFor(BookFiles(disk).auxiliaryDatabase());
    QFile filler(disk + QStringLiteral("/filler"));
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    for (const qint64 free : {qint64{0}, qint64{8192}, main, both}) {
        while (filler.write(QByteArray(4096, 'x')) == 4096) { }
        ASSERT_TRUE(filler.resize(filler.size() - free) && filler.seek(filler.size()));
        if (free < both) {
            EXPECT_THROW((void)deleteAll(disk), BookCopyFailed) << free;
        } else {
            EXPECT_THROW((void)deleteAll(disk), SqlError) << "no room to note what is deleted";
        }
        EXPECT_EQ(QDir(disk).entryList(QDir::Files).join(u' '), QStringLiteral("filler lorvan.mdb mapcodes.mdb"));
        EXPECT_EQ(sizes(BookFiles(disk)), allThere) << free;
    }
}

} // namespace lorvan::test
