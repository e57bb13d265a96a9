#include "platform/engine/sql_error.h"
#include "platform/engine/transaction.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <optional>

namespace lorvan::test {
namespace {

/// The error of an operation that must fail.
template <typename Operation> SqlError errorOf(Operation operation)
{
    try {
        operation();
    } catch (const SqlError& error) {
        return error;
    }
    ADD_FAILURE() << "nothing failed";
    return {0, {}, {}};
}

enum class Count { All, Busy };

int statementsOf(const Connection& connection, Count count)
{
    int statements = 0;
    for (sqlite3_stmt* statement = nullptr; (statement = sqlite3_next_stmt(connection.handle(), statement));)
        statements += count == Count::All || sqlite3_stmt_busy(statement);
    return statements;
}

class ConnectionTest : public testing::Test {
protected:
    TemporaryBook book;
    Connection main = book.openMain();
};

} // namespace

TEST_F(ConnectionTest, anErrorCarriesTheEnginesWordsAndTheStatement)
{
    const SqlError prepared = errorOf([&] { (void)main.prepare("SELECT ποσό FROM kinhseis"); });
    EXPECT_EQ(prepared.engineMessage(), QStringLiteral("no such column: ποσό"));
    EXPECT_EQ(prepared.statement(), QStringLiteral("SELECT ποσό FROM kinhseis"));
    EXPECT_NE(std::string(prepared.what()).find("no such column: ποσό (1): SELECT"), std::string::npos);

    const SqlError run = errorOf([&] { main.prepare("INSERT INTO omades (aa) VALUES (?)").bind(1).run(); });
    EXPECT_EQ(run.engineMessage(), QStringLiteral("UNIQUE constraint failed: omades.aa"));
    EXPECT_EQ(run.statement(), QStringLiteral("INSERT INTO omades (aa) VALUES (?)"));
    EXPECT_EQ(run.code(), SQLITE_CONSTRAINT_PRIMARYKEY);

    EXPECT_EQ(errorOf([&] { main.execute("DELETE FROM nothing"); }).statement(), QStringLiteral("DELETE FROM nothing"));
}

TEST_F(ConnectionTest, typedValuesComeBackAsTheyWent)
{
    const QString awkward = QStringLiteral("O'Neil \"%_\" ; -- κείμενο") + QString(10'000, u'ω');
    auto row = main.prepare("SELECT ?, ?, ?, ?, ?, ?, NULL");
    row.bind(awkward, QDate(2024, 2, 29), cents(-123), true, false, std::int64_t(1) << 40);
    ASSERT_TRUE(row.step());
    EXPECT_EQ(row.text(0), awkward);
    EXPECT_EQ(row.integer(1), 20240229);
    EXPECT_EQ(row.date(1), QDate(2024, 2, 29));
    EXPECT_EQ(row.integer(2), -12'300);
    EXPECT_EQ(row.currency(2), cents(-123));
    EXPECT_EQ(row.integer(3), -1);
    EXPECT_TRUE(row.boolean(3));
    EXPECT_EQ(row.integer(4), 0);
    EXPECT_EQ(row.integer(5), std::int64_t(1) << 40);
    EXPECT_TRUE(row.isNull(6));
    EXPECT_EQ(row.text(6), QString());
    EXPECT_TRUE(row.currency(6).isZero());
    EXPECT_FALSE(row.date(6).isValid());
    EXPECT_FALSE(row.step());
}

TEST_F(ConnectionTest, aStatementIsUsedAgainWithoutTheValuesOfItsLastUse)
{
    const char* const text = "SELECT ?, count(*) FROM sqlite_master";
    {
        auto first = main.prepare(text);
        first.bind(7);
        EXPECT_TRUE(first.step());
    }
    EXPECT_EQ(statementsOf(main, Count::Busy), 0) << "an idle program holds no lock";

    const int prepared = statementsOf(main, Count::All);
    auto again = main.prepare(text);
    EXPECT_EQ(statementsOf(main, Count::All), prepared);
    ASSERT_TRUE(again.step());
    EXPECT_TRUE(again.isNull(0));

    auto second = main.prepare(text); // while the first is in use
    ASSERT_TRUE(second.step());
    EXPECT_EQ(second.integer(1), again.integer(1));
}

TEST_F(ConnectionTest, aTransactionThatIsNotCommittedLeavesNothing)
{
    {
        const Transaction undone(main);
        main.execute("DELETE FROM omades");
    }
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM omades"), QStringLiteral("1"));
    {
        Transaction kept(main);
        main.execute("DELETE FROM omades");
        kept.commit();
    }
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM omades"), QStringLiteral("0"));
    EXPECT_FALSE(main.inTransaction());
}

TEST_F(ConnectionTest, aSecondWriterIsToldThatTheBookIsBusy)
{
    Connection other = book.openMain();
    other.setBusyTimeout(std::chrono::milliseconds(20));
    std::optional<Transaction> writing(std::in_place, main);
    EXPECT_EQ(errorOf([&] { const Transaction second(other); }).kind(), SqlError::Kind::Busy);
    EXPECT_EQ(valueOf(other, "SELECT count(*) FROM omades"), QStringLiteral("1")) << "readers are let in";
    writing.reset();
    EXPECT_NO_THROW(const Transaction second(other));
}

TEST_F(ConnectionTest, anAttachedFileTakesPartInTheTransaction)
{
    const QString path = book.files().auxiliaryDatabase();
    main.attach(path, testKeys().keyFor(path), QStringLiteral("aux"));
    {
        const Transaction undone(main);
        main.execute("DELETE FROM omades; INSERT INTO aux.klhsimotameioy (hmeraklhsimatos) VALUES (20240101)");
    }
    EXPECT_EQ(valueOf(main, "SELECT (SELECT count(*) FROM omades) || (SELECT count(*) FROM aux.klhsimotameioy)"),
        QStringLiteral("10"));
    const QString missing = book.path(QStringLiteral("missing.mdb"));
    EXPECT_EQ(errorOf([&] { main.attach(missing, testKeys().keyFor(path), QStringLiteral("b")); }).kind(),
        SqlError::Kind::CannotOpen);
    EXPECT_FALSE(BookFiles::exists(missing));
}

TEST_F(ConnectionTest, aBookOpensInTheStockShellWithThePasswordAlone)
{
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open_v2(book.files().mainDatabase().toUtf8().constData(), &raw, SQLITE_OPEN_READONLY, nullptr),
        SQLITE_OK);
    ASSERT_EQ(sqlite3_key(raw, bookPassword().constData(), int(bookPassword().size())), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(
                  raw, "PRAGMA integrity_check; SELECT * FROM kvdikoi ORDER BY perigrafh", nullptr, nullptr, nullptr),
        SQLITE_OK);
    sqlite3_close(raw);
}

} // namespace lorvan::test
