#include "windows/main_window_test.h"

#include <QCheckBox>
#include <QTest>

namespace lorvan::test {
namespace {

/// A day with one expense of 30,00 and one income, between two cash days.
class ChangesTest : public MainWindowTest {
protected:
    static constexpr auto loadedEntry = "0 | 30,00 | 12,00 | ΧΑΡΤΙ | 200 Προμήθειες";

    void SetUp() override
    {
        addCashDay(yesterday, cents(10000));
        addCashDay(tomorrow, cents(12000));
        MovementDraft paper = expenseOf(today, cents(3000), QStringLiteral("ΧΑΡΤΙ"));
        paper.memorandum = cents(1200);
        paper.cheque = true;
        addMovement(paper);
        addMovement(incomeOf(today, cents(5000), QStringLiteral("ΠΩΛΗΣΗ")));
    }

    void startLoaded(Rights rights = noRights)
    {
        start(rights);
        user().doubleClickRow(list(), 1);
        ASSERT_EQ(entry(), QString::fromUtf8(loadedEntry));
    }

    [[nodiscard]] bool isLoaded() const
    {
        const bool offered = user().command(modify).isVisible() && user().command(remove).isVisible();
        EXPECT_NE(offered, user().field(date).isEnabled());
        return offered;
    }

    [[nodiscard]] QString movements() const
    {
        return stored("SELECT group_concat(perigrafh||' '||(esoda/100)||' '||(ejoda/100), '; ') FROM kinhseis");
    }

    void expectUntouched() const
    {
        EXPECT_EQ(movements(), QStringLiteral("ΧΑΡΤΙ 0 3000; ΠΩΛΗΣΗ 5000 0"));
        EXPECT_EQ(cashDays(), (CashDayLines{"20240314 0 0 10000", "20240315 5000 3000 12000", "20240316 0 0 12000"}));
    }
};

ExpectedBox removeQuestion(QMessageBox::StandardButton answer)
{
    return okCancel(QMessageBox::Question, QStringLiteral("Διαγραφή κίνησης"),
        QStringLiteral("Να γίνει η διαγραφή της κίνησης"), answer);
}

ExpectedBox insertLoadedQuestion(QMessageBox::StandardButton answer)
{
    return okCancel(QMessageBox::Critical, QStringLiteral("Προσοχή"),
        QStringLiteral("Έχετε επιλέξει στοιχεία για μεταβολή ή διαγραφή.\nθέλετε να γίνει η εισαγωγή;"), answer);
}

ExpectedBox insertRefusedOnClosedDay()
{
    return information(QStringLiteral("Προσοχή"), QStringLiteral("Ο χρήστης δεν έχει το δικαίωμα της εισαγωγής"));
}

} // namespace

TEST_F(ChangesTest, aDoubleClickLoadsAMovementAndAClickReleasesIt)
{
    startLoaded();
    EXPECT_TRUE(isLoaded());
    EXPECT_TRUE(user().find<QCheckBox>(QStringLiteral("Check1(0)")).isChecked());
    EXPECT_FALSE(user().field(income).isEnabled());
    EXPECT_TRUE(user().field(expense).isEnabled());

    user().clickRow(list(), 2);
    EXPECT_FALSE(isLoaded());
    EXPECT_EQ(entry(), QStringLiteral("0 | 0 | 0 |  | "));
    EXPECT_FALSE(user().find<QCheckBox>(QStringLiteral("Check1(0)")).isChecked());
    user().doubleClickRow(list(), 0);
    EXPECT_FALSE(isLoaded()) << "the line of the carried balance is no movement";
}

TEST_F(ChangesTest, cancelKeepsTheLoadedMovementAndAllThatWasTyped)
{
    startLoaded();
    user().enter(expense, QStringLiteral("45"));
    user().enter(description, QStringLiteral("άλλο"));
    const QString typed = QStringLiteral("0 | 45,00 | 12,00 | ΆΛΛΟ | 200 Προμήθειες");
    boxes.expect(modifyQuestion(QMessageBox::Cancel));
    boxes.expect(removeQuestion(QMessageBox::Cancel));
    boxes.expect(byKey(insertLoadedQuestion(QMessageBox::Cancel), Qt::Key_Return));
    for (const int button : {modify, remove, insert}) {
        user().click(user().command(button));
        EXPECT_EQ(entry(), typed) << button;
        EXPECT_TRUE(isLoaded()) << button;
    }
    expectUntouched();
}

TEST_F(ChangesTest, aModificationRewritesTheDayAndMovesTheLaterOnes)
{
    startLoaded();
    user().type(QStringLiteral("45,25"));
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    for (int enter = 0; enter < 4; ++enter)
        user().press(Qt::Key_Return);
    EXPECT_EQ(movements(), QStringLiteral("ΧΑΡΤΙ 0 4525; ΠΩΛΗΣΗ 5000 0"));
    EXPECT_EQ(cashDays(), (CashDayLines{"20240314 0 0 10000", "20240315 5000 4525 10475", "20240316 0 0 10475"}));
    EXPECT_EQ(shownFigures(), QStringLiteral("50,00 | 45,25 | 104,75"));
    EXPECT_EQ(
        movementLine(1), QStringLiteral("   1   200 ΧΑΡΤΙ                           12,00          0      45,25 §"));
    EXPECT_FALSE(isLoaded());
    EXPECT_EQ(entry(), QStringLiteral("0 | 0 | 0 |  | "));
    EXPECT_TRUE(list().selectionModel()->selectedIndexes().isEmpty());
}

TEST_F(ChangesTest, deletingTheLastMovementLeavesADayOfZeroes)
{
    startLoaded();
    for (const char* const expected : {"20240315 5000 0 15000", "20240315 0 0 10000"}) {
        boxes.expect(removeQuestion(QMessageBox::Ok));
        user().click(user().command(remove));
        EXPECT_EQ(cashDays().at(1), expected);
        if (list().model()->rowCount() > 1)
            user().doubleClickRow(list(), 1);
    }
    EXPECT_EQ(cashDays().at(2), "20240316 0 0 10000");
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), QStringLiteral("0"));
    EXPECT_EQ(shownFigures(), QStringLiteral("0 | 0 | 100,00"));
    EXPECT_EQ(linesOf(list()), QStringLiteral("Υπόλοιπο για την 14-03-2024    100,00"));
    EXPECT_FALSE(isLoaded());
}

