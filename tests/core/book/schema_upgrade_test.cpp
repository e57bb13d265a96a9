#include "book/schema_upgrade.h"
#include "cashbook/opening_balance.h"
#include "platform/engine/sql_error.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

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

} // namespace

TEST(SchemaUpgrade, bringsEachVersionToTheCurrentOneOnce)
{
    const struct {
        const char* version;
        bool upgrades;
        const char* after;
    } cases[] = {
        {"none", true, "3|0|10000,15005000,15005000,14975000|20051205 14994300"},
        {"1", true, "3|0|10000,15005000,15005000,14975000|20051205 14994300"},
        {"2", true, "3|77|10000,15005000,15005000,14975000|20051205 14994300"},
        {"3", false, "3|77|10000,10000,9999,5|"},
    };
    for (const auto& [version, upgrades, after] : cases) {
        const TemporaryBook book;
        makeOld(book, version);
        Connection main = book.openMain();
        EXPECT_EQ(needsUpgrade(main), upgrades) << version;
        upgradeSchema(main, counted, openingSteps());
        EXPECT_EQ(state(main), QString::fromUtf8(after)) << version;
        EXPECT_FALSE(needsUpgrade(main)) << version;
        upgradeSchema(main, {QDate(2000, 1, 1), cents(1)}, openingSteps());
        EXPECT_EQ(state(main), QString::fromUtf8(after)) << version << ": what another computer has done is done";
    }
}

TEST(SchemaUpgrade, anUnknownVersionIsReportedAndNothingIsChanged)
{
    for (const char* version : {"0", "4", "-1", "NULL"}) {
        const TemporaryBook book;
        makeOld(book, version);
        Connection main = book.openMain();
        EXPECT_THROW((void)needsUpgrade(main), UnknownSchemaVersion) << version;
        EXPECT_THROW(upgradeSchema(main, counted, openingSteps()), UnknownSchemaVersion) << version;
        EXPECT_EQ(valueOf(main, "SELECT sum(ypoloipo) FROM tameio"), QStringLiteral("30004")) << version;
        EXPECT_FALSE(main.inTransaction());
    }
}

TEST(SchemaUpgrade, aColumnThatIsThereAlreadyIsNotAddedAgain)
{
    const TemporaryBook book;
    makeOld(book, "1");
    book.execute("ALTER TABLE kinhseis ADD COLUMN l_tajeos INTEGER");
    Connection main = book.openMain();
    upgradeSchema(main, counted, openingSteps());
    EXPECT_EQ(state(main), QStringLiteral("3|0|10000,15005000,15005000,14975000|20051205 14994300"));
}

TEST(SchemaUpgrade, aStepThatFailsUndoesTheStepsBeforeIt)
{
    const TemporaryBook book;
    makeOld(book, "none");
    book.execute("CREATE TRIGGER stop BEFORE INSERT ON taytothta BEGIN SELECT raise(ABORT, 'stopped'); END");
    Connection main = book.openMain();
    letTriggersRun(main);
    EXPECT_THROW(upgradeSchema(main, counted, openingSteps()), SqlError);
    EXPECT_THROW((void)main.prepare("SELECT L_tajeos FROM kinhseis"), SqlError);
    EXPECT_EQ(valueOf(main, "SELECT sum(ypoloipo) FROM tameio"), QStringLiteral("30004"));
}

} // namespace lorvan::test
