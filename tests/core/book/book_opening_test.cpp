#include "book/book_opening.h"
#include "book/schema_upgrade.h"
#include "cashbook/opening_balance.h"
#include "platform/engine/sql_error.h"
#include "support/temporary_book.h"

#include <QFile>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

class BookOpeningTest : public testing::Test {
protected:
    BookOpeningTest() { book.makeVersionless(); }

    Book open()
    {
        return openBook(
            book.files(), testKeys(), marker,
            [this] {
                ++questions;
                onQuestion();
                return OpeningBalance{QDate(2024, 1, 1), cents(1)};
            },
            openingSteps());
    }

    [[nodiscard]] bool isUpgraded() const
    {
        Connection main = book.openMain();
        return !needsUpgrade(main);
    }
    [[nodiscard]] bool hasDayIndex() const
    {
        Connection main = book.openMain();
        return valueOf(main, "SELECT count(*) FROM sqlite_master WHERE name='lorvan_tameio_hmeromhnia'")
            == QStringLiteral("1");
    }

    TemporaryBook book;
    UsageMarker marker{book.files().usageMarker(), {QStringLiteral("Μαρία"), QStringLiteral("A")}};
    UsageMarker other{book.files().usageMarker(), {QStringLiteral("Νίκος"), QStringLiteral("B")}};
    int questions = 0;
    std::function<void()> onQuestion = [] {};
};

} // namespace

TEST_F(BookOpeningTest, anOldBookIsUpgradedOnceAndGetsItsIndexes)
{
    book.execute("DROP INDEX IF EXISTS lorvan_tameio_hmeromhnia");
    EXPECT_FALSE(isUpgraded());
    (void)open();
    (void)open();
    EXPECT_EQ(questions, 1);
    EXPECT_TRUE(isUpgraded() && hasDayIndex());
}

TEST_F(BookOpeningTest, theUpgradeWaitsWhileAnotherComputerWorks)
{
    ASSERT_TRUE(other.claim());
    EXPECT_THROW((void)open(), UpgradeMustWait);
    EXPECT_EQ(questions, 0);
    other.release();

    onQuestion = [this] { EXPECT_TRUE(other.claim()); };
    EXPECT_THROW((void)open(), UpgradeMustWait) << "claimed while the question stood";
    EXPECT_EQ(questions, 1);
    EXPECT_FALSE(isUpgraded());
}

TEST_F(BookOpeningTest, missingIndexesWaitWhileAnotherComputerWorks)
{
    (void)open();
    book.execute("DROP INDEX lorvan_tameio_hmeromhnia");
    ASSERT_TRUE(other.claim());
    Book looking = open();
    EXPECT_FALSE(hasDayIndex());
    other.release();
    ASSERT_TRUE(looking.setAccess(Connection::Access::ReadWrite));
    looking.ensureSchema(openingSteps());
    EXPECT_TRUE(hasDayIndex());
}

TEST_F(BookOpeningTest, aBookThatCannotBeOpenedWholeIsNotChanged)
{
    onQuestion = [] { throw std::runtime_error("the window was closed"); };
    EXPECT_THROW((void)open(), std::runtime_error);
    QFile::remove(book.files().auxiliaryDatabase());
    EXPECT_THROW((void)open(), SqlError);
    EXPECT_EQ(questions, 1);
    EXPECT_FALSE(isUpgraded());
}

} // namespace lorvan::test
