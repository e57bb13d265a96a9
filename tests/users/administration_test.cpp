#include "app/book_copy.h"
#include "platform/sql_error.h"
#include "platform/transaction.h"
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

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

QString closedDays(Connection& auxiliary)
{
    return valueOf(auxiliary,
        "SELECT group_concat(day, ' ') FROM (SELECT hmeraklhsimatos AS day FROM klhsimotameioy ORDER BY day)");
}

/// How many rows each table has that a deletion empties, and each that it leaves.
QString sizes(const BookFiles& files)
{
    Connection main = Connection::open(files.mainDatabase(), testKeys().keyFor(files.mainDatabase()));
    const QString users = files.auxiliaryDatabase();
    main.attach(users, testKeys().keyFor(users), QStringLiteral("other"));
    return valueOf(main,
        "SELECT (SELECT count(*) FROM kinhseis) || ' ' || (SELECT count(*) FROM tameio) || ' ' ||"
        " (SELECT count(*) FROM kvdikoi) || ' ' || (SELECT count(*) FROM omades) || ' ' ||"
        " (SELECT count(*) FROM klhsimotameioy) || ' | ' || (SELECT count(*) FROM codes) || ' ' ||"
        " (SELECT ariumos FROM taytothta)");
}

const QString allThere = QStringLiteral("800 1 2 1 2 | 1 3");
const QString allGone = QStringLiteral("0 0 0 0 0 | 1 3");

class DeletionTest : public testing::Test {
protected:
    DeletionTest()
    {
        book.addUser(QStringLiteral("Σοφία"), QStringLiteral("μυστικό"));
        book.close(QDate(2024, 3, 1));
        book.close(QDate(2024, 3, 5));
        book.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<800)"
                     " INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda) SELECT 100, 20240301, 'κίνηση', i"
                     " FROM n; INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (20240301, 1, 0, 1)");
        QDir().mkdir(disk);
    }
    ~DeletionTest() override { Mount::undo(disk); }

    void copyBookToDisk() const
    {
        for (const char* name : {"lorvan.mdb", "mapcodes.mdb"})
            ASSERT_TRUE(QFile::copy(book.path(QString::fromUtf8(name)), disk + u'/' + QString::fromUtf8(name)));
    }
    /// Leaves so many bytes free on the small disk.
    void fillDisk(qint64 free) const
    {
        QFile filler(disk + QStringLiteral("/filler"));
        ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (filler.write(QByteArray(4096, 'x')) == 4096) { }
        ASSERT_TRUE(filler.resize(filler.size() - free));
    }
    [[nodiscard]] QStringList namesOnDisk() const { return QDir(disk).entryList(QDir::Files); }

    TemporaryBook book;
    const QString disk = book.path(QStringLiteral("disk"));
    const QDateTime now = fixedClock().now();
};

} // namespace

TEST(CloseOpenDays, fillsTheGapsBetweenTheFirstAndTheLast)
{
    const struct {
        const char* what;
        std::vector<int> closed;
        const char* then;
    } cases[] = {
        {"none", {}, ""},
        {"one", {20240305}, "20240305"},
        {"a gap", {20240305, 20240301, 20240302}, "20240301 20240302 20240303 20240304 20240305"},
        {"no gap", {20240301, 20240302, 20240303}, "20240301 20240302 20240303"},
        {"over the year", {20231230, 20240102}, "20231230 20231231 20240101 20240102"},
        {"over a leap day", {20240228, 20240301}, "20240228 20240229 20240301"},
        {"twice the same", {20240301, 20240301, 20240303}, "20240301 20240301 20240302 20240303"},
        {"no dates", {0, 20240230, 20240303, 20240305, 99999999}, "0 20240230 20240303 20240304 20240305 99999999"},
    };
    for (const auto& each : cases) {
        const TemporaryBook book;
        Connection auxiliary = book.openAuxiliary();
        for (const int day : each.closed)
            auxiliary.prepare("INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (?)").bind(day).run();
        closeOpenDays(auxiliary, [] { return true; });
        if (each.then)
            EXPECT_EQ(closedDays(auxiliary), QString::fromUtf8(each.then)) << each.what;
        else
            EXPECT_EQ(
                valueOf(auxiliary, "SELECT count(DISTINCT hmeraklhsimatos) FROM klhsimotameioy"), QStringLiteral("63"));
    }
}

TEST(CloseOpenDays, aRangeOfCenturiesCanBeStoppedAndThenClosesNothing)
{
    const TemporaryBook book;
    book.close(QDate(1900, 1, 1));
    book.close(QDate(2024, 1, 1));
    Connection auxiliary = book.openAuxiliary();
    int questions = 0;
    closeOpenDays(auxiliary, [&questions] { return ++questions < 3; });
    EXPECT_EQ(questions, 3);
    EXPECT_EQ(closedDays(auxiliary), QStringLiteral("19000101 20240101"));
}

