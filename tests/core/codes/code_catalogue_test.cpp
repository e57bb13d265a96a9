#include "codes/code_catalogue.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(CodeCatalogue, listsCodesByNumberAndFindsTheFirstActiveOne)
{
    const TemporaryBook book;
    book.addGroup(2, QStringLiteral("Έξοδα"));
    book.addCode(50, QStringLiteral("Παλιός"), true, 0, false);
    book.addCode(50, QStringLiteral("Νέος"), true, 2);
    book.addCode(50, QStringLiteral("Δεύτερος"), false);
    book.addCode(7, QStringLiteral("Ανενεργός"), false, 0, false);
    Connection main = book.openMain();

    const auto numbers = [&main](CodeSelection selection) {
        QStringList list;
        for (const MovementCode& code : listCodes(main, selection))
            list += QString::number(code.code) + code.description.first(1);
        return list.join(u' ');
    };
    EXPECT_EQ(numbers(CodeSelection::Active), QStringLiteral("50Ν 50Δ 100Λ 200Π"));
    EXPECT_EQ(numbers(CodeSelection::All), QStringLiteral("7Α 50Π 50Ν 50Δ 100Λ 200Π"));

    const auto found = findCode(main, 50, CodeSelection::Active);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->description, QStringLiteral("Νέος"));
    EXPECT_EQ(found->listLine, QStringLiteral("   50 Νέος"));
    EXPECT_EQ(found->group, 2);
    EXPECT_TRUE(found->income);
    EXPECT_EQ(findCode(main, 50, CodeSelection::All)->description, QStringLiteral("Παλιός"));
    EXPECT_FALSE(findCode(main, 7, CodeSelection::Active));
    EXPECT_TRUE(findCode(main, 7, CodeSelection::All));
    EXPECT_FALSE(findCode(main, 0, CodeSelection::All));
    EXPECT_EQ(listGroups(main).back().name, QStringLiteral("Έξοδα"));
    EXPECT_EQ(codeListLine(QStringLiteral("1234567"), QStringLiteral(" α ")), QStringLiteral("34567  α "));
}

} // namespace lorvan::test
