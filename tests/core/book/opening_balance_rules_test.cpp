#include "book/opening_balance_rules.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(OpeningBalance, isReadFromTheTwoAnswers)
{
    const QString day = QStringLiteral("5-12-2005");
    const struct {
        QString date, amount;
        std::optional<Currency> balance;
        std::optional<OpeningBalanceFault> fault;
    } cases[] = {
        {day, QStringLiteral("1500,50"), cents(150'050), {}},
        {day, QStringLiteral("-1,5"), cents(-150), {}},
        {day, QStringLiteral("  "), Currency(), {}},
        {QStringLiteral("31-02-2005"), QStringLiteral("x"), {}, OpeningBalanceFault::DateIsInvalid},
        {QString(), QString(), {}, OpeningBalanceFault::DateIsInvalid},
        {day, QStringLiteral("1,2,3"), {}, OpeningBalanceFault::AmountIsNoNumber},
        {day, QStringLiteral("1000000000000000"), {}, OpeningBalanceFault::AmountIsNoNumber},
    };
    for (const auto& typed : cases) {
        const auto read = readOpeningBalance(typed.date, typed.amount, fixedClock().today());
        const auto* const opening = std::get_if<OpeningBalance>(&read);
        EXPECT_EQ(opening ? std::optional(opening->amount) : std::nullopt, typed.balance) << typed.amount.toStdString();
        if (opening)
            EXPECT_EQ(opening->day, QDate(2005, 12, 5));
        else
            EXPECT_EQ(std::get<OpeningBalanceFault>(read), typed.fault);
    }
}

} // namespace lorvan::test
