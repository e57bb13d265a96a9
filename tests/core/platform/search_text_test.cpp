#include "platform/search_text.h"

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

} // namespace lorvan::test
