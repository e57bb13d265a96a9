#include "platform/engine/connection.h"

#include "book/failure_text.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/transaction.h"
#include "support/files.h"
#include "support/temporary_book.h"

#include <functional>
#include <optional>
#include <sqlite3.h>

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
    EXPECT_EQ(prepared.engineMessage(), "no such column: ποσό");
    EXPECT_EQ(prepared.statement(), "SELECT ποσό FROM kinhseis");
    EXPECT_NE(std::string(prepared.what()).find("no such column: ποσό (1): SELECT"), std::string::npos);

    const SqlError run = errorOf([&] { main.prepare("INSERT INTO omades (aa) VALUES (?)").bind(1).run(); });
    EXPECT_EQ(run.engineMessage(), "UNIQUE constraint failed: omades.aa");
    EXPECT_EQ(run.statement(), "INSERT INTO omades (aa) VALUES (?)");
    EXPECT_EQ(run.code(), SQLITE_CONSTRAINT_PRIMARYKEY);

    EXPECT_EQ(errorOf([&] { main.execute("DELETE FROM nothing"); }).statement(), "DELETE FROM nothing");
}

TEST_F(ConnectionTest, aStatementIsUsedAgainWithoutTheValuesOfItsLastUse)
{
    const char* const text = "SELECT ?, count(*) FROM sqlite_master";
    EXPECT_TRUE(main.prepare(text).bind(7).step());
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

TEST_F(ConnectionTest, aSecondWriterIsToldThatTheBookIsBusy)
{
    Connection other = book.openMain();
    other.setBusyTimeout(std::chrono::milliseconds(20));
    std::optional<Transaction> writing(std::in_place, main, byAll());
    EXPECT_EQ(troubleOf([&] { const Transaction second(other, byAll()); }), SqlError::Kind::Busy);
    EXPECT_EQ(valueOf(other, "SELECT count(*) FROM omades"), "1") << "readers are let in";
    writing.reset();
    EXPECT_NO_THROW(const Transaction second(other, byAll()));
}

TEST_F(ConnectionTest, aFullDiskIsToldAsSuch)
{
    main.execute("PRAGMA max_page_count=1"); // no more than there are
    EXPECT_EQ(troubleOf([&] { main.execute("CREATE TABLE x AS SELECT zeroblob(100000)"); }), SqlError::Kind::DiskFull);
}

TEST_F(ConnectionTest, anAttachedFileTakesPartInTheTransaction)
{
    const QString path = book.files().auxiliaryDatabase();
    main.attach(path, testKeys().keyFor(path), "aux");
    {
        const Transaction undone(main, byAll());
        main.execute("DELETE FROM omades; INSERT INTO aux.klhsimotameioy (hmeraklhsimatos) VALUES (20240101)");
    }
    EXPECT_EQ(valueOf(main, "SELECT (SELECT count(*) FROM omades) || (SELECT count(*) FROM aux.klhsimotameioy)"), "10");
    const QString missing = book.path("missing.mdb");
    EXPECT_EQ(troubleOf([&] { main.attach(missing, testKeys().keyFor(path), "b"); }), SqlError::Kind::CannotOpen);
    EXPECT_FALSE(BookFiles::exists(missing));
}

TEST_F(ConnectionTest, aBookOpensInTheStockShellWithThePasswordAlone)
{
    sqlite3* raw = nullptr;
    const QByteArray path = book.files().mainDatabase().toUtf8();
    ASSERT_EQ(sqlite3_open_v2(path.constData(), &raw, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_key(raw, bookPassword().constData(), int(bookPassword().size())), SQLITE_OK);
    constexpr auto readAll = "PRAGMA integrity_check; SELECT * FROM kvdikoi ORDER BY perigrafh";
    EXPECT_EQ(sqlite3_exec(raw, readAll, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(raw);
}

TEST_F(ConnectionTest, sqlFunctionsConvertTextsAndFailOnWhatIsNoDateOrNumber)
{
    const auto evaluate = [this](const char* expression) { return valueOf(main, std::string("SELECT ") + expression); };
    const std::pair<const char*, const char*> cases[] = {{"cdate('12-03-2005')", "20050312"},
        {"csng('1.234,56')", "12345600"}, {"csng('-0,5')", "-5000"}, {"amount_add(5,-7)", "-2"},
        {"amount_add(NULL,3)", "3"}, {"amount_add(9223372036854775807,0)", "9223372036854775807"}};
    for (const auto& [expression, value] : cases)
        EXPECT_EQ(evaluate(expression), value) << expression;
    for (const char* failing : {"cdate('31-02-2005')", "cdate('')", "cdate(NULL)", "csng('1,234,5')", "csng('')",
             "csng('1000000000000000')", "amount_add(9223372036854775807,1)", "amount_add(-9223372036854775807,-2)"})
        EXPECT_THROW((void)evaluate(failing), SqlError) << failing;
}

TEST_F(ConnectionTest, theGreekCollationOrdersAndComparesInQueries)
{
    const QStringList ordered{"12", "αγορά", "Άλφα", "ΒΗΤΑ", "γάμα", "Ζήτα", "Πωλήσεις", "ώρα", "zeta"};
    for (int i = 8; i >= 0; --i) {
        if (i != 6) // which is there
            book.addGroup(10 - i, ordered[i]);
    }
    EXPECT_EQ(valueOf(main,
                  "SELECT group_concat(perigrafh, ' ') FROM (SELECT * FROM omades ORDER BY perigrafh COLLATE greek)"),
        ordered.join(u' '));
    EXPECT_EQ(valueOf(main, "SELECT aa FROM omades WHERE perigrafh='ΠΩΛΉΣΕΙΣ' COLLATE greek"), "1");
}

TEST(DamagedFiles, eachIsReportedForWhatItIsAndLeftAsItWas)
{
    using Kind = SqlError::Kind;
    const struct {
        const char* name;
        std::function<void(const QString&)> damage;
        Kind kind;
        QByteArray password = bookPassword();
    } cases[] = {
        {"wrong password", [](const QString&) {}, Kind::NotADatabase, "TelmaHarbour"},
        {"half a file", [](const QString& path) { QFile::resize(path, QFile(path).size() / 2 / 1024 * 1024); },
            Kind::Damaged},
        {"less than a page", [](const QString& path) { QFile::resize(path, 700); }, Kind::NotADatabase},
        {"empty file", [](const QString& path) { writeFile(path, {}); }, Kind::NotADatabase},
        {"foreign file", [](const QString& path) { writeFile(path, QByteArray(8192, 'x')); }, Kind::NotADatabase},
        {"missing file", [](const QString& path) { QFile::remove(path); }, Kind::CannotOpen},
        {"folder in its place", [](const QString& path) { QFile::remove(path) && QDir().mkdir(path); },
            Kind::CannotOpen},
    };
    for (const auto& [name, damage, kind, password] : cases) {
        const TemporaryBook book;
        const QString path = book.files().auxiliaryDatabase();
        damage(path);
        const QByteArray before = readFile(path);
        KeyRing keys(password);
        keys.prepare(path);
        try {
            Connection::open(path, keys.keyFor(path), Connection::Access::ReadWrite);
            ADD_FAILURE() << name << " was opened";
        } catch (const SqlError& error) {
            EXPECT_EQ(error.kind(), kind) << name << ": " << error.what();
            EXPECT_TRUE(failureText(error).endsWith(error.what())) << name;
            EXPECT_FALSE(failureText(error).contains(QString::fromLatin1(password))) << name;
        }
        EXPECT_EQ(readFile(path), before) << name;
    }
}

} // namespace lorvan::test
