#include "windows/main_window_test.h"

#include <QTest>

namespace lorvan::test {
namespace {

class DateFieldTest : public MainWindowTest {
protected:
    void leaveDate(const QString& text) const
    {
        user().enter(date, text);
        user().press(Qt::Key_Tab);
    }

    [[nodiscard]] QString closedDays() const
    {
        Connection auxiliary = book.openAuxiliary();
        return valueOf(auxiliary, "SELECT group_concat(hmeraklhsimatos) FROM klhsimotameioy");
    }
};

ExpectedBox invalidDate()
{
    return warning(QStringLiteral("Λάθος ημερομηνία"), QStringLiteral("Η εισαγωγή της ημερομηνίας είναι λάθος"));
}

ExpectedBox closeQuestion(QMessageBox::StandardButton answer)
{
    return okCancel(
        QMessageBox::Question, QStringLiteral("Κλείσιμο ταμείου"), QStringLiteral("Να κλείσω το ταμείο;"), answer);
}

struct DateCase {
    const char* typed;
    const char* date;
    const char* weekday;
};

} // namespace

TEST_F(DateFieldTest, aDateIsRewrittenAndItsDayShown)
{
    addCashDay(QDate(2005, 3, 11), cents(150));
    start();
    for (const DateCase& each :
        {DateCase{"12.03/2005", "12-03-2005", "Σαββάτο"}, DateCase{"6/3", "06-03-2024", "Τετάρτη"},
            DateCase{"1,2,30", "01-02-1930", "Σαββάτο"}, DateCase{"29-2-24", "29-02-2024", "Πέμπτη"},
            DateCase{"17-03-2024", "17-03-2024", "Κυριακή"}, DateCase{"12-03-2005", "12-03-2005", "Σαββάτο"}}) {
        leaveDate(QString::fromUtf8(each.typed));
        EXPECT_EQ(user().field(date).text(), QString::fromUtf8(each.date)) << each.typed;
        EXPECT_EQ(user().text(QStringLiteral("Label1(0)")), QString::fromUtf8(each.weekday)) << each.typed;
    }
    EXPECT_EQ(linesOf(list()), QStringLiteral("Υπόλοιπο για την 11-03-2005    1,50"));
}

TEST_F(DateFieldTest, anInvalidDateIsRefusedOnceAndStays)
{
    addMovement(incomeOf(today, cents(100)));
    start();
    for (const char* const wrong : {"31-02-2005", "29-2-2023", "15", "1-13-2024", "5-5-5-5"}) {
        boxes.expect(invalidDate());
        leaveDate(QString::fromUtf8(wrong));
        EXPECT_TRUE(boxes.allSeen()) << wrong;
        EXPECT_EQ(user().field(date).text(), QString::fromUtf8(wrong));
        EXPECT_EQ(user().focusName(), QStringLiteral("Text1(0)"));
        EXPECT_EQ(list().model()->rowCount(), 2) << "today stays on screen";
    }
}

TEST_F(DateFieldTest, aButtonPressedWithAnInvalidDateDoesNothingElse)
{
    start(allRights);
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("5"));
    for (const int button : {insert, closeCash}) {
        user().enter(date, QStringLiteral("31-02-2005"));
        boxes.expect(invalidDate());
        user().click(user().command(button));
        EXPECT_TRUE(QTest::qWaitFor([this] { return boxes.allSeen(); }));
        QTest::qWait(30); // a second box, or a press that comes late, would show now
        EXPECT_FALSE(user().command(button).isDown());
        EXPECT_EQ(user().field(date).text(), QStringLiteral("31-02-2005"));
        EXPECT_EQ(entry(), QStringLiteral("5,00 | 0 | 0 | Α | 100 Λιανική"));
    }
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), QStringLiteral("0"));
    EXPECT_EQ(closedDays(), QString());
}

TEST_F(DateFieldTest, theDateLastTypedIsTheOneInsertedOn)
{
    start();
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("5"));
    user().enter(date, QStringLiteral("12-3"));
    user().click(user().command(insert));
    EXPECT_EQ(stored("SELECT hmeromhnia FROM kinhseis"), QStringLiteral("20240312"));
}

TEST_F(DateFieldTest, anAmountThatWaitsInTheEntryMovesNoBalance)
{
    addMovement(incomeOf(yesterday, cents(700)));
    addCashDay(tomorrow, cents(99900));
    start();
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("5"));
    leaveDate(QStringLiteral("14-03-2024"));
    EXPECT_EQ(cashDays(), (CashDayLines{"20240314 700 0 700", "20240316 0 0 99900"}));
}

TEST_F(DateFieldTest, aClosedDayIsRefusedAndAnOpenOneAdmitted)
{
    book.close(yesterday);
    start();
    EXPECT_FALSE(user().command(closeCash).isVisible());
    boxes.expect(dayIsClosed());
    leaveDate(QStringLiteral("14-03-2024"));
    EXPECT_TRUE(boxes.allSeen());
    EXPECT_EQ(state(), QStringLiteral("Ταμείο κλειστό"));
    EXPECT_FALSE(user().command(insert).isVisible() || user().command(closeCash).isVisible());
    EXPECT_FALSE(chooser().isEnabled() || user().find(QStringLiteral("Check1(0)")).isEnabled());
    for (const int index : {description, income, expense, memorandum})
        EXPECT_FALSE(user().field(index).isEnabled()) << index;
    EXPECT_EQ(user().focusName(), QStringLiteral("Text1(0)"));
    EXPECT_EQ(user().field(date).selectedText(), QStringLiteral("14-03-2024"));

    leaveDate(QStringLiteral("13-03-2024"));
    EXPECT_EQ(state(), QStringLiteral("Ταμείο ανοικτό"));
    EXPECT_TRUE(user().command(insert).isVisible());
    EXPECT_TRUE(user().command(closeCash).isVisible()) << "whatever the rights";
    EXPECT_TRUE(chooser().isEnabled() && user().field(description).isEnabled());
    EXPECT_NE(user().field(income).isEnabled(), user().field(expense).isEnabled());

    boxes.expect(stop(QStringLiteral("Προσοχή"), QStringLiteral("Ο χρήστης δεν έχει το δικαίωμα να κλίνει το ταμείο")));
    user().click(user().command(closeCash));
    EXPECT_EQ(closedDays(), QStringLiteral("20240314"));
}

