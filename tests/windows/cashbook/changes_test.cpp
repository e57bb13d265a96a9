#include "windows/main_window_test.h"

#include <QCheckBox>

namespace lorvan::test {
namespace {

/// A day with one expense of 30,00 and one income, between two cash days.
class ChangesTest : public MainWindowTest {
protected:
    static constexpr auto emptyEntry = "0 | 0 | 0 |  | ";

    void SetUp() override
    {
        addCashDay(yesterday, cents(10000));
        addCashDay(tomorrow, cents(12000));
        MovementDraft paper = expenseOf(today, cents(3000), "ΧΑΡΤΙ");
        paper.memorandum = cents(1200);
        paper.cheque = true;
        addMovement(paper);
        addMovement(incomeOf(today, cents(5000), "ΠΩΛΗΣΗ"));
        start();
    }

    void load() const
    {
        user().doubleClickRow(list(), 1);
        ASSERT_EQ(entry(), "0 | 30,00 | 12,00 | ΧΑΡΤΙ | 200 Προμήθειες");
        expectLoaded(true);
    }
    void expectLoaded(bool isLoaded) const
    {
        for (const int button : {modify, remove})
            EXPECT_EQ(user().command(button).isVisible(), isLoaded);
        EXPECT_NE(user().field(date).isEnabled(), isLoaded);
    }
    void expectUntouched() const
    {
        EXPECT_EQ(stored("SELECT group_concat(perigrafh||' '||(esoda/100)||' '||(ejoda/100), '; ') FROM kinhseis"),
            "ΧΑΡΤΙ 0 3000; ΠΩΛΗΣΗ 5000 0");
        EXPECT_EQ(cashDays(), (CashDayLines{"20240314 0 0 10000", "20240315 5000 3000 12000", "20240316 0 0 12000"}));
    }
};

ExpectedBox removeQuestion(QMessageBox::StandardButton answer)
{
    return okCancel(QMessageBox::Question, "Διαγραφή κίνησης", "Να γίνει η διαγραφή της κίνησης", answer);
}

ExpectedBox insertLoadedQuestion(QMessageBox::StandardButton answer)
{
    return okCancel(QMessageBox::Critical, "Προσοχή",
        "Έχετε επιλέξει στοιχεία για μεταβολή ή διαγραφή.\nθέλετε να γίνει η εισαγωγή;", answer);
}

} // namespace

TEST_F(ChangesTest, aDoubleClickLoadsAMovementAndAClickReleasesIt)
{
    const auto& cheque = user().find<QCheckBox>("Check1(0)");
    load();
    EXPECT_TRUE(cheque.isChecked());
    EXPECT_FALSE(user().field(income).isEnabled());
    EXPECT_TRUE(user().field(expense).isEnabled());

    user().clickRow(list(), 2);
    expectLoaded(false);
    EXPECT_EQ(entry(), emptyEntry);
    EXPECT_FALSE(cheque.isChecked());
    user().doubleClickRow(list(), 0);
    expectLoaded(false); // the line of the carried balance is no movement
}

TEST_F(ChangesTest, cancelKeepsTheLoadedMovementAndAllThatWasTyped)
{
    load();
    user().enter(expense, "45");
    user().enter(description, "άλλο");
    boxes.expect(modifyQuestion(QMessageBox::Cancel));
    boxes.expect(removeQuestion(QMessageBox::Cancel));
    boxes.expect(byKey(insertLoadedQuestion(QMessageBox::Cancel), Qt::Key_Return));
    for (const int button : {modify, remove, insert}) {
        press(button);
        EXPECT_EQ(entry(), "0 | 45,00 | 12,00 | ΆΛΛΟ | 200 Προμήθειες") << button;
        expectLoaded(true);
    }
    expectUntouched();
}

TEST_F(ChangesTest, aModificationAndADeletionShowTheDayAsItIsThen)
{
    load();
    user().type("45,25");
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    for (int enter = 0; enter < 4; ++enter)
        user().press(Qt::Key_Return);
    EXPECT_EQ(cashDays(), (CashDayLines{"20240314 0 0 10000", "20240315 5000 4525 10475", "20240316 0 0 10475"}));
    EXPECT_EQ(shownFigures(), "50,00 | 45,25 | 104,75");
    EXPECT_EQ(movementLine(1), "   1   200 ΧΑΡΤΙ                           12,00          0      45,25 §");
    expectLoaded(false);
    EXPECT_EQ(entry(), emptyEntry);
    EXPECT_TRUE(list().selectionModel()->selectedIndexes().isEmpty());

    for (const char* const figures : {"50,00 | 0 | 150,00", "0 | 0 | 100,00"}) {
        user().doubleClickRow(list(), 1);
        boxes.expect(removeQuestion(QMessageBox::Ok));
        press(remove);
        EXPECT_EQ(shownFigures(), figures);
        expectLoaded(false);
    }
    EXPECT_EQ(linesOf(list()), "Υπόλοιπο για την 14-03-2024    100,00");
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), "0");
}

TEST_F(ChangesTest, aClearedEntryComesBackUntilTheNextKeyOrAction)
{
    const auto undo = [this] { user().press(Qt::Key_Z, Qt::ControlModifier); };
    typeMovement("100", "νέα", "7");
    const QString typed = entry();
    user().clickRow(list(), 2);
    EXPECT_EQ(entry(), emptyEntry);
    undo();
    EXPECT_EQ(entry(), typed);
    EXPECT_TRUE(user().field(income).isEnabled());
    user().clickRow(list(), 2);
    user().goTo(user().field(memorandum));
    user().type("1");
    undo();
    undo();
    EXPECT_EQ(entry(), emptyEntry) << "the field's own typing went back, and the entry no longer comes";

    load();
    user().type("45");
    user().press(Qt::Key_Escape);
    expectLoaded(false);
    EXPECT_EQ(entry(), emptyEntry);
    undo();
    expectLoaded(true);
    EXPECT_EQ(entry(), "0 | 45 | 12,00 | ΧΑΡΤΙ | 200 Προμήθειες");
    EXPECT_TRUE(list().selectionModel()->isSelected(list().model()->index(1, 0)));

    user().press(Qt::Key_Escape);
    book.execute("UPDATE kinhseis SET ejoda=1 WHERE perigrafh='ΧΑΡΤΙ'");
    undo();
    expectLoaded(false);
    EXPECT_TRUE(user().find("entryNotBack").isVisible());
    user().type("1");
    EXPECT_FALSE(user().find("entryNotBack").isVisible());
}

TEST_F(ChangesTest, refusesInItsOrderAndWritesNothing)
{
    const auto expectRefusal = [this](int button, std::initializer_list<ExpectedBox> said) {
        for (const ExpectedBox& box : said)
            boxes.expect(box);
        press(button);
    };
    load();
    user().enter(description, "  ");
    expectRefusal(insert,
        {insertLoadedQuestion(QMessageBox::Ok),
            information("Λάθος στην περιγραφή", "Δεν υπάρχει περιγραφή της κίνησης")});

    book.close(today);
    expectRefusal(insert, {information("Προσοχή", "Ο χρήστης δεν έχει το δικαίωμα της εισαγωγής")});
    user().enter(description, "α");
    expectRefusal(modify, {modifyQuestion(QMessageBox::Ok), dayIsClosed()});
    expectRefusal(remove, {removeQuestion(QMessageBox::Ok), dayIsClosed()});
    expectLoaded(true);
    expectUntouched();

    start();
    user().doubleClickRow(list(), 1);
    expectLoaded(false); // without the right
    EXPECT_EQ(entry(), emptyEntry);
}

} // namespace lorvan::test
