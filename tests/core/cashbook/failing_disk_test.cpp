#include "book/usage_marker.h"
#include "cashbook/cash_book.h"
#include "platform/engine/sql_error.h"
#include "support/book_model.h"
#include "support/mount.h"
#include "support/temporary_book.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

class FailingDiskTest : public testing::Test {
protected:
    ~FailingDiskTest() override { Mount::undo(folder); }

    /// The kind of trouble that an operation ends in.
    template <typename Operation> static std::optional<SqlError::Kind> troubleOf(Operation operation)
    {
        try {
            operation();
        } catch (const SqlError& error) {
            return error.kind();
        }
        return std::nullopt;
    }

    [[nodiscard]] Book open() const
    {
        const BookFiles files(folder);
        const auto at = [](const QString& path) {
            return Connection::open(path, testKeys().keyFor(path), Connection::Access::ReadWrite);
        };
        return {at(files.mainDatabase()), at(files.auxiliaryDatabase())};
    }

    void copyBookTo(const QString& target) const
    {
        for (const char* name : {"lorvan.mdb", "mapcodes.mdb", "lorvan.dat"})
            ASSERT_TRUE(QFile::copy(book.path(QString::fromUtf8(name)), target + u'/' + QString::fromUtf8(name)));
    }

    TemporaryBook book;
    const QString folder = [this] {
        QDir().mkdir(book.path(QStringLiteral("disk")));
        return book.path(QStringLiteral("disk"));
    }();
};

const QDate day(2024, 3, 15);

} // namespace

TEST_F(FailingDiskTest, aFullDiskRefusesTheChangeAndKeepsTheBook)
{
    if (!Mount::smallDisk(folder))
        GTEST_SKIP() << "SKIPPED: the system does not let a test mount a small disk";
    copyBookTo(folder);
    Book small = open();
    CashBook cashBook(small, {});
    BookModel model;
    std::optional<SqlError::Kind> trouble;
    for (int i = 0; i < 500 && !trouble; ++i) {
        const QString description(4000, u'ω');
        trouble = troubleOf([&] { (void)cashBook.insert(incomeOf(day.addDays(i % 7), cents(i), description)); });
        if (!trouble)
            model.apply({ModelChange::Kind::Insert, {0, 20240315 + i % 7, i, 0}});
    }
    EXPECT_EQ(trouble, SqlError::Kind::DiskFull);
    EXPECT_GT(model.movements().size(), 5U);
    EXPECT_EQ(storedMovements(small.main()), model.movements());
    EXPECT_EQ(storedCashDays(small.main()), model.cashDays());
    EXPECT_EQ(valueOf(small.main(), "PRAGMA integrity_check"), QStringLiteral("ok"));
}

TEST_F(FailingDiskTest, aReadOnlyFolderShowsTheBookAndRefusesChanges)
{
    copyBookTo(folder);
    {
        Book writable = open();
        (void)CashBook(writable, {}).insert(incomeOf(day, cents(5)));
    }
    if (!Mount::readOnly(folder))
        GTEST_SKIP() << "SKIPPED: the system does not let a test mount a folder for reading only";
    Book reading = open();
    CashBook cashBook(reading, {});
    EXPECT_TRUE(reading.main().isReadOnly());
    EXPECT_EQ(cashBook.showDay(day, DayRow::Write).figures.closingBalance, cents(5));
    EXPECT_EQ(troubleOf([&] { (void)cashBook.insert(incomeOf(day, cents(1))); }), SqlError::Kind::ReadOnly);
    EXPECT_EQ(storedCashDays(reading.main()), (CashDayLines{"20240315 5 0 5"}));
    UsageMarker marker(BookFiles(folder).usageMarker(), {});
    EXPECT_THROW((void)marker.claim(), MarkerError);
}

} // namespace lorvan::test
