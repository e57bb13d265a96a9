#include "search/search_query.h"

#include "search/search_texts.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

const QDate today(2026, 11, 23);

/// Each term by its meaning, "words" in front of it if these are searched too, or the words alone in brackets; what is
/// not understood after "?".
QString readingOf(const QString& typed)
{
    const SearchQuery query = readSearch(typed, today);
    QStringList parts;
    for (const SearchTerm& term : query.terms) {
        QStringList words;
        for (const std::u16string& word : term.words)
            words += QString::fromStdU16String(word);
        parts += term.meaningText + (words.isEmpty() ? QString() : u'[' + words.join(u' ') + u']');
    }
    for (const QString& text : query.notUnderstood)
        parts += u'?' + text;
    return parts.join(" | ");
}

TEST(SearchQueryTest, readsWhatIsTypedAsConditions)
{
    const std::pair<const char*, const char*> table[] = {
        {"", ""},
        {"  ΔΕΗ  Λογαριασμός ", "[δεη] | [λογαριασμοσ]"},
        {"\"δύο  λέξεις\" \"214,67\" «3-11»", "[δυο  λεξεισ] | [214,67] | [3-11]"},
        {"α\"β γ", "[α] | [β γ]"},
        {"\"\" \" ", ""},
        {"Ο'ΝΗΛ '; DROP", "[ο'νηλ] | [';] | [drop]"},
        {"214,67", "ποσό 214,67[214,67]"},
        {"1.234 30€ -5", "ποσό 1.234,00[1.234] | ποσό 30,00[30€] | ποσό -5,00[-5]"},
        {"1,2345", "ποσό 1,2345[1,2345]"},
        {">500 <=7,5 < 3 ≥2", "ποσό πάνω από 500,00 | ποσό έως 7,50 | ποσό κάτω από 3,00 | ποσό από 2,00 και πάνω"},
        {"100..200 200..100 100.. ..5",
            "ποσό από 100,00 έως 200,00 | ποσό από 100,00 έως 200,00 | ποσό από 100,00 και πάνω | ποσό έως 5,00"},
        {"3-11", "ημέρα 03-11-2026[3-11]"},
        {"3/11/25 31.12.2025", "ημέρα 03-11-2025[3/11/25] | ημέρα 31-12-2025[31.12.2025]"},
        {"40-300 31-11", "ποσό από 40,00 έως 300,00[40-300] | ποσό από 11,00 έως 31,00[31-11]"},
        {"3,11 1.123", "ποσό 3,11[3,11] | ποσό 1.123,00[1.123]"},
        {"11/2025 2/2024", "μήνας 11/2025[11/2025] | μήνας 02/2024[2/2024]"},
        {"13/2025 32/1 1/2/3/4", "[13/2025] | [32/1] | [1/2/3/4]"},
        {"3/2025..1/2025 3-11..", "από 01/2025 έως 03/2025 | από 03-11-2026"},
        {"κωδ 205", "κωδικός 205[κωδ 205]"},
        {"ΚΩΔΙΚΟΣ 205 κωδ. 7 κωδ", "κωδικός 205[κωδικοσ 205] | κωδικός 7[κωδ. 7] | [κωδ]"},
        {"κωδ \"205\" κωδ 9999999999", "[κωδ] | [205] | [κωδ] | ποσό 9.999.999.999,00[9999999999]"},
        {"έξοδα ΕΠΙΤΑΓΗ", "κινήσεις εξόδων[εξοδα] | κινήσεις με επιταγή[επιταγη]"},
        {"έσοδο επιταγές εσ", "κινήσεις εσόδων[εσοδο] | κινήσεις με επιταγή[επιταγεσ] | [εσ]"},
        {">abc ΝΕΡΟ .. 1..x >", "[νερο] | ?>abc | ?.. | ?1..x | ?>"},
        {"ΔΕΗ.. 99999999999999999999", "[δεη..] | [99999999999999999999]"},
        {">99999999999999999999 \u0301", "?>99999999999999999999 | ?\u0301"},
    };
    for (const auto& [typed, expected] : table)
        EXPECT_EQ(readingOf(typed).toStdString(), expected) << typed;
    EXPECT_EQ(readSearch(QString("α ").repeated(500), today).terms.size(), SearchQuery::mostTerms);
    const SearchQuery tooLong = readSearch(QString(1001, u'α'), today);
    EXPECT_TRUE(tooLong.isEmpty());
    EXPECT_EQ(notUnderstoodText(tooLong), "Το κείμενο είναι μεγαλύτερο από 1.000 χαρακτήρες και δεν αναζητήθηκε");
    EXPECT_EQ(readSearch(QString(10'000, u'"'), today).terms.size(), 0U);
}

} // namespace
} // namespace lorvan::test
