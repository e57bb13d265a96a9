#include "windows/main_window_test.h"

namespace lorvan::test {
namespace {

class ChooserTest : public MainWindowTest {
protected:
    void SetUp() override { book.addCode(300, QStringLiteral("Παλιός"), true, 0, false); }
    static void expectKind(const Driver& user, bool isIncome)
    {
        EXPECT_EQ(user.field(income).isEnabled(), isIncome);
        EXPECT_EQ(user.field(expense).isEnabled(), !isIncome);
    }
};

ExpectedBox noCodeGiven()
{
    return information(QStringLiteral("Λάθος κωδικός"), QStringLiteral("Δεν έχετε δώσει κωδικό κίνησης"));
}

ExpectedBox codeChanged()
{
    return information(QStringLiteral("Λάθος κωδικός"), QStringLiteral("Ο κωδικός έχει αλλάξει ενημερώστε ξανά!"));
}

} // namespace

TEST_F(ChooserTest, enterSelectsACodeOrSaysWhyNot)
{
    struct Case {
        const char* typed;
        const char* refusal;
        const char* amountLeft; ///< Of the 5,00 that stood in the income field.
    };
    constexpr const char* notGiven = "Δεν δώθηκε ο κωδικός της κίνησης";
    constexpr const char* notFound = "Δεν βρέθηκε ο κωδικός της κίνησης";
    start();
    for (const Case& each : {Case{"", notGiven, "0"}, Case{"  ", notGiven, "0"}, Case{"ΑΒΓ", notFound, "0"},
             Case{"20χ", notFound, "0"}, Case{"999", notFound, "5,00"}, Case{"300", notFound, "5,00"},
             Case{"200,5", notFound, "5,00"}, Case{"99999999999999999999", notFound, "5,00"}}) {
        typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("5"));
        user().goTo(chooser());
        user().press(Qt::Key_Delete);
        user().type(QString::fromUtf8(each.typed));
        boxes.expect(information(QStringLiteral("Προσοχη"), QString::fromUtf8(each.refusal)));
        user().press(Qt::Key_Return);
        EXPECT_TRUE(boxes.allSeen()) << each.typed;
        EXPECT_EQ(user().field(income).text(), QString::fromUtf8(each.amountLeft)) << each.typed;
        EXPECT_EQ(user().focusName(), QStringLiteral("DBCombo1"));
        EXPECT_EQ(chooser().currentText(), QString::fromUtf8(each.typed)) << "what was typed stays";
        EXPECT_EQ(chooser().lineEdit()->selectedText(), QString::fromUtf8(each.typed)) << "for typing to replace it";
        boxes.expect(noCodeGiven());
        user().click(user().command(insert));
    }
    chooseCode(QStringLiteral("200 κάτι"));
    EXPECT_EQ(user().focusName(), QStringLiteral("Text1(1)"));
    EXPECT_EQ(entry(), QStringLiteral("0 | 0 | 0 | Α | 200 Προμήθειες"));
    expectKind(user(), false);
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), QStringLiteral("0"));
}

TEST_F(ChooserTest, offersTheActiveCodesAndPicksByTheArrowKeys)
{
    start();
    QStringList offered;
    for (int row = 0; row < chooser().count(); ++row)
        offered += chooser().itemText(row);
    EXPECT_EQ(offered.join(u'\n'), QStringLiteral("  100 Λιανική\n  200 Προμήθειες"));
    user().press(Qt::Key_Down);
    EXPECT_EQ(chooser().currentText(), QStringLiteral("100 Λιανική"));
    expectKind(user(), true);
    user().press(Qt::Key_Down);
    EXPECT_EQ(chooser().currentText(), QStringLiteral("200 Προμήθειες"));
    expectKind(user(), false);
}

TEST_F(ChooserTest, leavingItWithANumberSelectsThatCodeInSilence)
{
    start();
    user().type(QStringLiteral("100"));
    user().press(Qt::Key_Tab);
    EXPECT_EQ(chooser().currentText(), QStringLiteral("100 Λιανική"));
    expectKind(user(), true);
    user().goTo(chooser());
    user().type(QStringLiteral("999"));
    user().press(Qt::Key_Tab);
    EXPECT_EQ(chooser().currentText(), QStringLiteral("999"));
    user().enter(description, QStringLiteral("α"));
    boxes.expect(noCodeGiven());
    user().click(user().command(insert));
}

TEST_F(ChooserTest, aLoadedMovementShowsItsInactiveCodeButCannotKeepIt)
{
    MovementDraft old = incomeOf(today, cents(5000), QStringLiteral("ΠΑΛΙΑ"));
    old.code = 300;
    addMovement(old);
    start();
    user().doubleClickRow(list(), 1);
    EXPECT_EQ(entry(), QStringLiteral("50,00 | 0 | 0 | ΠΑΛΙΑ | 300 Παλιός"));
    boxes.expect(codeChanged());
    user().click(user().command(modify));
    EXPECT_TRUE(boxes.allSeen());

    user().goTo(chooser());
    user().press(Qt::Key_Home);
    user().type(QStringLiteral("1"));
    boxes.expect(noCodeGiven());
    user().click(user().command(modify));
    EXPECT_EQ(stored("SELECT kvdikos FROM kinhseis"), QStringLiteral("300"));
}

TEST_F(ChooserTest, anotherKindOfCodeMovesTheLoadedAmount)
{
    addMovement(incomeOf(today, cents(123450), QStringLiteral("Α")));
    addCashDay(tomorrow, cents(123450));
    start();
    user().doubleClickRow(list(), 1);
    chooseCode(QStringLiteral("200"));
    EXPECT_EQ(entry(), QStringLiteral("0 | 1.234,50 | 0 | Α | 200 Προμήθειες"));
    expectKind(user(), false);
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    user().click(user().command(modify));
    EXPECT_EQ(cashDays(), (CashDayLines{"20240315 0 123450 -123450", "20240316 0 0 -123450"}));
}

} // namespace lorvan::test
