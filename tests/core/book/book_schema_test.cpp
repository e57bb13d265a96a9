#include "book/book_schema.h"
#include "cashbook/opening_balance.h"
#include "platform/engine/transaction.h"
#include "support/temporary_book.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

QString columnsOf(Connection& connection, const char* table)
{
    auto info = connection.prepare(std::string("PRAGMA table_info(") + table + ")");
    QStringList columns;
    while (info.step())
        columns += info.text(1);
    return columns.join(u' ');
}

bool usesIndex(Connection& connection, const std::string& query)
{
    auto plan = connection.prepare("EXPLAIN QUERY PLAN " + query);
    return plan.step() && plan.text(3).contains(QStringLiteral("USING"))
        && !plan.text(3).contains(QStringLiteral("SCAN"));
}

const char* const indexedQueries[] = {
    "SELECT * FROM kinhseis WHERE hmeromhnia=1",
    "SELECT * FROM kinhseis WHERE kvdikos=1",
    "SELECT * FROM tameio WHERE hmeromhnia<1 ORDER BY hmeromhnia DESC LIMIT 1",
    "SELECT * FROM kvdikoi WHERE kvdikos=1",
    "SELECT amount FROM opening_difference WHERE day>1 AND day<=2",
};

} // namespace

TEST(BookSchema, hasTheColumnsInTheirOrder)
{
    const TemporaryBook book;
    Connection main = book.openMain();
    Connection auxiliary = book.openAuxiliary();
    EXPECT_EQ(columnsOf(main, "kinhseis"),
        QStringLiteral("aa kvdikos hmeromhnia perigrafh esoda ejoda aa_omada grammh epitagh L_tajeos"));
    EXPECT_EQ(columnsOf(main, "tameio"), QStringLiteral("aa hmeromhnia esoda ejoda ypoloipo"));
    EXPECT_EQ(columnsOf(main, "kvdikoi"), QStringLiteral("aa kvdikos perigrafh omada aa_omadas lista esodo energos"));
    EXPECT_EQ(columnsOf(main, "omades"), QStringLiteral("aa sxolia perigrafh"));
    EXPECT_EQ(valueOf(main, "SELECT ariumos FROM taytothta"), QStringLiteral("3"));
    EXPECT_EQ(columnsOf(auxiliary, "klhsimotameioy"), QStringLiteral("aa hmeraklhsimatos"));
    EXPECT_EQ(columnsOf(auxiliary, "codes"), QStringLiteral("uname upass r_eggrafes r_klhsimo r_kvdikoi"));
    for (const char* query : indexedQueries)
        EXPECT_TRUE(usesIndex(main, query)) << query;
    EXPECT_TRUE(usesIndex(auxiliary, "SELECT * FROM klhsimotameioy WHERE hmeraklhsimatos=1"));
    auto sums = main.prepare("EXPLAIN QUERY PLAN SELECT sum(esoda), sum(ejoda), sum(L_tajeos) FROM kinhseis"
                             " WHERE kvdikos=1 AND hmeromhnia<2");
    ASSERT_TRUE(sums.step());
    EXPECT_TRUE(sums.text(3).contains(QStringLiteral("COVERING INDEX")));
}

TEST(BookSchema, aForeignBookGetsTheIndexesItLacksAndKeepsItsOwn)
{
    const TemporaryBook book;
    book.execute(
        "DROP INDEX lorvan_kinhseis_kvdikos; DROP INDEX lorvan_kinhseis_hmeromhnia;"
        "DROP TABLE tameio; CREATE TABLE Tameio (aa INTEGER PRIMARY KEY, Hmeromhnia INTEGER, ypoloipo INTEGER);"
        "CREATE INDEX mine ON Tameio(Hmeromhnia);"
        "CREATE INDEX \"my \"\"own\"\"\" ON KINHSEIS(HMEROMHNIA, aa)");
    Connection main = book.openMain();
    ensureMainSchema(main, openingSteps());
    for (const char* query : indexedQueries)
        EXPECT_TRUE(usesIndex(main, query)) << query;
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM sqlite_master WHERE type='index' AND tbl_name LIKE 'kinhseis'"),
        QStringLiteral("2"));
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM sqlite_master WHERE type='index' AND tbl_name LIKE 'tameio'"),
        QStringLiteral("1"));

    Connection writer = book.openMain();
    const Transaction busy(writer);
    main.setBusyTimeout(std::chrono::milliseconds(0));
    EXPECT_NO_THROW(ensureMainSchema(main, openingSteps())) << "a complete book is only looked at";
}

TEST(BookSchema, aBookIsNeverMadeOverAnother)
{
    for (const char* name : {"lorvan.mdb", "mapcodes.mdb", "lorvan.dat"}) {
        const QTemporaryDir folder;
        QFile present(folder.filePath(QString::fromUtf8(name)));
        ASSERT_TRUE(present.open(QIODevice::WriteOnly));
        present.write("mine");
        present.close();
        EXPECT_THROW(createBook(BookFiles(folder.path())), BookExists) << name;
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList(QString::fromUtf8(name)));
        EXPECT_EQ(present.size(), 4);
    }
}

} // namespace lorvan::test
