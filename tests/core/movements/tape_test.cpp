#include "movements/amount_tape.h"

#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(AmountTape, addsItsLinesOrSaysWhichIsNoAmount)
{
    const struct {
        const char* text;
        std::int64_t cents;
        const char* refusal;
    } cases[] = {{"", 0, ""}, {"1.234,56\n\n+10\n-0,56\n", 124400, ""},
        {"- 5\n−1,5", -650, "Το άθροισμα είναι αρνητικό και δεν μπαίνει σε ποσό."}, {"0,005\n0,005", 2, ""},
        {"5\n1,2,3\nx", 500, "Η γραμμή 2 δεν είναι ποσό."}, {"--1", 0, "Η γραμμή 1 δεν είναι ποσό."},
        {"-", 0, "Η γραμμή 1 δεν είναι ποσό."},
        {"1\n999999999999999999999", 100, "Το ποσό της γραμμής 2 είναι πολύ μεγάλο."},
        {"922337203685477,58\n0,01", 0, "Το άθροισμα είναι πολύ μεγάλο."},
        {"922337203685477,58\n-1\n1", 92233720368547758, ""}};
    for (const auto& each : cases) {
        const Tape tape = readTape(QString::fromUtf8(each.text));
        EXPECT_EQ(tapeRefusal(tape), each.refusal) << each.text;
        EXPECT_EQ(tape.sum, cents(each.cents)) << each.text;
        EXPECT_EQ(tape.isSum(), each.cents < 0 || QString(each.refusal).isEmpty()) << each.text;
    }
}

} // namespace lorvan::test
