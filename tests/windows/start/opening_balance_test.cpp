#include "start/fr_ervthsh_update.h"

#include "support/temporary_book.h"
#include "windows/box_script.h"
#include "windows/driver.h"

#include <QTest>

namespace lorvan::test {
namespace {

class OpeningBalanceTest : public testing::Test {
protected:
    enum Field { Date, Amount };

    OpeningBalanceTest()
        : window(fixedClock())
        , user(window)
    {
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void give(const QString& date, const QString& amount) const
    {
        user.enter(Date, QString());
        user.press(Qt::Key_Delete);
        user.paste(date);
        user.enter(Amount, QString());
        user.press(Qt::Key_Delete);
        user.paste(amount);
    }
    void confirm() const { user.click(user.find(QStringLiteral("Command1"))); }

    BoxScript boxes;
    FR_ErvthshUpdate window;
    Driver user;
};

const QString attention = QStringLiteral("Προσοχή");

ExpectedBox question(QMessageBox::StandardButton answer)
{
    return {QMessageBox::Question, attention,
        QStringLiteral("Θα ενημερωθούν τα υπόλοιπα ταμείου με το παραπάνω ποσό. Να συνεχίσω;"),
        QMessageBox::Yes | QMessageBox::No, answer};
}

struct TypedCase {
    const char* date;
    const char* shownDate;
    const char* amount;
    const char* shownAmount;
};

struct RefusedCase {
    const char* date;
    const char* amount;
    bool dateIsRefused;
};

} // namespace

TEST_F(OpeningBalanceTest, fieldsMapWhatIsTyped)
{
    for (const TypedCase& each : {TypedCase{"5.12.2005", "05-12-2005", "1500.50", "1500,50"},
             TypedCase{"31/2/2005", "31-2-2005", "-1α5", "-1,5"}}) {
        user.enter(Date, QString::fromUtf8(each.date));
        user.press(Qt::Key_Return);
        EXPECT_EQ(user.field(Date).text(), QString::fromUtf8(each.shownDate)) << each.date;
        EXPECT_EQ(user.focusName(), QStringLiteral("Text1(1)"));
        user.type(QString::fromUtf8(each.amount));
        user.press(Qt::Key_Return);
        EXPECT_EQ(user.field(Amount).text(), QString::fromUtf8(each.shownAmount)) << each.amount;
        EXPECT_EQ(user.focusName(), QStringLiteral("Command1"));
    }
}

TEST_F(OpeningBalanceTest, whatCannotBeReadIsRefused)
{
    for (const RefusedCase& each : {RefusedCase{"31-02-2005", "1", true}, RefusedCase{"", "1", true},
             RefusedCase{"5", "1", true}, RefusedCase{"05-12-2005", "1,2,3", false},
             RefusedCase{"05-12-2005", "922337203685477,5808", false}, RefusedCase{"05-12-2005", "5-", false}}) {
        give(QString::fromUtf8(each.date), QString::fromUtf8(each.amount));
        boxes.expect(each.dateIsRefused
                ? stop(QStringLiteral("Δώσε σωστά την ημερομηνία"),
                    QStringLiteral("Προσοχή στην ημερομηνία Πρέπει να δωθεί π.χ 05-12-2005"))
                : stop(
                    attention, QStringLiteral("Εισάγετε το ποσό που έχετε υπόλοιπο ταμείου τη παραπάνω ημερομηνία")));
        confirm();
        EXPECT_TRUE(boxes.allSeen()) << each.date << ' ' << each.amount;
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(user.field(Date).text(), QString::fromUtf8(each.date));
        EXPECT_EQ(user.field(Amount).text(), QString::fromUtf8(each.amount));
    }
}

TEST_F(OpeningBalanceTest, onlyYesClosesIt)
{
    give(QStringLiteral("5-12-2005"), QStringLiteral("1500,50"));
    window.close();
    user.press(Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    boxes.expect(question(QMessageBox::No));
    confirm();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(user.field(Date).text(), QStringLiteral("05-12-2005"));
    EXPECT_EQ(user.field(Amount).text(), QStringLiteral("1500,50"));

    boxes.expect(question(QMessageBox::Yes));
    confirm();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.answer().day, QDate(2005, 12, 5));
    EXPECT_EQ(window.answer().amount, cents(150050));
}

} // namespace lorvan::test
