#include "windows/main_window_test.h"

namespace lorvan::test {
namespace {

class DateFieldTest : public MainWindowTest {
protected:
    void leaveDate(const QString& text) const
    {
        user().enter(date, text);
        user().press(Qt::Key_Tab);
    }
    void refuseDate(const QString& text)
    {
        boxes.expect(warning("Λάθος ημερομηνία", "Η εισαγωγή της ημερομηνίας είναι λάθος"));
        leaveDate(text);
        EXPECT_EQ(user().field(date).text(), text);
        EXPECT_EQ(user().focusName(), "Text1(0)");
    }
    /// Goes to a closed day, which leaves the keyboard in the date and nothing else to work with.
    void visitClosedDay(const QString& day)
    {
        boxes.expect(dayIsClosed());
        leaveDate(day);
        EXPECT_EQ(user().focusName(), "Text1(0)");
        EXPECT_EQ(user().field(date).selectedText(), day);
        expectLocked();
    }
    void expectLocked() const
    {
        EXPECT_EQ(state(), "Ταμείο κλειστό");
        EXPECT_FALSE(user().command(insert).isVisible() || user().command(closeCash).isVisible());
        EXPECT_FALSE(chooser().isEnabled() || user().find("Check1(0)").isEnabled());
        for (const int index : {description, income, expense, memorandum})
            EXPECT_FALSE(user().field(index).isEnabled()) << index;
    }
};

ExpectedBox closeQuestion(QMessageBox::StandardButton answer)
{
    return okCancel(QMessageBox::Question, "Κλείσιμο ταμείου", "Να κλείσω το ταμείο;", answer);
}

} // namespace

TEST_F(DateFieldTest, aDateIsRewrittenAndItsDayShown)
{
    addCashDay(QDate(2005, 3, 11), cents(150));
    start();
    for (const auto& [typed, shown, weekday] :
        {std::tuple("6/3", "06-03-2024", "Τετάρτη"), std::tuple("12.03/2005", "12-03-2005", "Σαββάτο")}) {
        leaveDate(typed);
        EXPECT_EQ(user().field(date).text(), shown);
        EXPECT_EQ(user().text("Label1(0)"), weekday);
    }
    EXPECT_EQ(linesOf(list()), "Υπόλοιπο για την 11-03-2005    1,50");
}

TEST_F(DateFieldTest, aRefusedDateStaysAndLocksNothing)
{
    addMovement(incomeOf(today, cents(100)));
    start();
    for (const char* const wrong : {"31-02-2005", "15"}) {
        refuseDate(wrong);
        EXPECT_EQ(list().model()->rowCount(), 2) << "today stays on screen";
    }
    user().press(Qt::Key_Escape);
    EXPECT_EQ(user().field(date).text(), "15-03-2024");
    user().press(Qt::Key_Tab);
    EXPECT_EQ(user().focusName(), "DBCombo1");
    refuseDate("32-1");
    selectTab(CodesTab);
    EXPECT_TRUE(user().find("Panel1(2)").isVisible());
    selectTab(CashTab);
    EXPECT_EQ(user().field(date).text(), "15-03-2024");
    user().press(Qt::Key_Tab);
}

TEST_F(DateFieldTest, aButtonPressedWithAnInvalidDateDoesNothingElse)
{
    start(allRights);
    typeMovement("100", "α", "5");
    for (const int button : {insert, closeCash}) {
        user().enter(date, "31-02-2005");
        boxes.expect(warning("Λάθος ημερομηνία", "Η εισαγωγή της ημερομηνίας είναι λάθος"));
        press(button);
        EXPECT_TRUE(comesTrue([this] { return boxes.allSeen(); }));
        QTest::qWait(30); // a second box, or a press that comes late, would show now
        EXPECT_FALSE(user().command(button).isDown());
        EXPECT_EQ(user().field(date).text(), "31-02-2005");
        EXPECT_EQ(entry(), "5,00 | 0 | 0 | Α | 100 Λιανική");
    }
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), "0");
    EXPECT_EQ(closedDays(), "");
}

