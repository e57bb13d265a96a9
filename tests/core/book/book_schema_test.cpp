#include "book/book_schema.h"

#include "book/book_opening.h"
#include "book/schema_upgrade.h"
#include "platform/engine/transaction.h"
#include "proof/opening_balance.h"
#include "support/files.h"
#include "support/temporary_book.h"

namespace lorvan::test {
namespace {

QString planOf(Connection& connection, const std::string& query)
{
    auto plan = connection.prepare("EXPLAIN QUERY PLAN " + query);
    return plan.step() ? plan.text(3) : QString();
}

bool usesIndex(Connection& connection, const std::string& query)
{
    const QString plan = planOf(connection, query);
    return plan.contains("USING") && !plan.contains("SCAN");
}

const char* const indexedQueries[] = {
    "SELECT * FROM kinhseis WHERE hmeromhnia=1",
    "SELECT * FROM kinhseis WHERE kvdikos=1",
    "SELECT * FROM tameio WHERE hmeromhnia<1 ORDER BY hmeromhnia DESC LIMIT 1",
    "SELECT * FROM kvdikoi WHERE kvdikos=1",
    "SELECT amount FROM opening_difference WHERE day>1 AND day<=2",
};

const OpeningBalance counted{QDate(2005, 12, 5), cents(150'050)};

/// Cash days around the counted one, a later one without movements, under a version; "none" leaves the table empty.
void makeOld(const TemporaryBook& book, const char* version)
{
    book.makeVersionless();
    book.execute("INSERT INTO kinhseis (kvdikos, hmeromhnia, esoda, ejoda) VALUES (100, 20051204, 10000, 0),"
                 " (100, 20051205, 700, 0), (100, 20051207, 0, 30000), (100, 20051230, 1, 0), (100, 20051232, 9, 0);"
                 "INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo)"
                 " VALUES (20051204, 10000, 0, 10000), (20051205, 0, 0, 10000), (20051206, 0, 0, 9999), (20051208, 0, "
                 "30000, 5)");
    const std::string text = version;
    if (text != "none")
        book.execute("INSERT INTO taytothta (ariumos) VALUES (" + text + ")");
    if (text != "3")
        book.execute("DROP TABLE opening_difference");
    if (text == "2" || text == "3")
        book.execute("ALTER TABLE kinhseis ADD COLUMN L_tajeos INTEGER; UPDATE kinhseis SET L_tajeos=77");
}

QString state(Connection& main)
{
    return valueOf(main,
        "SELECT (SELECT group_concat(ariumos) FROM taytothta) || '|' || (SELECT group_concat(DISTINCT L_tajeos) FROM "
        "kinhseis)"
        " || '|' || (SELECT group_concat(ypoloipo) FROM (SELECT ypoloipo FROM tameio ORDER BY hmeromhnia))"
        " || '|' || (SELECT coalesce(group_concat(day || ' ' || amount), '') FROM opening_difference)");
}

constexpr auto dropIndex = "DROP INDEX lorvan_tameio_hmeromhnia";

class BookOpeningTest : public testing::Test {
protected:
    BookOpeningTest()
    {
        book.makeVersionless();
        book.execute(dropIndex);
    }

    Book open()
    {
        const auto ask = [this] {
            ++questions;
            onQuestion();
            return OpeningBalance{QDate(2024, 1, 1), cents(1)};
        };
        return openBook(book.files(), testKeys(), marker, byAll(), ask, openingSteps());
    }

    [[nodiscard]] bool isUpgraded() { return !needsUpgrade(main); }
    [[nodiscard]] bool hasDayIndex()
    {
        return valueOf(main, "SELECT count(*) FROM sqlite_master WHERE name='lorvan_tameio_hmeromhnia'") == "1";
    }

    TemporaryBook book;
    Connection main = book.openMain();
    UsageMarker marker{book.files().usageMarker(), {"Μαρία", "A"}};
    UsageMarker other{book.files().usageMarker(), {"Νίκος", "B"}};
    int questions = 0;
    std::function<void()> onQuestion = [] {};
};

} // namespace

TEST(BookSchema, aNewBookHasItsVersionAndIndexes)
{
    const TemporaryBook book;
    Connection main = book.openMain();
    Connection auxiliary = book.openAuxiliary();
    EXPECT_EQ(valueOf(main, "SELECT ariumos FROM taytothta"), "3");
    for (const char* query : indexedQueries)
        EXPECT_TRUE(usesIndex(main, query)) << query;
    EXPECT_TRUE(usesIndex(auxiliary, "SELECT * FROM klhsimotameioy WHERE hmeraklhsimatos=1"));
    EXPECT_TRUE(
        planOf(main, "SELECT * FROM kinhseis WHERE hmeromhnia BETWEEN 1 AND 2 AND epitagh<>0").contains("cheques"));
    EXPECT_FALSE(planOf(main, "SELECT * FROM kinhseis WHERE hmeromhnia BETWEEN 1 AND 2").contains("cheques"));
    EXPECT_TRUE(
        planOf(main, "SELECT sum(esoda), sum(ejoda), sum(L_tajeos) FROM kinhseis WHERE kvdikos=1 AND hmeromhnia<2")
            .contains("COVERING INDEX"));
}

TEST(BookSchema, aForeignBookGetsTheIndexesItLacksAndKeepsItsOwn)
{
    const TemporaryBook book;
    book.execute(
        "DROP INDEX lorvan_kinhseis_kvdikos; DROP INDEX lorvan_kinhseis_hmeromhnia;"
        "DROP INDEX lorvan_kinhseis_hmeromhnia_cheques; CREATE INDEX few ON kinhseis(hmeromhnia) WHERE epitagh = 7;"
        "DROP TABLE tameio; CREATE TABLE Tameio (aa INTEGER PRIMARY KEY, Hmeromhnia INTEGER, ypoloipo INTEGER);"
        "CREATE INDEX mine ON Tameio(Hmeromhnia);"
        "CREATE INDEX \"my \"\"own\"\"\" ON KINHSEIS(HMEROMHNIA, aa)");
    Connection main = book.openMain();
    Connection auxiliary = book.openAuxiliary();
    ensureMainSchema(main, auxiliary, openingSteps());
    for (const char* query : indexedQueries)
        EXPECT_TRUE(usesIndex(main, query)) << query;
    EXPECT_EQ(valueOf(main,
                  "SELECT sum(tbl_name LIKE 'kinhseis') || sum(tbl_name LIKE 'tameio') FROM sqlite_master"
                  " WHERE type='index'"),
        "41");

    Connection writer = book.openMain();
    const Transaction busy(writer, byAll());
    main.setBusyTimeout(std::chrono::milliseconds(0));
    EXPECT_NO_THROW(ensureMainSchema(main, auxiliary, openingSteps())) << "a complete book is only looked at";
}

TEST(BookSchema, aBookIsNeverMadeOverAnother)
{
    for (const char* name : {"lorvan.mdb", "mapcodes.mdb", "lorvan.dat"}) {
        const QTemporaryDir folder;
        writeFile(folder.filePath(name), "mine");
        EXPECT_THROW(createBook(BookFiles(folder.path())), BookExists) << name;
        EXPECT_EQ(namesIn(folder.path()), name);
        EXPECT_EQ(readFile(folder.filePath(name)), "mine");
    }
}

TEST(SchemaUpgrade, bringsEachVersionToTheCurrentOneOnce)
{
    const struct {
        const char* version;
        const char* after;
        const char* change = "";
    } cases[] = {
        {"none", "3|0|10000,15005000,15005000,14975000|20051205 14994300"},
        {"1", "3|0|10000,15005000,15005000,14975000|20051205 14994300"},
        {"1", "3|0|10000,15005000,15005000,14975000|20051205 14994300",
            "ALTER TABLE kinhseis ADD COLUMN l_tajeos INTEGER"},
        {"2", "3|77|10000,15005000,15005000,14975000|20051205 14994300"},
        {"3", "3|77|10000,10000,9999,5|"},
    };
    for (const auto& [version, after, change] : cases) {
        const TemporaryBook book;
        makeOld(book, version);
        Connection main = book.openMain();
        Connection auxiliary = book.openAuxiliary();
        main.execute(change);
        EXPECT_EQ(needsUpgrade(main), version != std::string("3")) << version;
        upgradeSchema(main, auxiliary, byAll(), counted, openingSteps());
        EXPECT_EQ(state(main), after) << version;
        EXPECT_FALSE(needsUpgrade(main)) << version;
        upgradeSchema(main, auxiliary, byAll(), {QDate(2000, 1, 1), cents(1)}, openingSteps());
        EXPECT_EQ(state(main), after) << version << ": what another computer has done is done";
    }
}

TEST(SchemaUpgrade, anUnknownVersionIsReportedAndNothingIsChanged)
{
    for (const char* version : {"0", "4", "-1", "NULL"}) {
        const TemporaryBook book;
        makeOld(book, version);
        Connection main = book.openMain();
        Connection auxiliary = book.openAuxiliary();
        EXPECT_THROW((void)needsUpgrade(main), UnknownSchemaVersion) << version;
        EXPECT_THROW(upgradeSchema(main, auxiliary, byAll(), counted, openingSteps()), UnknownSchemaVersion) << version;
        EXPECT_EQ(valueOf(main, "SELECT sum(ypoloipo) FROM tameio"), "30004") << version;
        EXPECT_FALSE(main.inTransaction());
    }
}

TEST(SchemaUpgrade, aStepThatFailsUndoesTheStepsBeforeIt)
{
    const TemporaryBook book;
    makeOld(book, "none");
    book.execute("CREATE TRIGGER stop BEFORE INSERT ON taytothta BEGIN SELECT raise(ABORT, 'stopped'); END");
    Connection main = book.openMain();
    Connection auxiliary = book.openAuxiliary();
    letTriggersRun(main);
    EXPECT_THROW(upgradeSchema(main, auxiliary, byAll(), counted, openingSteps()), SqlError);
    EXPECT_THROW((void)main.prepare("SELECT L_tajeos FROM kinhseis"), SqlError);
    EXPECT_EQ(valueOf(main, "SELECT sum(ypoloipo) FROM tameio"), "30004");
}

TEST_F(BookOpeningTest, anOldBookIsUpgradedOnceAndGetsItsIndexes)
{
    EXPECT_FALSE(isUpgraded() || hasDayIndex());
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
    book.execute(dropIndex);
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
