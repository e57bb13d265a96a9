#include "windows/main_window_test.h"

namespace lorvan::test {
namespace {

class ChooserTest : public MainWindowTest {
protected:
    void SetUp() override { book.addCode(300, "Παλιός", true, 0, false); }
    void expectShown(const QString& chosen, bool isIncome) const
    {
        EXPECT_EQ(chooser().currentText(), chosen);
        EXPECT_EQ(user().field(income).isEnabled(), isIncome);
        EXPECT_EQ(user().field(expense).isEnabled(), !isIncome);
    }
};

const ExpectedBox noCodeGiven = information("Λάθος κωδικός", "Δεν έχετε δώσει κωδικό κίνησης");

} // namespace

TEST_F(ChooserTest, enterSelectsACodeOrSaysWhyNot)
{
    constexpr const char* notGiven = "Δεν δώθηκε ο κωδικός της κίνησης";
    constexpr const char* notFound = "Δεν βρέθηκε ο κωδικός της κίνησης";
    const struct {
        const char* typed;
        const char* refusal;
        const char* amountLeft; ///< Of the 5,00 that stood in the income field.
    } cases[] = {{"  ", notGiven, "0"}, {"20χ", notFound, "0"}, {"300", notFound, "5,00"}, {"200,5", notFound, "5,00"}};
    start();
    for (const auto& each : cases) {
        typeMovement("100", "α", "5");
        user().goTo(chooser());
        user().press(Qt::Key_Delete);
        user().type(each.typed);
        boxes.expect(information("Προσοχη", each.refusal));
        user().press(Qt::Key_Return);
        EXPECT_EQ(user().field(income).text(), each.amountLeft) << each.typed;
        EXPECT_EQ(user().focusName(), "DBCombo1");
        EXPECT_EQ(chooser().currentText(), each.typed) << "what was typed stays";
        EXPECT_EQ(chooser().lineEdit()->selectedText(), each.typed) << "for typing to replace it";
        boxes.expect(noCodeGiven);
        press(insert);
    }
    chooseCode("200 κάτι");
    EXPECT_EQ(user().focusName(), "Text1(1)");
    EXPECT_EQ(entry(), "0 | 0 | 0 | Α | 200 Προμήθειες");
    expectShown("200 Προμήθειες", false);
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), "0");
}

TEST_F(ChooserTest, picksAnActiveCodeByTheArrowKeysOrItsNumber)
{
    start();
    QStringList offered;
    for (int row = 0; row < chooser().count(); ++row)
        offered += chooser().itemText(row);
    EXPECT_EQ(offered.join(u'\n'), "  100 Λιανική\n  200 Προμήθειες");
    user().press(Qt::Key_Down);
    expectShown("100 Λιανική", true);
    user().press(Qt::Key_Down);
    expectShown("200 Προμήθειες", false);

    user().enter(description, "α");
    for (const auto& [number, shown] : {std::pair("100", "100 Λιανική"), std::pair("999", "999")}) {
        user().goTo(chooser());
        user().type(number);
        user().press(Qt::Key_Tab); // in silence
        EXPECT_EQ(chooser().currentText(), shown);
    }
    boxes.expect(noCodeGiven);
    press(insert);
}

TEST_F(ChooserTest, aLoadedMovementShowsItsInactiveCodeButCannotKeepIt)
{
    MovementDraft old = incomeOf(today, cents(5000), "ΠΑΛΙΑ");
    old.code = 300;
    addMovement(old);
    start();
    user().doubleClickRow(list(), 1);
    EXPECT_EQ(entry(), "50,00 | 0 | 0 | ΠΑΛΙΑ | 300 Παλιός");
    boxes.expect(information("Λάθος κωδικός", "Ο κωδικός έχει αλλάξει ενημερώστε ξανά!"));
    press(modify);
    user().goTo(chooser());
    user().press(Qt::Key_Home);
    user().type("1");
    boxes.expect(noCodeGiven);
    press(modify);
    EXPECT_EQ(stored("SELECT kvdikos FROM kinhseis"), "300");
}

TEST_F(ChooserTest, anotherKindOfCodeMovesTheLoadedAmount)
{
    addMovement(incomeOf(today, cents(123450), "Α"));
    addCashDay(tomorrow, cents(123450));
    start();
    user().doubleClickRow(list(), 1);
    chooseCode("200");
    EXPECT_EQ(entry(), "0 | 1.234,50 | 0 | Α | 200 Προμήθειες");
    expectShown("200 Προμήθειες", false);
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    press(modify);
    EXPECT_EQ(cashDays(), (CashDayLines{"20240315 0 123450 -123450", "20240316 0 0 -123450"}));
}

TEST_F(ChooserTest, lettersOfferCodesBelowAndEnterInTheFieldStaysAsItIs)
{
    book.addCode(110, "Λιανική με κάρτα", true);
    start();
    auto& offers = user().find<QListView>("codeOffers");
    const auto type = [&](const char* text) {
        user().goTo(chooser());
        user().press(Qt::Key_A, Qt::ControlModifier);
        user().press(Qt::Key_Delete);
        user().type(text);
    };
    type("λια");
    EXPECT_EQ(linesOf(offers), "  100 Λιανική\n  110 Λιανική με κάρτα");
    EXPECT_TRUE(offers.isVisible());
    EXPECT_EQ(user().focusName(), "DBCombo1");
    boxes.expect(information("Προσοχη", "Δεν βρέθηκε ο κωδικός της κίνησης"));
    user().press(Qt::Key_Return);
    type("λια");
    user().press(Qt::Key_Down);
    user().press(Qt::Key_Down);
    EXPECT_EQ(user().focusName(), "codeOffers");
    user().press(Qt::Key_Return);
    expectShown("110 Λιανική με κάρτα", true);
    EXPECT_FALSE(offers.isVisible());
    EXPECT_EQ(user().focusName(), "DBCombo1");

    type("πρ");
    user().clickRow(offers, 0);
    expectShown("200 Προμήθειες", false);
    type("πα");
    EXPECT_FALSE(offers.isVisible()) << "an inactive code";
    type("λ");
    user().press(Qt::Key_Down);
    user().type("ι");
    EXPECT_EQ(chooser().currentText(), "λι");
    user().press(Qt::Key_Tab);
    EXPECT_FALSE(offers.isVisible());
    EXPECT_EQ(user().focusName(), "Text1(1)");
}

} // namespace lorvan::test
