#include "demo/demo_shop.h"
#include "demo/working_days.h"
#include "tools/tool_run.h"

namespace lorvan::test {
namespace {

const QDate wednesday(2026, 11, 18);
const QDate afterEaster(2025, 4, 22); // yesterday and the day before were holidays

class DemoTest : public testing::Test {
protected:
    [[nodiscard]] BookFiles make(QDate today, int seed) const
    {
        const QString name = folder.filePath(QString("%1 %2").arg(today.toString(Qt::ISODate)).arg(seed));
        const ToolRun run = runTool(today, QString("demo|%1|--seed|%2").arg(name).arg(seed));
        EXPECT_EQ(run.status, ExitStatus::Done) << run.errors;
        return BookFiles(name);
    }

    const QTemporaryDir folder;
};

std::vector<QDate> datesIn(Connection connection, std::string_view sql)
{
    std::vector<QDate> dates;
    auto rows = connection.prepare(sql);
    while (rows.step())
        dates.push_back(rows.date(0));
    return dates;
}

} // namespace

TEST_F(DemoTest, givesTheSameContentForTheSameSeedOnWhateverDay)
{
    // A movement's day appears as the number of its cash day.
    const auto content = [this](QDate today, int seed) {
        Connection main = openAt(make(today, seed).mainDatabase());
        return valueOf(main,
            "SELECT group_concat(d.aa||kvdikos||perigrafh||k.esoda||k.ejoda||aa_omada||grammh||epitagh||L_tajeos, ';')"
            " FROM (SELECT * FROM kinhseis ORDER BY aa) k JOIN tameio d ON d.hmeromhnia=k.hmeromhnia");
    };
    EXPECT_EQ(content(wednesday, 7), content(afterEaster, 7));
    EXPECT_NE(content(wednesday, 9), content(wednesday, 8));
}

TEST_F(DemoTest, looksLikeAShopWhoseBooksAreInOrder)
{
    for (const int seed : {1, 2, 3}) {
        const BookFiles book = make(wednesday, seed);
        const ToolRun checked = runTool(wednesday, "check|" + book.dataFolder());
        EXPECT_EQ(checked.status, ExitStatus::Done) << checked.out;
        Connection main = openAt(book.mainDatabase());
        const auto count = [&main](const char* condition) {
            return valueOf(main, std::string("SELECT count(*) FROM kinhseis WHERE ") + condition).toInt();
        };
        EXPECT_EQ(valueOf(main, "SELECT count(*) FROM tameio WHERE ypoloipo<=0"), "0");
        EXPECT_EQ(count("(esoda=0)=(ejoda=0) OR esoda<0 OR ejoda<0"), 0);
        EXPECT_EQ(count("NOT EXISTS (SELECT 1 FROM kvdikoi c WHERE c.kvdikos=kinhseis.kvdikos"
                        " AND c.aa_omadas=aa_omada AND (c.esodo<>0)=(esoda<>0))"),
            0);
        EXPECT_GT(count("epitagh=-1 AND ejoda>0"), 30);
        EXPECT_GT(count("epitagh=0 AND esoda>0"), 1000);
        EXPECT_GT(count("L_tajeos>0"), 200);
    }
}

TEST_F(DemoTest, hasARowForEachWorkingDayUpToYesterdayAndClosesAllButTheLastSix)
{
    for (const QDate today : {wednesday, afterEaster}) {
        const BookFiles book = make(today, 1);
        auto days = datesIn(openAt(book.mainDatabase()), "SELECT hmeromhnia FROM tameio ORDER BY hmeromhnia");
        EXPECT_EQ(days, workingDaysUntil(today.addDays(-1), static_cast<int>(days.size())));
        EXPECT_NEAR(static_cast<double>(days.front().daysTo(today)), 730, 7);
        days.resize(days.size() - 6);
        EXPECT_EQ(
            datesIn(openAt(book.auxiliaryDatabase()), "SELECT hmeraklhsimatos FROM klhsimotameioy ORDER BY 1"), days);
    }
}

TEST_F(DemoTest, namesUsersWhoCanSignIn)
{
    Connection users = openAt(make(wednesday, 1).auxiliaryDatabase());
    const QString told = QString::fromStdString(runTool(wednesday, "demo|--users").out);
    for (const DemoUser& user : demoUsers()) {
        EXPECT_TRUE(told.contains(user.name + ", κωδικός " + user.password));
        EXPECT_TRUE(signIn(users, user.name, user.password));
    }
}

TEST(WorkingDays, leaveOutSundaysAndTheHolidaysOfGreece)
{
    const std::tuple<QDate, bool, const char*> cases[] = {
        {{2026, 11, 21}, true, "Saturday"},
        {{2026, 11, 22}, false, "Sunday"},
        {{2024, 3, 18}, false, "Clean Monday of the late Easter of 5 May"},
        {{2025, 4, 18}, false, "Good Friday"},
        {{2025, 4, 19}, true, "Holy Saturday"},
        {{2025, 4, 21}, false, "Easter Monday"},
        {{2026, 4, 6}, true, "Easter Monday of the western churches alone"},
        {{2026, 6, 1}, false, "Whit Monday"},
        {{2025, 12, 26}, false, "the day after Christmas"},
        {{2026, 10, 28}, false, "national day"},
    };
    for (const auto& [day, works, why] : cases)
        EXPECT_EQ(isWorkingDay(day), works) << why;
    EXPECT_EQ(workingDaysUntil({2025, 4, 21}, 2), (std::vector<QDate>{{2025, 4, 17}, {2025, 4, 19}}));
}

} // namespace lorvan::test
