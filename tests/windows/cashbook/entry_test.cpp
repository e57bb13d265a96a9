#include "windows/main_window_test.h"

#include <QCheckBox>

namespace lorvan::test {
namespace {

class EntryTest : public MainWindowTest { };

} // namespace

TEST_F(EntryTest, aMovementNeedsNoMouse)
{
    addCashDay(yesterday, cents(10000));
    start();

    user().type("100");
    user().press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(chooser().currentText(), "100 Λιανική");
    EXPECT_EQ(user().focusName(), "Text1(1)");
    user().type("πώληση άλφα\n");
    EXPECT_EQ(user().focusName(), "Text1(2)");
    user().type("1250.5", Qt::KeypadModifier);
    user().press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(user().focusName(), "Text1(9)") << "the expense field takes no amount of an income code";
    user().type("7\n");
    user().press(Qt::Key_Space);
    user().press(Qt::Key_Return);
    EXPECT_EQ(entry(), "1.250,50 | 0 | 7,00 | ΠΏΛΗΣΗ ΆΛΦΑ | 100 Λιανική");
    EXPECT_EQ(user().focusName(), "Command1(0)");
    user().press(Qt::Key_Enter, Qt::KeypadModifier);

    EXPECT_EQ(movementLine(1), "   1   100 ΠΏΛΗΣΗ ΆΛΦΑ                      7,00   1.250,50          0 §");
    EXPECT_EQ(shownFigures(), "1.250,50 | 0 | 1.350,50");
    EXPECT_EQ(entry(), "0 | 0 | 7,00 |  | ") << "the memorandum amount stays for the next movement";
    EXPECT_TRUE(user().field(memorandum).property("marked").toBool());
    EXPECT_FALSE(user().find<QCheckBox>("Check1(0)").isChecked());
    EXPECT_EQ(user().focusName(), "DBCombo1");
    user().type("1");
    EXPECT_TRUE(user().field(memorandum).property("marked").toBool()) << "nobody has looked at it yet";
    user().enter(memorandum, "7");
    EXPECT_FALSE(user().field(memorandum).property("marked").toBool());
}

TEST_F(EntryTest, aRefusedAmountStaysInItsFieldAndLosesNothing)
{
    addMovement(incomeOf(yesterday, cents(500)));
    const QString nasty = "';DROP TABLE kinhseis;--\"%s%n%1\\ <b>☎</b> " + QString(10'000, u'ω');
    start();
    typeMovement("100", "", "5");
    user().goTo(user().field(description));
    user().paste(u' ' + nasty + u' ');
    for (const auto& [index, pasted] :
        {std::pair(income, QString("12.34")), std::pair(memorandum, QString("922337203685477,59"))}) {
        const QString before = user().field(index).text();
        user().enter(index, "");
        user().paste(pasted);
        const auto expectRefusal = [&, index = index, pasted = pasted](const std::function<void()>& leave) {
            boxes.expect(warningWith(pasted));
            leave();
            EXPECT_EQ(user().focusName(), QString("Text1(%1)").arg(index));
            EXPECT_EQ(user().field(index).selectedText(), pasted);
        };
        expectRefusal([this] { user().press(Qt::Key_Tab); });
        expectRefusal([this] { press(insert); });
        expectRefusal([this] { user().clickRow(list(), 0); });
        user().enter(index, before);
    }
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), "1");
    press(insert);
    EXPECT_EQ(stored("SELECT perigrafh||' '||esoda FROM kinhseis WHERE hmeromhnia=20240315"), nasty + " 50000");
}

TEST_F(EntryTest, aBookThatCannotBeWrittenSaysSoAndKeepsTheEntry)
{
    start();
    typeMovement("100", "α", "5");
    book.execute("DROP TABLE tameio;"
                 "CREATE TABLE tameio (aa INTEGER PRIMARY KEY, hmeromhnia INTEGER, esoda INTEGER, ejoda INTEGER,"
                 " ypoloipo INTEGER, CONSTRAINT \"disk on fire\" CHECK (esoda IS NULL))");
    boxes.expect(warningWith("disk on fire"));
    press(insert);
    EXPECT_EQ(entry(), "5,00 | 0 | 0 | Α | 100 Λιανική");
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), "0") << "the movement went with its day";
}

} // namespace lorvan::test
