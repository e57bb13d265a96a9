#include "main_window_test.h"

#include <limits>

namespace lorvan::test {
namespace {

class BadInputTest : public MainWindowTest { };

struct AmountCase {
    const char* name;
    const char* typed;
    bool pasted;
};

void PrintTo(const AmountCase& each, std::ostream* stream)
{
    *stream << each.name;
}

class RefusedAmount : public BadInputTest, public testing::WithParamInterface<AmountCase> { };

TEST_P(RefusedAmount, staysInItsFieldAndLosesNothing)
{
    const QString typed = QString::fromUtf8(GetParam().typed);
    start();
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("5"));
    for (const int index : {income, memorandum}) {
        const QString before = user().field(index).text();
        user().enter(index, QString());
        if (GetParam().pasted)
            user().paste(typed);
        else
            user().type(typed);
        boxes.expect(partly(warning(QStringLiteral("Προσοχή"), typed)));
        user().press(Qt::Key_Tab);
        EXPECT_TRUE(boxes.allSeen());
        EXPECT_EQ(user().field(index).text(), typed);
        EXPECT_EQ(user().focusName(), QStringLiteral("Text1(%1)").arg(index));
        boxes.expect(partly(warning(QStringLiteral("Προσοχή"), typed)));
        user().click(user().command(insert));
        EXPECT_TRUE(boxes.allSeen());
        EXPECT_EQ(user().field(description).text(), QStringLiteral("Α"));
        user().enter(index, before);
    }
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), QStringLiteral("0"));
    user().click(user().command(insert));
    EXPECT_EQ(stored("SELECT esoda/100 FROM kinhseis"), QStringLiteral("500"));
}

INSTANTIATE_TEST_SUITE_P(All, RefusedAmount,
    testing::Values(AmountCase{"two commas", "1,234,5", false}, AmountCase{"comma alone", ",", false},
        AmountCase{"beyond the range", "922337203685477,59", false},
        AmountCase{"far beyond the range", "99999999999999999999999999", false}, AmountCase{"words", "δέκα ευρώ", true},
        AmountCase{"groups in the wrong place", "12.34,00", true}));

} // namespace

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

TEST_F(BadInputTest, aSumThatLeavesTheRangeChangesNothing)
{
    addMovement(incomeOf(today, cents(90'000'000'000'000'000)));
    start();
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("900000000000000"));
    boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("ποσό"))));
    user().click(user().command(insert));
    EXPECT_TRUE(boxes.allSeen());
    EXPECT_EQ(entry(), QStringLiteral("900.000.000.000.000,00 | 0 | 0 | Α | 100 Λιανική"));
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), QStringLiteral("1"));
    EXPECT_EQ(cashDays(), CashDayLines{"20240315 90000000000000000 0 90000000000000000"});
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
    boxes.expect(okCancel(QMessageBox::Question, QStringLiteral("Μεταβολή στοιχείων"),
        QStringLiteral("Να γίνει η μεταβολή των στοιχείων;"), QMessageBox::Ok));
    user().click(user().command(modify));
    EXPECT_EQ(stored("SELECT perigrafh FROM kinhseis"), nasty);
}

TEST_F(BadInputTest, aBookThatCannotBeWrittenSaysSoAndKeepsTheEntry)
{
    start();
    typeMovement(QStringLiteral("100"), QStringLiteral("α"), QStringLiteral("5"));
    book.execute("CREATE TRIGGER refuse BEFORE INSERT ON tameio BEGIN SELECT RAISE(ABORT, 'disk on fire'); END");
    boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("disk on fire"))));
    user().click(user().command(insert));
    EXPECT_TRUE(boxes.allSeen());
    EXPECT_EQ(entry(), QStringLiteral("5,00 | 0 | 0 | Α | 100 Λιανική"));
    EXPECT_EQ(stored("SELECT count(*) FROM kinhseis"), QStringLiteral("0")) << "the movement went with its day";
}

} // namespace lorvan::test
