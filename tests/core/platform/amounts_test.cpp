#include "platform/amount_text.h"
#include "support/printing.h"

#include <gtest/gtest.h>

#include <limits>

namespace lorvan {
namespace {

constexpr auto greatest = std::numeric_limits<std::int64_t>::max();
constexpr auto least = std::numeric_limits<std::int64_t>::min();

Currency units(std::int64_t count)
{
    return Currency::fromTenThousandths(count);
}

} // namespace

TEST(Currency, sumsThatLeaveTheRangeThrowAndChangeNothing)
{
    const Currency top = units(greatest);
    const Currency bottom = units(least);
    EXPECT_EQ(top - units(1) + units(1), top);
    EXPECT_EQ(bottom + top, units(-1));
    EXPECT_THROW(top + units(1), CurrencyOverflow);
    EXPECT_THROW(bottom - units(1), CurrencyOverflow);
    EXPECT_THROW(-bottom, CurrencyOverflow);
    EXPECT_THROW(Currency::fromCents(greatest / 100 + 1), CurrencyOverflow);

    Currency kept = top;
    EXPECT_THROW(kept += units(1), CurrencyOverflow);
    EXPECT_EQ(kept, top);
}

TEST(Currency, roundsHalfACentAwayFromZero)
{
    const struct {
        std::int64_t exact, rounded;
    } cases[] = {{49, 0}, {50, 100}, {149, 100}, {150, 200}, {-49, 0}, {-50, -100}, {-149, -100}, {-150, -200}};
    for (const auto& [exact, rounded] : cases)
        EXPECT_EQ(units(exact).roundedToCents(), units(rounded)) << exact;
}

TEST(AmountText, readsGreekNumbersAndRefusesEverythingElse)
{
    using Outcome = AmountReading::Outcome;
    const struct {
        const char* text;
        Outcome outcome;
        std::int64_t units;
    } cases[] = {
        {"1.234,56", Outcome::Amount, 12'345'600}, {" 1234,5 ", Outcome::Amount, 12'345'000},
        {"1.234.567", Outcome::Amount, 12'345'670'000}, {"0012", Outcome::Amount, 120'000},
        {",5", Outcome::Amount, 5'000}, {"5,", Outcome::Amount, 50'000}, {"+3", Outcome::Amount, 30'000},
        {"-0,00", Outcome::Amount, 0}, {"-7,25", Outcome::Amount, -72'500}, {"0,00004", Outcome::Amount, 0},
        {"0,00005", Outcome::Amount, 1}, {"-0,00005", Outcome::Amount, -1},
        {"922337203685477,5807", Outcome::Amount, greatest}, {"-922337203685477,5808", Outcome::Amount, least},
        {"922337203685477,58074", Outcome::Amount, greatest}, {"922337203685477,5808", Outcome::OutOfRange, 0},
        {"922337203685477,58075", Outcome::OutOfRange, 0}, {"-922337203685477,5809", Outcome::OutOfRange, 0},
        {"99999999999999999999999999", Outcome::OutOfRange, 0}, {"", Outcome::NotANumber, 0},
        {" ", Outcome::NotANumber, 0}, {",", Outcome::NotANumber, 0}, {"-", Outcome::NotANumber, 0},
        {"1,234,5", Outcome::NotANumber, 0}, {"1.5", Outcome::NotANumber, 0}, {"1234.567", Outcome::NotANumber, 0},
        {"1.23.456", Outcome::NotANumber, 0}, {".123", Outcome::NotANumber, 0}, {"1,2.345", Outcome::NotANumber, 0},
        {"--1", Outcome::NotANumber, 0}, {"1 000", Outcome::NotANumber, 0}, {"12a", Outcome::NotANumber, 0},
        {"1e3", Outcome::NotANumber, 0}, {"٣", Outcome::NotANumber, 0}, // a digit of another script
    };
    for (const auto& expected : cases) {
        const AmountReading read = readAmount(QString::fromUtf8(expected.text));
        EXPECT_EQ(read.outcome, expected.outcome) << expected.text;
        EXPECT_EQ(read.amount, units(expected.units)) << expected.text;
    }
}

TEST(AmountText, roundsOnceAtTheWantedPrecision)
{
    const struct {
        const char* text;
        std::int64_t units;
    } cases[] = {{"1,005", 10'100}, {"1,0049", 10'000}, {"1,00499", 10'000}, {"-1,005", -10'100}, {"0,995", 10'000}};
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(readAmount(QString::fromUtf8(text), Precision::Cents).amount, units(expected)) << text;
}

TEST(AmountText, writesTheAmountFormat)
{
    const struct {
        std::int64_t units;
        const char *text, *fieldText;
    } cases[] = {
        {0, "0,00", "0"},
        {49, "0,00", "0,00"},
        {-49, "0,00", "0,00"},
        {50, "0,01", "0,01"},
        {-50, "-0,01", "-0,01"},
        {100'000, "10,00", "10,00"},
        {9'999'950, "1.000,00", "1.000,00"},
        {12'345'678'900, "1.234.567,89", "1.234.567,89"},
        {-1'234'567, "-123,46", "-123,46"},
        {greatest, "922.337.203.685.477,58", "922.337.203.685.477,58"},
        {least, "-922.337.203.685.477,58", "-922.337.203.685.477,58"},
    };
    for (const auto& expected : cases) {
        EXPECT_EQ(amountText(units(expected.units)), QString::fromUtf8(expected.text));
        EXPECT_EQ(amountOrZeroText(units(expected.units)), QString::fromUtf8(expected.fieldText));
    }
}

} // namespace lorvan
