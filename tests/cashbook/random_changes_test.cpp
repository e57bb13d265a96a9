#include "support/random_changes.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

#include <string>

namespace lorvan::test {

TEST(CashBookProperty, everyCashDayEqualsTheModelAfterEachOfTwoThousandRandomChanges)
{
    const TemporaryBook book;
    Book open = book.open();
    open.main().execute("PRAGMA synchronous = OFF");
    CashBook cashBook(open, {});
    BookModel model;
    RandomChanges changes(20240315);
    for (int i = 0; i < 2000; ++i) {
        const ModelChange change = changes.next(model.movements());
        const ChangeOutcome outcome = makeChange(cashBook, change);
        ASSERT_TRUE(std::holds_alternative<DayView>(outcome)) << "change " << i;
        model.apply(change);
        ASSERT_EQ(storedCashDays(open.main()), model.cashDays()) << "change " << i;
        ASSERT_EQ(storedMovements(open.main()), model.movements()) << "change " << i;
    }
}

} // namespace lorvan::test
