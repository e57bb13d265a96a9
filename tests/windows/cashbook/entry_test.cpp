#include "windows/main_window_test.h"

#include <QCheckBox>

namespace lorvan::test {
namespace {

class EntryTest : public MainWindowTest { };

} // namespace

TEST_F(EntryTest, aMovementNeedsNoMouse)
{
    addCashDay(yesterday, cents(10000));
    addCashDay(QDate(2024, 3, 20), cents(10000));
    addCashDay(QDate(2025, 1, 2), cents(-500));
    start();

    user().type(QStringLiteral("100"));
    user().press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(chooser().currentText(), QStringLiteral("100 Λιανική"));
    EXPECT_EQ(user().focusName(), QStringLiteral("Text1(1)"));
    user().type(QStringLiteral("πώληση άλφα"));
    user().press(Qt::Key_Return);
    EXPECT_EQ(user().focusName(), QStringLiteral("Text1(2)"));
    user().type(QStringLiteral("1250.5"), Qt::KeypadModifier);
    user().press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(user().focusName(), QStringLiteral("Text1(9)")) << "the expense field takes no amount of an income code";
    user().type(QStringLiteral("7"));
    user().press(Qt::Key_Return);
    user().press(Qt::Key_Space);
    user().press(Qt::Key_Return);
    EXPECT_EQ(entry(), QStringLiteral("1.250,50 | 0 | 7,00 | ΠΏΛΗΣΗ ΆΛΦΑ | 100 Λιανική"));
    EXPECT_EQ(user().focusName(), QStringLiteral("Command1(0)"));
    user().press(Qt::Key_Enter, Qt::KeypadModifier);

    EXPECT_EQ(
        movementLine(1), QStringLiteral("   1   100 ΠΏΛΗΣΗ ΆΛΦΑ                      7,00   1.250,50          0 §"));
    EXPECT_EQ(shownFigures(), QStringLiteral("1.250,50 | 0 | 1.350,50"));
    EXPECT_EQ(cashDays(),
        (CashDayLines{"20240314 0 0 10000", "20240315 125050 0 135050", "20240320 0 0 135050", "20250102 0 0 124550"}));
    EXPECT_EQ(stored("SELECT kvdikos||'/'||hmeromhnia||'/'||perigrafh||'/'||esoda||'/'||ejoda||'/'||aa_omada||'/'||"
                     "epitagh||'/'||L_tajeos FROM kinhseis"),
        QStringLiteral("100/20240315/ΠΏΛΗΣΗ ΆΛΦΑ/12505000/0/1/-1/70000"));
    EXPECT_EQ(entry(), QStringLiteral("0 | 0 | 7,00 |  | ")) << "the memorandum amount stays for the next movement";
    EXPECT_TRUE(user().field(memorandum).property("marked").toBool());
    EXPECT_FALSE(user().find<QCheckBox>(QStringLiteral("Check1(0)")).isChecked());
    EXPECT_EQ(user().focusName(), QStringLiteral("DBCombo1"));
    user().type(QStringLiteral("1"));
    EXPECT_TRUE(user().field(memorandum).property("marked").toBool()) << "nobody has looked at it yet";
    user().enter(memorandum, QStringLiteral("7"));
    EXPECT_FALSE(user().field(memorandum).property("marked").toBool());
}

} // namespace lorvan::test