TEST_F(DateFieldTest, whatWaitsInTheEntryIsInsertedOnTheDateLastTypedAndMovesNoBalanceBefore)
{
    addMovement(incomeOf(yesterday, cents(700)));
    addCashDay(tomorrow, cents(99900));
    start();
    typeMovement("100", "α", "5");
    leaveDate("14-03-2024");
    EXPECT_EQ(cashDays(), (CashDayLines{"20240314 700 0 700", "20240316 0 0 99900"}));
    typeMovement("100", "α", "5");
    user().enter(date, "12-3");
    press(insert);
    EXPECT_EQ(stored("SELECT hmeromhnia FROM kinhseis WHERE perigrafh='Α'"), "20240312");
}

TEST_F(DateFieldTest, aClosedDayIsRefusedAndAnOpenOneAdmitted)
{
    book.close(yesterday);
    start();
    EXPECT_FALSE(user().command(closeCash).isVisible());
    visitClosedDay("14-03-2024");
    leaveDate("13-03-2024");
    EXPECT_EQ(state(), "Ταμείο ανοικτό");
    EXPECT_TRUE(user().command(insert).isVisible());
    EXPECT_TRUE(user().command(closeCash).isVisible()) << "whatever the rights";
    EXPECT_TRUE(chooser().isEnabled() && user().field(description).isEnabled());
    EXPECT_NE(user().field(income).isEnabled(), user().field(expense).isEnabled());

    boxes.expect(stop("Προσοχή", "Ο χρήστης δεν έχει το δικαίωμα να κλίνει το ταμείο"));
    press(closeCash);
    EXPECT_EQ(closedDays(), "20240314");
}

TEST_F(DateFieldTest, aVisitWithTheSameDayReadsItsRowsAndLeavesTheEntryAlone)
{
    addMovement(incomeOf(today, cents(500), "Α"));
    start();
    user().clickRow(list(), 1);
    typeMovement("100", "β", "7");
    const QString typed = entry();
    int rows = list().model()->rowCount();
    const auto visit = [&](const char* arrivesAt, const std::function<void()>& leave) {
        addMovement(incomeOf(today, cents(100), "ΑΛΛΟΥ"));
        user().goTo(user().field(date));
        leave();
        ++rows;
        EXPECT_TRUE(comesTrue([&] { return list().model()->rowCount() == rows; })) << arrivesAt;
        EXPECT_EQ(user().focusName(), arrivesAt);
        EXPECT_EQ(entry(), typed) << arrivesAt;
        EXPECT_EQ(list().currentIndex().row(), 1) << arrivesAt;
    };
    visit("DBCombo1", [this] { user().press(Qt::Key_Return); });
    visit("Tab1", [this] { user().press(Qt::Key_Backtab, Qt::ShiftModifier); });
    visit("Text1(9)", [this] { user().click(user().field(memorandum)); });

    book.close(today);
    boxes.expect(dayIsClosed());
    leaveDate("15/3");
    EXPECT_EQ(entry(), typed) << "to be read, not to be stored";
    expectLocked();
}

TEST_F(DateFieldTest, aStartOnAClosedDayLeadsToTheDateAlone)
{
    addMovement(incomeOf(yesterday, cents(300)));
    book.close(today);
    book.close(yesterday);
    start();
    EXPECT_EQ(user().focusName(), "Text1(0)");
    expectLocked();
    selectTab(PrintingTab); // nobody has gone to the date: no box
    selectTab(CashTab);
    visitClosedDay("14-03-2024");
    EXPECT_EQ(shownFigures(), "3,00 | 0 | 3,00");
    user().press(Qt::Key_Tab);
    EXPECT_EQ(user().focusName(), "List1") << "one box is enough";
}

TEST_F(DateFieldTest, closingAsksWritesOneRowAndShowsAtTheNextLook)
{
    addCashDay(yesterday, cents(100));
    start({false, true, false});
    boxes.expect(byKey(withDetails(closeQuestion(QMessageBox::Cancel), "η 14-03-2024"), Qt::Key_Return));
    press(closeCash);
    EXPECT_EQ(closedDays(), "");
    EXPECT_EQ(notice(), "");
    for (const char* const told : {"Η ημέρα 15-03-2024 έκλεισε", ""}) {
        boxes.expect(closeQuestion(QMessageBox::Ok));
        press(closeCash);
        EXPECT_EQ(closedDays(), "20240315");
        EXPECT_EQ(state(), "Ταμείο ανοικτό");
        EXPECT_EQ(notice().section(u',', 0, 0), told) << "of a day that was open";
    }
    boxes.expect(dayIsClosed());
    leaveDate("15-03-2024");
    EXPECT_EQ(state(), "Ταμείο κλειστό");
}

} // namespace lorvan::test
