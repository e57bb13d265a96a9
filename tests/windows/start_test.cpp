#include "main_window_test.h"

#include <QColor>
#include <QFont>

namespace lorvan::test {
namespace {

class StartTest : public MainWindowTest { };

const Clock saturday(QDateTime(QDate(2024, 3, 16), QTime(0, 0)));

/// One record of the marker, its names in the bytes of the Greek code page.
QByteArray record(char state, const QByteArray& user, const QByteArray& computer)
{
    return state + user.leftJustified(25, ' ') + computer.leftJustified(25, ' ');
}

} // namespace

TEST_F(StartTest, showsTodayUnderTheCarriedBalanceAndWritesTheDayRow)
{
    addCashDay(QDate(2023, 12, 30), cents(25050));
    MovementDraft sale = incomeOf(tomorrow, cents(1234567), QStringLiteral("ΠΩΛΗΣΗ ΤΟΙΣ ΜΕΤΡΗΤΟΙΣ ΣΕ ΠΕΛΑΤΗ"));
    sale.cheque = true;
    sale.memorandum = cents(700);
    addMovement(sale);
    addMovement(expenseOf(tomorrow, cents(30), QStringLiteral("ΧΑΡΤΙ")));
    start(noRights, saturday);

    EXPECT_EQ(user().field(date).text(), QStringLiteral("16-03-2024"));
    EXPECT_EQ(user().text(QStringLiteral("Label1(0)")), QStringLiteral("Σαββάτο"));
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Lorvan"));
    EXPECT_EQ(state(), QStringLiteral("Ταμείο ανοικτό"));
    EXPECT_EQ(linesOf(list()),
        QStringLiteral("Υπόλοιπο για την 30-12-2023    250,50\n"
                       "   1   100 ΠΩΛΗΣΗ ΤΟΙΣ ΜΕΤΡΗΤΟΙΣ            7,00  12.345,67          0 §\n"
                       "   2   200 ΧΑΡΤΙ                                          0       0,30 "));
    EXPECT_EQ(list().model()->index(0, 0).data(Qt::UserRole).toInt(), 0);
    EXPECT_EQ(list().model()->index(2, 0).data(Qt::UserRole).toInt(), 2);
    EXPECT_TRUE(list().model()->index(1, 0).data(Qt::ToolTipRole).toString().contains(sale.description));
    EXPECT_EQ(shownFigures(), QStringLiteral("12.345,67 | 0,30 | 12.595,87"));
    EXPECT_EQ(cashDays(), (CashDayLines{"20231230 0 0 25050", "20240316 1234567 30 1259587"}));
    EXPECT_EQ(user().focusName(), QStringLiteral("DBCombo1"));
}

TEST_F(StartTest, anEmptyBookShowsZeroesAndWritesNoDay)
{
    start();
    EXPECT_EQ(linesOf(list()), QStringLiteral("Υπόλοιπο από την προηγούμενη 0"));
    EXPECT_EQ(shownFigures(), QStringLiteral("0 | 0 | 0"));
    EXPECT_EQ(entry(), QStringLiteral("0 | 0 | 0 |  | "));
    EXPECT_EQ(cashDays(), CashDayLines{});
}

TEST_F(StartTest, claimsTheMarkerAndFreesItWhenTheWindowCloses)
{
    start();
    EXPECT_EQ(markerBytes(), record('1', "\xCC\xE1\xF1\xDF\xE1", "\xF4\xE1\xEC\xE5\xDF\xEF"));
    window().close();
    EXPECT_EQ(markerBytes(), record('0', "\xCC\xE1\xF1\xDF\xE1", "\xF4\xE1\xEC\xE5\xDF\xEF"));
}

struct RightsCase {
    const char* name;
    Rights rights;
    bool closedToday;
    bool showsInsert;
    bool showsCloseCash;
};

void PrintTo(const RightsCase& each, std::ostream* stream)
{
    *stream << each.name;
}

class StartWithRights : public StartTest, public testing::WithParamInterface<RightsCase> { };

// No box is expected in any case: the start never refuses a closed day.
TEST_P(StartWithRights, showsTheButtonsThatTheRightsAllow)
{
    if (GetParam().closedToday)
        book.close(today);
    start(GetParam().rights);
    EXPECT_EQ(user().command(insert).isVisible(), GetParam().showsInsert);
    EXPECT_EQ(user().command(closeCash).isVisible(), GetParam().showsCloseCash);
    EXPECT_FALSE(user().command(modify).isVisible() || user().command(remove).isVisible());
    const QColor green(0, 255, 0);
    const QColor red(255, 0, 0);
    EXPECT_EQ(state(), GetParam().closedToday ? QStringLiteral("Ταμείο κλειστό") : QStringLiteral("Ταμείο ανοικτό"));
    EXPECT_EQ(user().find(QStringLiteral("Label3D1(3)")).property("foreColor2").value<QColor>(),
        GetParam().closedToday ? red : green);
}

INSTANTIATE_TEST_SUITE_P(All, StartWithRights,
    testing::Values(RightsCase{"open day, no rights", noRights, false, true, false},
        RightsCase{"open day, may close", {false, true, false}, false, true, true},
        RightsCase{"closed day, no rights", noRights, true, false, false},
        RightsCase{"closed day, may close only", {false, true, false}, true, false, true},
        RightsCase{"closed day, may change", {true, false, false}, true, true, false}));

} // namespace lorvan::test