TEST_F(ChangesTest, aClearedEntryComesBackUntilTheNextKeyOrAction)
{
    const QString nothing = QStringLiteral("0 | 0 | 0 |  | ");
    const auto undo = [this] { user().press(Qt::Key_Z, Qt::ControlModifier); };
    start();
    typeMovement(QStringLiteral("100"), QStringLiteral("νέα"), QStringLiteral("7"));
    const QString typed = entry();
    user().clickRow(list(), 2);
    EXPECT_EQ(entry(), nothing);
    undo();
    EXPECT_EQ(entry(), typed);
    EXPECT_TRUE(user().field(income).isEnabled());
    user().clickRow(list(), 2);
    user().goTo(user().field(memorandum));
    user().type(QStringLiteral("1"));
    undo();
    undo();
    EXPECT_EQ(entry(), nothing) << "the field's own typing went back, and the entry no longer comes";

    user().doubleClickRow(list(), 1);
    user().type(QStringLiteral("45"));
    user().press(Qt::Key_Escape);
    EXPECT_FALSE(isLoaded());
    EXPECT_EQ(entry(), nothing);
    undo();
    EXPECT_TRUE(isLoaded());
    EXPECT_EQ(entry(), QStringLiteral("0 | 45 | 12,00 | ΧΑΡΤΙ | 200 Προμήθειες"));
    EXPECT_TRUE(list().selectionModel()->isSelected(list().model()->index(1, 0)));

    user().press(Qt::Key_Escape);
    book.execute("UPDATE kinhseis SET ejoda=1 WHERE perigrafh='ΧΑΡΤΙ'");
    undo();
    EXPECT_FALSE(isLoaded());
    EXPECT_TRUE(user().find(QStringLiteral("entryNotBack")).isVisible());
    user().type(QStringLiteral("1"));
    EXPECT_FALSE(user().find(QStringLiteral("entryNotBack")).isVisible());
}

TEST_F(ChangesTest, insertRefusesInItsOrderAndWritesNothing)
{
    startLoaded();
    user().enter(description, QStringLiteral("  "));
    user().goTo(chooser());
    user().press(Qt::Key_Delete);
    book.close(today);
    boxes.expect(insertRefusedOnClosedDay());
    user().click(user().command(insert));
    book.openAuxiliary().execute("DELETE FROM klhsimotameioy");

    boxes.expect(insertLoadedQuestion(QMessageBox::Ok));
    boxes.expect(information(QStringLiteral("Λάθος κωδικός"), QStringLiteral("Δεν έχετε δώσει κωδικό κίνησης")));
    user().click(user().command(insert));

    chooseCode(QStringLiteral("200"));
    book.execute("UPDATE kvdikoi SET energos=0 WHERE kvdikos=200");
    boxes.expect(insertLoadedQuestion(QMessageBox::Ok));
    boxes.expect(
        information(QStringLiteral("Λάθος κωδικός"), QStringLiteral("Ο κωδικός έχει αλλάξει ενημερώστε ξανά!")));
    user().click(user().command(insert));
    book.execute("UPDATE kvdikoi SET energos=-1 WHERE kvdikos=200");

    boxes.expect(insertLoadedQuestion(QMessageBox::Ok));
    boxes.expect(
        information(QStringLiteral("Λάθος στην περιγραφή"), QStringLiteral("Δεν υπάρχει περιγραφή της κίνησης")));
    user().click(user().command(insert));
    EXPECT_TRUE(isLoaded());
    expectUntouched();
}

TEST_F(ChangesTest, aDayClosedMeanwhileLetsNoLoadedMovementThrough)
{
    startLoaded();
    user().enter(expense, QStringLiteral("45"));
    book.close(today);
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    boxes.expect(dayIsClosed());
    user().click(user().command(modify));
    boxes.expect(removeQuestion(QMessageBox::Ok));
    boxes.expect(dayIsClosed());
    user().click(user().command(remove));
    boxes.expect(insertRefusedOnClosedDay());
    user().click(user().command(insert));
    EXPECT_TRUE(isLoaded());
    expectUntouched();
}

TEST_F(ChangesTest, aClosedDayLoadsNothingWithoutTheRight)
{
    book.close(today);
    start();
    user().doubleClickRow(list(), 1);
    EXPECT_FALSE(isLoaded());
    EXPECT_EQ(entry(), QStringLiteral("0 | 0 | 0 |  | "));
}

} // namespace lorvan::test
