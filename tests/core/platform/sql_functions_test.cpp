#include "platform/engine/sql_error.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(SqlFunctions, convertTextsAndFailOnWhatIsNoDateOrNumber)
{
    const TemporaryBook book;
    Connection main = book.openMain();
    const char* const failed = "error";
    const struct {
        const char *expression, *value;
    } cases[] = {
        {"cdate('12-03-2005')", "20050312"},
        {"cdate('31-02-2005')", failed},
        {"cdate('')", failed},
        {"cdate(NULL)", failed},
        {"csng('1.234,56')", "12345600"},
        {"csng('-0,5')", "-5000"},
        {"csng('1,234,5')", failed},
        {"csng('')", failed},
        {"csng('1000000000000000')", failed},
        {"amount_add(5,-7)", "-2"},
        {"amount_add(NULL,3)", "3"},
        {"amount_add(9223372036854775807,0)", "9223372036854775807"},
        {"amount_add(9223372036854775807,1)", failed},
        {"amount_add(-9223372036854775807,-2)", failed},
    };
    for (const auto& [expression, value] : cases) {
        const auto evaluate = [&main, text = std::string("SELECT ") + expression] { return valueOf(main, text); };
        if (value == failed)
            EXPECT_THROW((void)evaluate(), SqlError) << expression;
        else
            EXPECT_EQ(evaluate(), QString::fromUtf8(value)) << expression;
    }
}

TEST(SqlFunctions, theGreekCollationOrdersAndComparesInQueries)
{
    const TemporaryBook book;
    book.addGroup(2, QStringLiteral("έξοδα"));
    book.addGroup(3, QStringLiteral("ΑΓΟΡΕΣ"));
    book.addGroup(4, QStringLiteral("Άλλα"));
    Connection main = book.openMain();
    EXPECT_EQ(
        valueOf(main, "SELECT group_concat(aa, '') FROM (SELECT aa FROM omades ORDER BY perigrafh COLLATE greek)"),
        QStringLiteral("3421"));
    auto found = main.prepare("SELECT aa FROM omades WHERE perigrafh=? COLLATE greek");
    found.bind(QStringLiteral("ΠΩΛΉΣΕΙΣ"));
    EXPECT_TRUE(found.step());
}

} // namespace lorvan::test
