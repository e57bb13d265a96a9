#include "platform/engine/greek_collation.h"
#include "platform/padding.h"
#include "platform/windows1253.h"
#include "support/printing.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lorvan {

TEST(Windows1253, keepsEveryCharacterOfTheCodePageAtItsByte)
{
    const struct {
        const char* text;
        const char* bytes;
    } cases[] = {
        {"Ab1 ", "Ab1 "},
        {"ΑΩαωςΐΰ", "\xC1\xD9\xE1\xF9\xF2\xC0\xE0"},
        {"ΆΈΉΊΌΎΏΪΫ", "\xA2\xB8\xB9\xBA\xBC\xBE\xBF\xDA\xDB"},
        {"άέήίόύώϊϋ", "\xDC\xDD\xDE\xDF\xFC\xFD\xFE\xFA\xFB"},
        {"€’΅§«»―°΄·½", "\x80\x92\xA1\xA7\xAB\xBB\xAF\xB0\xB4\xB7\xBD"},
    };
    for (const auto& [text, bytes] : cases) {
        EXPECT_EQ(toWindows1253(QString::fromUtf8(text)).toStdString(), bytes);
        EXPECT_EQ(fromWindows1253(bytes), QString::fromUtf8(text));
        EXPECT_TRUE(fitsWindows1253(QString::fromUtf8(text)));
    }
}

TEST(Windows1253, aCharacterThatItLacksIsOneQuestionMark)
{
    EXPECT_EQ(toWindows1253(QStringLiteral("é!中😀")).toStdString(), "?!??");
    EXPECT_FALSE(fitsWindows1253(QStringLiteral("αé")));
    EXPECT_EQ(fromWindows1253("\xD2\xFF"), QStringLiteral("\uFFFD\uFFFD"));
    EXPECT_FALSE(fitsWindows1253(QStringLiteral("\uFFFD")));
}

TEST(GreekCollation, ignoresLetterCaseAloneWhenNamesAreCompared)
{
    const GreekCollation greek;
    const struct {
        const char *left, *right;
        bool same;
    } cases[] = {
        {"μαρία", "ΜΑΡΊΑ", true},
        {"Νίκος", "ΝΊΚΟΣ", true},
        {"νίκοσ", "νίκος", true},
        {"admin", "ADMIN", true},
        {"Μαρία", "Μαρια", false},
        {"ΐ", "ϊ", false},
        {"νίκος ", "νίκος", false},
        {"ab", "a\u200Bb", false}, // an invisible character
        {"a", "α", false},
    };
    for (const auto& [left, right, same] : cases)
        EXPECT_EQ(greek.compare(QString::fromUtf8(left), QString::fromUtf8(right)) == 0, same) << left;
}

TEST(GreekCollation, ordersNamesAsAGreekIndexDoes)
{
    const QStringList ordered{QStringLiteral("12"), QStringLiteral("αγορά"), QStringLiteral("Άλφα"),
        QStringLiteral("ΒΗΤΑ"), QStringLiteral("γάμα"), QStringLiteral("Ζήτα"), QStringLiteral("ώρα"),
        QStringLiteral("zeta")};
    QStringList names(ordered.rbegin(), ordered.rend());
    const GreekCollation greek;
    std::sort(names.begin(), names.end(), [&](const auto& a, const auto& b) { return greek.compare(a, b) < 0; });
    EXPECT_EQ(names, ordered) << names.join(u' ').toStdString();
}

TEST(Padding, cutsTheFarEnd)
{
    const struct {
        const char* text;
        int width;
        const char *right, *left;
    } cases[] = {
        {"12", 4, "  12", "12  "},
        {"ABCDEFG", 5, "CDEFG", "ABCDE"},
        {"123456", 5, "23456", "12345"},
        {"  άλφα ", 6, "  άλφα", "άλφα  "},
        {"α β", 3, "α β", "α β"},
        {"", 2, "  ", "  "},
    };
    for (const auto& [text, width, right, left] : cases) {
        EXPECT_EQ(rightAligned(QString::fromUtf8(text), width), QString::fromUtf8(right));
        EXPECT_EQ(leftAligned(QString::fromUtf8(text), width), QString::fromUtf8(left));
    }
}

} // namespace lorvan
