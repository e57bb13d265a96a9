#include "windows/main_window_test.h"

#include <QMenu>

namespace lorvan::test {
namespace {

class OpenDaysTest : public MainWindowTest {
protected:
    OpenDaysTest()
    {
        book.execute("INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (20240312, 50000, 0, 50000)");
        addCashDay(today.addDays(-20), {});
        addCashDay(yesterday, cents(500));
        addCashDay(today, cents(500));
        addMovement(incomeOf(today.addDays(-3), cents(500), "Α"));
        book.close(today.addDays(-20));
    }

    /// Follows the line, and picks in the list that comes.
    void follow(const std::function<void(const Driver& list)>& pick)
    {
        boxes.whenShown("openDays", [pick](QWidget& shown) {
            const Driver list(shown);
            EXPECT_EQ(linesOf(list.find<QListView>("days")), "12-03-2024  Τρίτη\n14-03-2024  Πέμπτη");
            pick(list);
        });
        user().click(user().find("notices"));
    }
};

} // namespace

TEST_F(OpenDaysTest, areToldAndAClickLeadsToOneOfThem)
{
    start(allRights);
    EXPECT_EQ(notice(), "Ανοικτές ημέρες: 2 (από 12-03-2024)");
    selectTab(CodesTab);
    follow([](const Driver& list) { list.press(Qt::Key_Escape); });
    EXPECT_EQ(tabs().currentIndex(), CodesTab);

    follow([](const Driver& list) { list.clickRow(list.find<QListView>("days"), 0); });
    EXPECT_EQ(tabs().currentIndex(), CashTab);
    EXPECT_EQ(user().field(date).text(), "12-03-2024");
    EXPECT_EQ(shownFigures(), "5,00 | 0 | 5,00");

    chooseCode("100");
    user().enter(income, "1,2,3");
    boxes.expect(partly(warning("Προσοχή", "1,2,3")));
    follow([](const Driver& list) { list.press(Qt::Key_Return); });
    EXPECT_EQ(user().field(date).text(), "12-03-2024") << "a refused amount keeps the user there";
    EXPECT_EQ(user().field(income).text(), "1,2,3");

    user().enter(income, "0");
    user().doubleClickRow(list(), 1);
    boxes.expect(information("Προσοχή", "Μια κίνηση είναι ανοικτή για μεταβολή ή διαγραφή. Τελειώστε πρώτα με αυτή."));
    follow([](const Driver& days) { days.press(Qt::Key_Return); });
    EXPECT_EQ(user().field(date).text(), "12-03-2024") << "a loaded movement keeps the user there";
    user().press(Qt::Key_Escape);
    follow([](const Driver& list) {
        list.press(Qt::Key_Down);
        list.press(Qt::Key_Return);
    });
    EXPECT_EQ(user().field(date).text(), "14-03-2024");
    boxes.expect(okCancel(QMessageBox::Question, "Κλείσιμο ταμείου", "Να κλείσω το ταμείο;", QMessageBox::Ok));
    press(closeCash);
    EXPECT_TRUE(notice().startsWith("Η ημέρα 14-03-2024 έκλεισε, κωδικός ελέγχου ")) << notice();
    EXPECT_EQ(user().find<QAbstractButton>("otherNotices").text(), "και 1 ακόμη");
    user().press(Qt::Key_F8);
    auto* const listed = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(listed);
    EXPECT_EQ(listed->actions().size(), 2);
    EXPECT_EQ(listed->activeAction()->text(), notice());
    listed->close();
    selectTab(CodesTab);
    EXPECT_EQ(notice(), "Ανοικτές ημέρες: 1 (από 12-03-2024)");
}

} // namespace lorvan::test
