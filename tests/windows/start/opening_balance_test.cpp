#include "start/fr_ervthsh_update.h"

#include "support/temporary_book.h"
#include "windows/box_script.h"

namespace lorvan::test {
namespace {

class OpeningBalanceTest : public testing::Test {
protected:
    enum Field { Date, Amount };

    void SetUp() override { showActive(window); }
    void confirm() const { user.click(user.find("Command1")); }
    void expectFields(const QString& date, const QString& amount) const
    {
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(user.field(Date).text(), date);
        EXPECT_EQ(user.field(Amount).text(), amount);
    }
    void expectQuestion(QMessageBox::StandardButton answer)
    {
        boxes.expect(yesNo(QMessageBox::Question, "Προσοχή",
            "Θα ενημερωθούν τα υπόλοιπα ταμείου με το παραπάνω ποσό. Να συνεχίσω;", answer));
    }

    BoxScript boxes;
    FR_ErvthshUpdate window{fixedClock()};
    Driver user{window};
};

} // namespace

TEST_F(OpeningBalanceTest, onlyYesClosesIt)
{
    user.enter(Date, "5.12.2005\n");
    EXPECT_EQ(user.focusName(), "Text1(1)");
    user.type("-1500.50\n");
    EXPECT_EQ(user.focusName(), "Command1");
    window.close();
    user.press(Qt::Key_Escape);
    expectFields("05-12-2005", "-1500,50");
    expectQuestion(QMessageBox::No);
    confirm();
    expectFields("05-12-2005", "-1500,50");

    expectQuestion(QMessageBox::Yes);
    confirm();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.answer().day, QDate(2005, 12, 5));
    EXPECT_EQ(window.answer().amount, cents(-150050));
}

TEST_F(OpeningBalanceTest, whatCannotBeReadIsRefused)
{
    const ExpectedBox badDate =
        stop("Δώσε σωστά την ημερομηνία", "Προσοχή στην ημερομηνία Πρέπει να δωθεί π.χ 05-12-2005");
    const ExpectedBox badAmount = stop("Προσοχή", "Εισάγετε το ποσό που έχετε υπόλοιπο ταμείου τη παραπάνω ημερομηνία");
    for (const auto& [date, amount, box] :
        {std::tuple("31-02-2005", "1", badDate), std::tuple("05-12-2005", "5-", badAmount)}) {
        user.enter(Date, "");
        user.paste(date);
        user.enter(Amount, "");
        user.paste(amount);
        boxes.expect(box);
        confirm();
        expectFields(date, amount);
    }
}

} // namespace lorvan::test
