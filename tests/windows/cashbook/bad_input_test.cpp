#include "windows/main_window_test.h"

#include <limits>

namespace lorvan::test {
namespace {

class BadInputTest : public MainWindowTest { };

} // namespace

TEST_F(BadInputTest, aRefusedAmountStaysInItsFieldAndLosesNothing)
{
    start();
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("5"));
    for (const char* const wrong :
        {"1,234,5", ",", "922337203685477,59", "99999999999999999999999999", "δέκα", "12.34"}) {
        const QString pasted = QString::fromUtf8(wrong);
        for (const int index : {income, memorandum}) {
            const QString before = user().field(index).text();
            user().enter(index, QString());
            user().paste(pasted);
            boxes.expect(partly(warning(QStringLiteral("Προσοχή"), pasted)));
            user().press(Qt::Key_Tab);
            EXPECT_TRUE(boxes.allSeen()) << wrong;
            EXPECT_EQ(user().focusName(), QStringLiteral("Text1(%1)").arg(index));
            boxes.expect(partly(warning(QStringLiteral("Προσοχή"), pasted)));
            user().click(user().command(insert));
            EXPECT_TRUE(boxes.allSeen()) << wrong;
            EXPECT_EQ(user().field(index).text(), pasted);
            user().enter(index, before);
        }
    }
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), QStringLiteral("0"));
    user().click(user().command(insert));
    EXPECT_EQ(stored("SELECT perigrafh||' '||esoda FROM kinhseis"), QStringLiteral("Α 50000"));
}

TEST_F(BadInputTest, tenMillionEuroAreCutInTheListAlone)
{
    start();
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("10000000"));
    EXPECT_EQ(user().field(income).text(), QStringLiteral("10.000.000,00"));
    user().click(user().command(insert));
    EXPECT_EQ(
        movementLine(1), QStringLiteral("   1   100 Α                                    .000.000,00          0 "));
    EXPECT_TRUE(list().model()->index(1, 0).data(Qt::ToolTipRole).toString().contains(QStringLiteral("10.000.000,00")));
    EXPECT_EQ(shownFigures(), QStringLiteral("10.000.000,00 | 0 | 10.000.000,00"));
    EXPECT_EQ(cashDays(), CashDayLines{"20240315 1000000000 0 1000000000"});
}

TEST_F(BadInputTest, anyDescriptionIsStoredAsItIs)
{
    const QString nasty = QStringLiteral("';DROP TABLE kinhseis;--\"%s%n%1\\ <b>☎</b> ") + QString(10'000, u'ω');
    start();
    chooseCode(QStringLiteral("100"));
    user().paste(u' ' + nasty + u' ');
    user().click(user().command(insert));
    EXPECT_EQ(stored("SELECT perigrafh FROM kinhseis"), nasty);
    user().doubleClickRow(list(), 1);
    EXPECT_EQ(user().field(description).text(), nasty);
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    user().click(user().command(modify));
    EXPECT_EQ(stored("SELECT perigrafh FROM kinhseis"), nasty);
}

TEST_F(BadInputTest, aBookThatCannotBeWrittenSaysSoAndKeepsTheEntry)
{
    start();
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("5"));
    book.execute("DROP TABLE tameio;"
                 "CREATE TABLE tameio (aa INTEGER PRIMARY KEY, hmeromhnia INTEGER, esoda INTEGER, ejoda INTEGER,"
                 " ypoloipo INTEGER, CONSTRAINT \"disk on fire\" CHECK (esoda IS NULL))");
    boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("disk on fire"))));
    user().click(user().command(insert));
    EXPECT_TRUE(boxes.allSeen());
    EXPECT_EQ(entry(), QStringLiteral("5,00 | 0 | 0 | Α | 100 Λιανική"));
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), QStringLiteral("0")) << "the movement went with its day";
}

TEST_F(BadInputTest, aRefusedAmountKeepsTheEntryWhenTheListIsClicked)
{
    addMovement(incomeOf(today, cents(500)));
    start();
    chooseCode(QStringLiteral("100"));
    user().enter(description, QStringLiteral("α"));
    user().enter(income, QStringLiteral("1,2,3"));
    boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("1,2,3"))));
    user().clickRow(list(), 1);
    EXPECT_TRUE(boxes.allSeen());
    EXPECT_EQ(entry(), QStringLiteral("1,2,3 | 0 | 0 | Α | 100 Λιανική"));
    EXPECT_EQ(user().field(income).selectedText(), QStringLiteral("1,2,3"));
}

} // namespace lorvan::test