TEST_F(DeletionTest, copiesTheBookThenEmptiesItButForUsersAndVersion)
{
    const QByteArray main = bytesOf(book.files().mainDatabase());
    const QByteArray auxiliary = bytesOf(book.files().auxiliaryDatabase());
    ASSERT_EQ(sizes(book.files()), allThere);
    const CopiedBook copy = deleteAllData(book.files(), testKeys(), now);
    EXPECT_EQ(sizes(book.files()), allGone);
    EXPECT_EQ(copy.mainDatabase, book.path(QStringLiteral("lorvan-2024-03-15-120000.mdb")));
    EXPECT_EQ(copy.auxiliaryDatabase, book.path(QStringLiteral("mapcodes-2024-03-15-120000.mdb")));
    EXPECT_EQ(bytesOf(copy.mainDatabase), main);
    EXPECT_EQ(bytesOf(copy.auxiliaryDatabase), auxiliary);

    book.addMovementRow(incomeOf(QDate(2024, 3, 1), cents(1)));
    Connection reopened = book.openMain();
    EXPECT_EQ(valueOf(reopened, "SELECT aa FROM kinhseis"), QStringLiteral("801")) << "no number is given twice";
    const CopiedBook second = deleteAllData(book.files(), testKeys(), now);
    EXPECT_EQ(second.mainDatabase, book.path(QStringLiteral("lorvan-2024-03-15-120001.mdb")));
    EXPECT_EQ(bytesOf(copy.mainDatabase), main) << "no copy overwrites another";
}

TEST_F(DeletionTest, theCopyOfABookThatAKilledProgramLeftIsWholeAgain)
{
    {
        Connection killed = book.openMain();
        killed.execute("PRAGMA cache_size = 2; BEGIN; UPDATE kinhseis SET esoda = -1");
        copyBookToDisk(); // half of the change has reached the file
        const QString journal = QStringLiteral("/lorvan.mdb-journal");
        ASSERT_TRUE(QFile::copy(book.folder() + journal, disk + journal));
    }
    const QString main = disk + QStringLiteral("/lorvan.mdb");
    ASSERT_NE(bytesOf(main), bytesOf(book.files().mainDatabase()));
    const CopiedBook copy = deleteAllData(BookFiles(disk), testKeys(), now);
    Connection copied = Connection::open(copy.mainDatabase, testKeys().keyFor(copy.mainDatabase));
    EXPECT_EQ(valueOf(copied, "SELECT count(*) || ' ' || sum(esoda) FROM kinhseis"), QStringLiteral("800 320400"));
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
    const QString copy = deleteAllData(book.files(), testKeys(), now).mainDatabase;
    Connection copied = Connection::open(copy, testKeys().keyFor(copy));
    EXPECT_EQ(valueOf(copied, "SELECT count(*) FROM kinhseis"), QStringLiteral("801"));
    EXPECT_EQ(sizes(book.files()), allGone);
}

TEST_F(DeletionTest, aFullDiskKeepsTheBookAndNoPartOfACopy)
{
    if (!Mount::smallDisk(disk))
        GTEST_SKIP() << "SKIPPED: the system does not let a test mount a small disk";
    copyBookToDisk();
    const auto roomFor = [this](const char* name) {
        return (QFileInfo(disk + QString::fromUtf8(name)).size() + 4095) / 4096 * 4096;
    };
    const qint64 main = roomFor("/lorvan.mdb");
    const qint64 both = main + roomFor("/mapcodes.mdb");
    for (const qint64 free : {qint64{0}, qint64{8192}, main, both}) {
        ASSERT_NO_FATAL_FAILURE(fillDisk(free));
        const QStringList before = namesOnDisk();
        if (free < both) {
            EXPECT_THROW((void)deleteAllData(BookFiles(disk), testKeys(), now), BookCopyFailed) << free;
        } else {
            EXPECT_THROW((void)deleteAllData(BookFiles(disk), testKeys(), now), SqlError);
        }
        EXPECT_EQ(namesOnDisk(), before) << free;
        EXPECT_EQ(sizes(BookFiles(disk)), allThere) << free;
    }
}

TEST_F(DeletionTest, aReadOnlyFolderKeepsTheBook)
{
    copyBookToDisk();
    if (!Mount::readOnly(disk))
        GTEST_SKIP() << "SKIPPED: the system does not let a test mount a folder for reading only";
    EXPECT_ANY_THROW((void)deleteAllData(BookFiles(disk), testKeys(), now));
    EXPECT_EQ(sizes(BookFiles(disk)), allThere);
}

} // namespace lorvan::test
