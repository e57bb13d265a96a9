#include "platform/authority.h"

#include "cashbook/cash_book.h"
#include "cashbook/cash_closing.h"
#include "cashbook/day_seal.h"
#include "codes/code_maintenance.h"
#include "codes/group_maintenance.h"
#include "platform/engine/transaction.h"
#include "proof/trail_acceptance.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

#include <functional>

namespace lorvan::test {
namespace {

const QDate monday(2024, 3, 11);

} // namespace

TEST(Authority, isAskedOnEveryRoad)
{
    const TemporaryBook temporary;
    Book book = temporary.open();
    Connection all = book.openBoth();
    const Authority nobody = by();
    const Authority closer = by({.closeCash = true});
    EXPECT_THROW((void)closeDay(all, by({true, false, true}), monday), NotPermitted);
    EXPECT_THROW(closeOpenDays(all, nobody, [] { return true; }), NotPermitted);
    EXPECT_THROW((void)sealOlderDays(all, nobody, 1), NotPermitted);
    EXPECT_THROW((void)acceptFaults(all, closer), NotPermitted);
    EXPECT_TRUE(closeDay(all, closer, monday));
    EXPECT_EQ(std::get<MovementRefusal>(CashBook(book, by({false, true, true})).insert(incomeOf(monday, cents(1)))),
        MovementRefusal::DayIsClosed);
    EXPECT_TRUE(std::holds_alternative<ChangedDay>(
        CashBook(book, by({.modifyCash = true})).insert(incomeOf(monday, cents(1)))));
    const std::function<void(const Authority&)> needCodes[] = {
        [&](const Authority& who) {
            (void)insertCode(all, who, {"1", "x", {}});
        },
        [&](const Authority& who) {
            (void)modifyCode(all, who, 1, {"1", "x", {}}, 0);
        },
        [&](const Authority& who) { (void)removeCode(all, who, 1); },
        [&](const Authority& who) { (void)addGroup(all, who, "x"); },
        [&](const Authority& who) { (void)renameGroup(all, who, 1, "x"); },
        [&](const Authority& who) { (void)removeGroup(all, who, 1); },
    };
    for (const auto& change : needCodes) {
        EXPECT_THROW(change(by({true, true, false})), NotPermitted);
        EXPECT_NO_THROW(change(by({.modifyCodes = true})));
    }
    Transaction reading(all, Transaction::View::Steady);
    all.execute("UPDATE omades SET perigrafh='x'");
    EXPECT_THROW(reading.commit(), std::logic_error);
}

} // namespace lorvan::test
