#include "windows/main_window_test.h"

#include <QColor>

namespace lorvan::test {
namespace {

class StartTest : public MainWindowTest { };

const Clock saturday(QDateTime(QDate(2024, 3, 16), QTime(0, 0)));

} // namespace

TEST_F(StartTest, showsTodayUnderTheCarriedBalanceAndWritesTheDayRow)
{
    addCashDay(QDate(2023, 12, 30), cents(25050));
    MovementDraft sale = incomeOf(tomorrow, cents(1234567), "ΠΩΛΗΣΗ ΤΟΙΣ ΜΕΤΡΗΤΟΙΣ ΣΕ ΠΕΛΑΤΗ");
    sale.cheque = true;
    sale.memorandum = cents(700);
    addMovement(sale);
    addMovement(expenseOf(tomorrow, cents(30), "ΧΑΡΤΙ"));
    start(noRights, saturday);

    EXPECT_EQ(user().field(date).text(), "16-03-2024");
    EXPECT_EQ(user().text("Label1(0)"), "Σαββάτο");
    EXPECT_EQ(window().windowTitle(), "Lorvan");
    EXPECT_EQ(state(), "Ταμείο ανοικτό");
    EXPECT_EQ(linesOf(list()),
        "Υπόλοιπο για την 30-12-2023    250,50\n"
        "   1   100 ΠΩΛΗΣΗ ΤΟΙΣ ΜΕΤΡΗΤΟΙΣ            7,00  12.345,67          0 §\n"
        "   2   200 ΧΑΡΤΙ                                          0       0,30 ");
    EXPECT_EQ(list().model()->index(0, 0).data(Qt::UserRole).toInt(), 0);
    EXPECT_EQ(list().model()->index(2, 0).data(Qt::UserRole).toInt(), 2);
    EXPECT_TRUE(list().model()->index(1, 0).data(Qt::ToolTipRole).toString().contains(sale.description));
    EXPECT_EQ(shownFigures(), "12.345,67 | 0,30 | 12.595,87");
    EXPECT_EQ(cashDays(), (CashDayLines{"20231230 0 0 25050", "20240316 1234567 30 1259587"}));
    EXPECT_EQ(user().focusName(), "DBCombo1");
}

TEST_F(StartTest, anEmptyBookShowsZeroesAndWritesNoDay)
{
    start();
    EXPECT_EQ(linesOf(list()), "Υπόλοιπο από την προηγούμενη 0");
    EXPECT_EQ(shownFigures(), "0 | 0 | 0");
    EXPECT_EQ(entry(), "0 | 0 | 0 |  | ");
    EXPECT_EQ(cashDays(), CashDayLines{});
}

TEST_F(StartTest, showsTheButtonsThatTheRightsAllow)
{
    struct Case {
        Rights rights;
        bool isClosed, showsInsert, showsCloseCash;
    };
    const Rights mayClose{false, true, false};
    const Rights mayChange{true, false, false};
    for (const Case& each :
        {Case{noRights, false, true, false}, Case{mayClose, false, true, true}, Case{noRights, true, false, false},
            Case{mayClose, true, false, true}, Case{mayChange, true, true, false}}) {
        if (each.isClosed)
            book.close(today);
        start(each.rights); // no box is expected: the start never refuses a closed day
        EXPECT_EQ(user().command(insert).isVisible(), each.showsInsert);
        EXPECT_EQ(user().command(closeCash).isVisible(), each.showsCloseCash);
        EXPECT_FALSE(user().command(modify).isVisible() || user().command(remove).isVisible());
        EXPECT_EQ(state(), each.isClosed ? "Ταμείο κλειστό" : "Ταμείο ανοικτό");
        EXPECT_EQ(user().find("Label3D1(3)").property("foreColor2").value<QColor>(),
            each.isClosed ? QColor(255, 0, 0) : QColor(0, 255, 0));
    }
}

} // namespace lorvan::test
