#include "platform/amount_text.h"

#include "platform/date_text.h"
#include "platform/windows1253.h"
#include "support/printing.h"

#include <gtest/gtest.h>
#include <limits>

namespace lorvan::test {
namespace {

constexpr auto greatest = std::numeric_limits<std::int64_t>::max();
constexpr auto least = std::numeric_limits<std::int64_t>::min();

Currency units(std::int64_t count)
{
    return Currency::fromTenThousandths(count);
}

} // namespace

TEST(Currency, sumsThatLeaveTheRangeThrowAndHalfACentIsRoundedAwayFromZero)
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

    const std::pair<std::int64_t, std::int64_t> cases[] = {
        {49, 0}, {50, 100}, {149, 100}, {150, 200}, {-49, 0}, {-50, -100}, {-149, -100}, {-150, -200}};
    for (const auto& [exact, rounded] : cases)
        EXPECT_EQ(units(exact).roundedToCents(), units(rounded)) << exact;
}

TEST(AmountText, readsGreekNumbersAndRefusesEverythingElse)
{
    using Outcome = AmountReading::Outcome;
    const auto read = [](const char* text) { return readAmount(QString::fromUtf8(text)); };
    const std::pair<const char*, std::int64_t> amounts[] = {{"1.234,56", 12'345'600}, {" 1234,5 ", 12'345'000},
        {"1.234.567", 12'345'670'000}, {"0012", 120'000}, {",5", 5'000}, {"5,", 50'000}, {"+3", 30'000}, {"-0,00", 0},
        {"-7,25", -72'500}, {"0,00004", 0}, {"0,00005", 1}, {"-0,00005", -1}, {"922337203685477,5807", greatest},
        {"922337203685477,58074", greatest}, {"-922337203685477,5808", least}};
    for (const auto& [text, amount] : amounts) {
        EXPECT_EQ(read(text).outcome, Outcome::Amount) << text;
        EXPECT_EQ(read(text).amount, units(amount)) << text;
    }
    for (const char* text :
        {"922337203685477,5808", "922337203685477,58075", "-922337203685477,5809", "99999999999999999999999999"})
        EXPECT_EQ(read(text).outcome, Outcome::OutOfRange) << text;
    for (const char* text : {"", " ", ",", "-", "1,234,5", "1.5", "1234.567", "1.23.456", ".123", "1,2.345", "--1",
             "1 000", "12a", "1e3", "٣" /* a digit of another script */})
        EXPECT_EQ(read(text).outcome, Outcome::NotANumber) << text;
    const std::pair<const char*, std::int64_t> inCents[] = {
        {"1,005", 101}, {"1,0049", 100}, {"1,00499", 100}, {"-1,005", -101}, {"0,995", 100}};
    for (const auto& [text, cents] : inCents)
        EXPECT_EQ(readAmount(QString::fromUtf8(text), Precision::Cents).amount, Currency::fromCents(cents)) << text;
}

TEST(AmountText, writesTheAmountFormat)
{
    const struct {
        std::int64_t units;
        const char *text, *fieldText;
    } cases[] = {{0, "0,00", "0"}, {49, "0,00", "0,00"}, {-49, "0,00", "0,00"}, {50, "0,01", "0,01"},
        {-50, "-0,01", "-0,01"}, {100'000, "10,00", "10,00"}, {9'999'950, "1.000,00", "1.000,00"},
        {12'345'678'900, "1.234.567,89", "1.234.567,89"}, {-1'234'567, "-123,46", "-123,46"},
        {greatest, "922.337.203.685.477,58", "922.337.203.685.477,58"},
        {least, "-922.337.203.685.477,58", "-922.337.203.685.477,58"}};
    for (const auto& expected : cases) {
        EXPECT_EQ(amountText(units(expected.units)), expected.text);
        EXPECT_EQ(amountOrZeroText(units(expected.units)), expected.fieldText);
    }
}

TEST(Windows1253, keepsEveryCharacterOfTheCodePageAtItsByte)
{
    const std::pair<const char*, const char*> cases[] = {{"Ab1 ", "Ab1 "}, {"ΑΩαωςΐΰ", "\xC1\xD9\xE1\xF9\xF2\xC0\xE0"},
        {"ΆΈΉΊΌΎΏΪΫ", "\xA2\xB8\xB9\xBA\xBC\xBE\xBF\xDA\xDB"}, {"άέήίόύώϊϋ", "\xDC\xDD\xDE\xDF\xFC\xFD\xFE\xFA\xFB"},
        {"€’΅§«»―°΄·½", "\x80\x92\xA1\xA7\xAB\xBB\xAF\xB0\xB4\xB7\xBD"}};
    for (const auto& [text, bytes] : cases) {
        EXPECT_EQ(toWindows1253(QString::fromUtf8(text)).toStdString(), bytes);
        EXPECT_EQ(fromWindows1253(bytes), text);
        EXPECT_TRUE(fitsWindows1253(QString::fromUtf8(text)));
    }

    EXPECT_EQ(toWindows1253(u"é!中😀").toStdString(), "?!??");
    EXPECT_FALSE(fitsWindows1253(u"αé"));
    EXPECT_EQ(fromWindows1253("\xD2\xFF"), "\uFFFD\uFFFD");
    EXPECT_FALSE(fitsWindows1253(u"\uFFFD"));
}

TEST(DateText, readsTypedAndStoredDatesAndRefusesEverythingElse)
{
    const QDate today(2024, 2, 29);
    const std::pair<const char*, QDate> cases[] = {{"12-03-2005", {2005, 3, 12}}, {" 1-2-2005 ", {2005, 2, 1}},
        {"12/3.2005", {2005, 3, 12}}, {"5,12", {2024, 12, 5}}, {"29/2", {2024, 2, 29}}, {"1-1-00", {2000, 1, 1}},
        {"1-1-29", {2029, 1, 1}}, {"1-1-30", {1930, 1, 1}}, {"1-1-99", {1999, 1, 1}}, {"29-02-2000", {2000, 2, 29}},
        {"1-1-0100", {100, 1, 1}}};
    for (const auto& [text, date] : cases)
        EXPECT_EQ(readDate(QString::fromUtf8(text), today).value_or(QDate()), date) << text;
    for (const char* none :
        {"31-02-2005", "29-02-1900", "32-1-2005", "0-1-2005", "1-13-2005", "2005-03-12", "1-1-5", "1-1-205", "1-1-0099",
            "1-1-12005", "", " ", "20050312", "12", "1-2-2005-3", "1--2005", "-1-2-2005", "12 03 2005", "1-Ιαν-2005"})
        EXPECT_FALSE(readDate(QString::fromUtf8(none), today)) << none;
    EXPECT_FALSE(readDate(u"29-2", QDate(2023, 6, 1))) << "this year has no such day";

    EXPECT_EQ(dateText(QDate()), QString());
    EXPECT_EQ(storedDate(QDate(2005, 3, 2)), 20050302);
    EXPECT_EQ(storedDate(QDate()), 0);
    for (const qint64 noDate : {0LL, -20050302LL, 20050231LL, 20051301LL, 99999999999LL})
        EXPECT_FALSE(dateFromStored(noDate).isValid()) << noDate;
}

} // namespace lorvan::test