TEST_F(DateFieldTest, aVisitWithTheSameDayReadsItsRowsAndLeavesTheEntryAlone)
{
    addMovement(incomeOf(today, cents(500), QStringLiteral("Α")));
    start();
    typeMovement(QStringLiteral("100"), QStringLiteral("β"), QStringLiteral("7"));
    const QString typed = entry();
    user().clickRow(list(), 1); // selects a line, clears the entry
    typeMovement(QStringLiteral("100"), QStringLiteral("β"), QStringLiteral("7"));
    ASSERT_EQ(entry(), typed);
    int rows = list().model()->rowCount();
    const auto visit = [&](const char* arrivesAt, const std::function<void()>& leave) {
        addMovement(incomeOf(today, cents(100), QStringLiteral("ΑΛΛΟΥ")));
        user().goTo(user().field(date));
        leave();
        ++rows;
        EXPECT_TRUE(QTest::qWaitFor([&] { return list().model()->rowCount() == rows; })) << arrivesAt;
        EXPECT_EQ(user().focusName(), QString::fromUtf8(arrivesAt));
        EXPECT_EQ(entry(), typed) << arrivesAt;
        EXPECT_EQ(list().currentIndex().row(), 1) << arrivesAt;
    };
    visit("DBCombo1", [this] { user().press(Qt::Key_Return); });
    visit("Tab1", [this] { user().press(Qt::Key_Backtab, Qt::ShiftModifier); });
    visit("Text1(9)", [this] { user().click(user().field(memorandum)); });

    book.close(today);
    boxes.expect(dayIsClosed());
    leaveDate(QStringLiteral("15/3"));
    EXPECT_EQ(entry(), typed) << "to be read, not to be stored";
    EXPECT_FALSE(chooser().isEnabled() || user().field(income).isEnabled() || user().command(insert).isVisible());
}

TEST_F(DateFieldTest, aRefusedDateLocksNothing)
{
    start();
    const auto refuse = [this] {
        boxes.expect(invalidDate());
        leaveDate(QStringLiteral("32-1"));
        EXPECT_TRUE(boxes.allSeen());
    };
    refuse();
    user().press(Qt::Key_Escape);
    EXPECT_EQ(user().field(date).text(), QStringLiteral("15-03-2024"));
    user().press(Qt::Key_Tab);
    EXPECT_EQ(user().focusName(), QStringLiteral("DBCombo1"));
    refuse();
    selectTab(1);
    EXPECT_TRUE(user().find(QStringLiteral("Panel1(2)")).isVisible());
    selectTab(0);
    EXPECT_EQ(user().field(date).text(), QStringLiteral("15-03-2024"));
}

TEST_F(DateFieldTest, aStartOnAClosedDayLeadsToTheDateAlone)
{
    addMovement(incomeOf(today, cents(500)));
    addMovement(incomeOf(yesterday, cents(300)));
    book.close(today);
    book.close(yesterday);
    start();
    EXPECT_EQ(user().focusName(), QStringLiteral("Text1(0)"));
    EXPECT_FALSE(chooser().isEnabled() || user().command(insert).isVisible());
    for (const int index : {description, income, expense, memorandum})
        EXPECT_FALSE(user().field(index).isEnabled()) << index;
    selectTab(2); // nobody has gone to the date: no box
    selectTab(0);

    boxes.expect(dayIsClosed());
    leaveDate(QStringLiteral("14-3"));
    EXPECT_EQ(shownFigures(), QStringLiteral("3,00 | 0 | 3,00"));
    EXPECT_EQ(user().field(date).selectedText(), QStringLiteral("14-03-2024"));
    user().press(Qt::Key_Tab);
    EXPECT_EQ(user().focusName(), QStringLiteral("List1")) << "one box is enough";
}

TEST_F(DateFieldTest, closingAsksWritesOneRowAndShowsAtTheNextLook)
{
    const QString notices = QStringLiteral("notices");
    addCashDay(yesterday, cents(100));
    start({false, true, false});
    boxes.expect(
        byKey(withDetails(closeQuestion(QMessageBox::Cancel), QStringLiteral("η 14-03-2024")), Qt::Key_Return));
    user().click(user().command(closeCash));
    EXPECT_EQ(closedDays(), QString());
    EXPECT_EQ(user().text(notices), QString());
    for (const QString& told : {QStringLiteral("Η ημέρα 15-03-2024 έκλεισε"), QString()}) {
        boxes.expect(closeQuestion(QMessageBox::Ok));
        user().click(user().command(closeCash));
        EXPECT_EQ(closedDays(), QStringLiteral("20240315"));
        EXPECT_EQ(state(), QStringLiteral("Ταμείο ανοικτό"));
        EXPECT_EQ(user().text(notices), told) << "of a day that was open";
    }
    boxes.expect(dayIsClosed());
    leaveDate(QStringLiteral("15-03-2024"));
    EXPECT_EQ(state(), QStringLiteral("Ταμείο κλειστό"));
}

} // namespace lorvan::test
