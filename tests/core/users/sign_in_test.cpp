#include "support/temporary_book.h"
#include "users/sign_in.h"
#include "users/user_accounts.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(SignIn, findsTheFirstUserOfThatNameAndPassword)
{
    const TemporaryBook book;
    Connection auxiliary = book.openAuxiliary();
    addUser(auxiliary, QStringLiteral(" Μαρία "), QStringLiteral(" κλειδί "), {.modifyCash = true});
    addUser(auxiliary, QStringLiteral("nikos"), QStringLiteral("abc"), {.closeCash = true});
    addUser(auxiliary, QStringLiteral("Nikos"), QStringLiteral("ABC"), {.modifyCodes = true});
    addUser(auxiliary, QStringLiteral("nikos"), QStringLiteral("def"), {.modifyCodes = true});
    addUser(auxiliary, QStringLiteral("O'Neil"), QStringLiteral("\"%_"), {});
    const QString injection = QStringLiteral("' or '1'='1");
    const struct {
        QString name, password;
        const char* user; ///< name and password as stored, with the rights; empty when nobody is found
    } cases[] = {
        {QStringLiteral("Μαρία"), QStringLiteral("κλειδί"), "Μαρία/κλειδί/100"},
        {QStringLiteral("ΜΑΡΊΑ"), QStringLiteral("ΚΛΕΙΔΊ"), "Μαρία/κλειδί/100"},
        {QStringLiteral("Μαρια"), QStringLiteral("κλειδί"), ""},
        {QStringLiteral("Μαρία "), QStringLiteral("κλειδί"), ""},
        {QStringLiteral("Μαρία"), QStringLiteral("κλειδι"), ""},
        {QStringLiteral("Μαρία"), QString(), ""},
        {QStringLiteral("NIKOS"), QStringLiteral("Abc"), "nikos/abc/010"},
        {QStringLiteral("nikos"), QStringLiteral("DEF"), "nikos/def/001"},
        {QStringLiteral("nikos"), QStringLiteral("κλειδί"), ""},
        {QStringLiteral("o'neil"), QStringLiteral("\"%_"), "O'Neil/\"%_/000"},
        {QStringLiteral("O%"), QStringLiteral("%"), ""},
        {injection, injection, ""},
        {QStringLiteral("nikos"), injection, ""},
        {QString(), QString(), ""},
        {QStringLiteral("wardenly"), QStringLiteral("73816"), ""},
    };
    for (const auto& attempt : cases) {
        const auto session = signIn(auxiliary, attempt.name, attempt.password);
        const auto mark = [](bool right) { return QString::number(int(right)); };
        const QString found = session ? session->user + u'/' + session->password + u'/'
                + mark(session->rights.modifyCash) + mark(session->rights.closeCash) + mark(session->rights.modifyCodes)
                                      : QString();
        EXPECT_EQ(found, QString::fromUtf8(attempt.user)) << attempt.name.toStdString();
    }
}

TEST(SignIn, knowsTheBuiltInAdministrator)
{
    EXPECT_TRUE(isBuiltInAdministrator(QStringLiteral("wardenly"), QStringLiteral("73816")));
    EXPECT_TRUE(isBuiltInAdministrator(QStringLiteral("WardenLY"), QStringLiteral("73816")));
    EXPECT_FALSE(isBuiltInAdministrator(QStringLiteral("wardenly "), QStringLiteral("73816")));
    EXPECT_FALSE(isBuiltInAdministrator(QStringLiteral("wardenly"), QStringLiteral("73816 ")));
    EXPECT_FALSE(isBuiltInAdministrator(QStringLiteral("wardenly"), QString()));
}

} // namespace lorvan::test
