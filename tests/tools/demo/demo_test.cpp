#include "demo/demo_shop.h"
#include "demo/working_days.h"
#include "support/book_model.h"
#include "support/temporary_book.h"
#include "tools/tool_run.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

const QDate wednesday(2026, 11, 18);
const QDate afterEaster(2025, 4, 22); // yesterday and the day before were holidays

class DemoBook {
public:
    DemoBook(QDate today, int seed)
    {
        const auto run = runTool(today, QStringLiteral("demo|%1|--seed|%2").arg(m_folder.path()).arg(seed));
        EXPECT_EQ(run.status, ExitStatus::Done) << run.errors;
    }
    [[nodiscard]] Connection main() const { return open(BookFiles(m_folder.path()).mainDatabase()); }
    [[nodiscard]] Connection auxiliary() const { return open(BookFiles(m_folder.path()).auxiliaryDatabase()); }

private:
    static Connection open(const QString& path)
    {
        return Connection::open(path, testKeys().keyFor(path), Connection::Access::ReadWrite);
    }

    QTemporaryDir m_folder;
};

/// All that a book holds except its dates; a movement's day appears as the number of its cash day.
QString contentWithoutDates(const DemoBook& book)
{
    Connection main = book.main();
    Connection auxiliary = book.auxiliary();
    return valueOf(main,
               "SELECT group_concat(d.aa || k.kvdikos || k.perigrafh || k.esoda || k.ejoda || k.aa_omada || k.grammh"
               " || k.epitagh || k.L_tajeos, ';')"
               " FROM (SELECT * FROM kinhseis ORDER BY aa) k JOIN tameio d ON d.hmeromhnia=k.hmeromhnia")
        + valueOf(main, "SELECT group_concat(kvdikos || perigrafh || omada || aa_omadas || esodo) FROM kvdikoi")
        + valueOf(main, "SELECT group_concat(aa || esoda || ejoda || ypoloipo) FROM tameio")
        + valueOf(auxiliary, "SELECT count(*) FROM klhsimotameioy")
        + valueOf(auxiliary, "SELECT group_concat(uname || upass || r_eggrafes || r_klhsimo || r_kvdikoi) FROM codes");
}

std::vector<QDate> datesIn(Connection connection, std::string_view sql)
{
    std::vector<QDate> dates;
    auto rows = connection.prepare(sql);
    while (rows.step())
        dates.push_back(rows.date(0));
    return dates;
}

/// The least that was in the drawer after any movement, cheques left out.
Currency lowestCash(Connection& main)
{
    Currency cash;
    std::optional<Currency> lowest;
    auto rows = main.prepare("SELECT esoda, ejoda FROM kinhseis WHERE epitagh=0 ORDER BY hmeromhnia, aa");
    while (rows.step()) {
        cash += rows.currency(0) - rows.currency(1);
        lowest = std::min(lowest.value_or(cash), cash);
    }
    return lowest.value_or(Currency());
}

} // namespace

TEST(DemoCommand, givesTheSameContentForTheSameSeedOnWhateverDay)
{
    const QString content = contentWithoutDates(DemoBook(wednesday, 7));
    EXPECT_EQ(content, contentWithoutDates(DemoBook(afterEaster, 7)));
    EXPECT_NE(content, contentWithoutDates(DemoBook(wednesday, 8)));
}

TEST(DemoCommand, looksLikeAShopAndCarriesEveryBalance)
{
    for (const int seed : {1, 2, 3, 4, 5}) {
        const DemoBook book(wednesday, seed);
        Connection main = book.main();
        const auto count = [&main](std::string_view sql) { return valueOf(main, sql).toInt(); };
        EXPECT_EQ(storedCashDays(main), BookModel(storedMovements(main)).cashDays());
        EXPECT_GT(lowestCash(main), Currency());
        EXPECT_EQ(count("SELECT count(*) FROM kinhseis WHERE (esoda=0)=(ejoda=0) OR esoda<0 OR ejoda<0"), 0);
        EXPECT_EQ(count("SELECT count(*) FROM kinhseis k LEFT JOIN kvdikoi c ON c.kvdikos=k.kvdikos"
                        " WHERE c.aa IS NULL OR c.aa_omadas<>k.aa_omada OR (c.esodo<>0)<>(k.esoda<>0)"),
            0);
        EXPECT_GT(count("SELECT count(*) FROM kinhseis WHERE epitagh=-1 AND ejoda>0"), 30);
        EXPECT_GT(count("SELECT count(*) FROM kinhseis WHERE L_tajeos>0"), 200);
    }
}

TEST(DemoCommand, hasARowForEachWorkingDayUpToYesterdayAndClosesAllButTheLastSix)
{
    for (const QDate today : {wednesday, afterEaster}) {
        const DemoBook book(today, 1);
        auto days = datesIn(book.main(), "SELECT hmeromhnia FROM tameio ORDER BY hmeromhnia");
        EXPECT_EQ(days, workingDaysUntil(today.addDays(-1), static_cast<int>(days.size())));
        EXPECT_NEAR(static_cast<double>(days.front().daysTo(today)), 730, 7);
        days.resize(days.size() - 6);
        EXPECT_EQ(datesIn(book.auxiliary(), "SELECT hmeraklhsimatos FROM klhsimotameioy ORDER BY 1"), days);
    }
}

TEST(DemoCommand, namesUsersWhoCanSignIn)
{
    Connection users = DemoBook(wednesday, 1).auxiliary();
    const QString told = QString::fromStdString(runTool(wednesday, QStringLiteral("demo|--users")).out);
    for (const DemoUser& user : demoUsers()) {
        EXPECT_TRUE(told.contains(user.name + QStringLiteral(", κωδικός ") + user.password));
        EXPECT_TRUE(signIn(users, user.name, user.password));
    }
}

} // namespace lorvan::test
