#include "main_window_test.h"

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

struct EnterCase {
    const char* name;
    const char* typed;
    const char* refusal; ///< Null where the code is found.
    const char* amountLeft; ///< Of the 5,00 that stood in the income field.
    const char* focus;
};

void PrintTo(const EnterCase& each, std::ostream* stream)
{
    *stream << each.name;
}

constexpr const char* notGiven = "Δεν δώθηκε ο κωδικός της κίνησης";
constexpr const char* notFound = "Δεν βρέθηκε ο κωδικός της κίνησης";

class ChooserEnter : public ChooserTest, public testing::WithParamInterface<EnterCase> { };

TEST_P(ChooserEnter, selectsACodeOrSaysWhyNot)
{
    const EnterCase& given = GetParam();
    start();
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("5"));
    user().goTo(chooser());
    user().press(Qt::Key_Delete);
    user().type(QString::fromUtf8(given.typed));
    if (given.refusal)
        boxes.expect(information(QStringLiteral("Προσοχη"), QString::fromUtf8(given.refusal)));
    user().press(Qt::Key_Return);
    EXPECT_TRUE(boxes.allSeen());
    EXPECT_EQ(user().field(income).text(), QString::fromUtf8(given.amountLeft));
    EXPECT_EQ(user().focusName(), QString::fromUtf8(given.focus));
    if (!given.refusal) {
        EXPECT_EQ(chooser().currentText(), QStringLiteral("200 Προμήθειες"));
        expectKind(user(), false);
        return;
    }
    EXPECT_EQ(chooser().currentText(), QString::fromUtf8(given.typed)) << "what was typed stays";
    boxes.expect(noCodeGiven());
    user().click(user().command(insert));
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), QStringLiteral("0"));
}

INSTANTIATE_TEST_SUITE_P(All, ChooserEnter,
    testing::Values(EnterCase{"nothing", "", notGiven, "0", "DBCombo1"},
        EnterCase{"blanks", "  ", notGiven, "0", "DBCombo1"}, EnterCase{"letters", "ΑΒΓ", notFound, "0", "DBCombo1"},
        EnterCase{"letters after the digits", "20χ", notFound, "0", "DBCombo1"},
        EnterCase{"number of no code", "999", notFound, "5,00", "DBCombo1"},
        EnterCase{"number of an inactive code", "300", notFound, "5,00", "DBCombo1"},
        EnterCase{"number with decimals", "200,5", notFound, "5,00", "DBCombo1"},
        EnterCase{"number beyond all codes", "99999999999999999999", notFound, "5,00", "DBCombo1"},
        EnterCase{"code", "200", nullptr, "0", "Text1(1)"},
        EnterCase{"code and words", "200 κάτι", nullptr, "0", "Text1(1)"}));

} // namespace

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
    boxes.expect(okCancel(QMessageBox::Question, QStringLiteral("Μεταβολή στοιχείων"),
        QStringLiteral("Να γίνει η μεταβολή των στοιχείων;"), QMessageBox::Ok));
    user().click(user().command(modify));
    EXPECT_EQ(cashDays(), (CashDayLines{"20240315 0 123450 -123450", "20240316 0 0 -123450"}));
}

} // namespace lorvan::test
