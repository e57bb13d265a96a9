#include "platform/search_text.h"

#include "platform/row_filter.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(SearchText, beginsAWordWhateverItsCaseAndAccents)
{
    const QString text = QStringLiteral("ΛΟΓ/ΣΜΟΣ ΎΔΡΕΥΣΗΣ-205");
    for (const char* const found : {"λογ", "σμοσ", "σμος", "υδρευσης", "205", "ύδ"})
        EXPECT_TRUE(SearchText(QString::fromUtf8(found)).beginsWordIn(text)) << found;
    for (const char* const absent : {"ογ", "μος", "05", ""})
        EXPECT_FALSE(SearchText(QString::fromUtf8(absent)).beginsWordIn(text)) << absent;
}

TEST(RowFilter, showsTheRowsWithAWordThatBeginsSoOrElseThoseThatContainIt)
{
    const QStringList rows{"  100 ΠΩΛΉΣΕΙΣ", "  110 Αγορές", "  211 ΠΩΛΗΤΕΣ"};
    using Shown = std::vector<bool>;
    const std::pair<const char*, Shown> cases[] = {{"", {true, true, true}}, {" πωλη ", {true, false, true}},
        {"1", {true, true, false}}, {"11", {false, true, false}}, {"ορες", {false, true, false}},
        {"χ", {false, false, false}}};
    for (const auto& [text, shown] : cases)
        EXPECT_EQ(rowsThatMatch(rows, QString::fromUtf8(text)), shown) << text;
}

} // namespace lorvan::test
