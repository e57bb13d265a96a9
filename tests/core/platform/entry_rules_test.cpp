#include "platform/entry_rules.h"
#include "support/printing.h"

#include <gtest/gtest.h>

namespace lorvan {

TEST(TypingRules, turnWhatIsTypedIntoWhatTheFieldTakes)
{
    const struct {
        TypingRule rule;
        const char *typed, *shown;
    } cases[] = {
        {TypingRule::Date, "12.03/2005", "12-03-2005"},
        {TypingRule::Date, "1 2,3", "1-2,3"},
        {TypingRule::Date, "!\"#$%&'()*+-", "------------"},
        {TypingRule::Date, "1a:;αΩ@[~2", "12"},
        {TypingRule::Amount, "1.234.5", "1,234,5"},
        {TypingRule::Amount, "-12 €α", ",12,,,"},
        {TypingRule::OpeningDate, "5.12.2005", "5-12-2005"},
        {TypingRule::OpeningDate, "5a€", "5-€"},
        {TypingRule::OpeningAmount, "1500.50", "1500,50"},
        {TypingRule::OpeningAmount, "-1,5+x€", "-1,5,,€"},
        {TypingRule::Capitals, "άλφα ΐ ςß1'", "ΆΛΦΑ ΐ Σß1'"},
        {TypingRule::Any, "άλφα.", "άλφα."},
    };
    for (const auto& [rule, typed, shown] : cases)
        EXPECT_EQ(typedText(rule, QString::fromUtf8(typed)), QString::fromUtf8(shown));
}

TEST(CodeChooser, readsTheNumberBeforeTheFirstBlank)
{
    using Kind = ChooserReading::Kind;
    const std::optional<qint32> none;
    const struct {
        const char* text;
        Kind kind;
        std::optional<qint32> code;
    } cases[] = {
        {"", Kind::Empty, none},
        {"   ", Kind::Empty, none},
        {"100", Kind::Number, 100},
        {" 100 Λιανική 5", Kind::Number, 100},
        {"0", Kind::Number, 0},
        {"-5", Kind::Number, -5},
        {"2147483647", Kind::Number, 2147483647},
        {"-2147483648", Kind::Number, std::numeric_limits<qint32>::min()},
        {"2147483648", Kind::Number, none},
        {"99999999999999999999", Kind::Number, none},
        {"5,5", Kind::Number, none},
        {"5,0", Kind::Number, 5},
        {"Λιανική", Kind::NotANumber, none},
        {"5α", Kind::NotANumber, none},
        {"α 5", Kind::NotANumber, none},
        {"1,2,3", Kind::NotANumber, none},
    };
    for (const auto& [text, kind, code] : cases) {
        const ChooserReading reading = readChooser(QString::fromUtf8(text));
        EXPECT_EQ(reading.kind, kind) << text;
        EXPECT_EQ(reading.code, code) << text;
    }
}

} // namespace lorvan
