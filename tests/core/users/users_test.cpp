#include "users/administration.h"

#include "cashbook/cash_closing.h"

#include "backup/book_copy.h"
#include "platform/engine/transaction.h"
#include "support/files.h"
#include "support/temporary_book.h"
#include "users/sign_in.h"
#include "users/user_accounts.h"

#include <future>
#include <thread>

namespace lorvan::test {
namespace {

const QString allGone = "0 0 0 0 0 0 0 1 1";

/// How many rows each table has that a deletion empties, and those that it leaves.
QString sizes(const QString& folder)
{
    Connection both = openBoth(folder);
    QStringList sizes;
    for (const std::string table : {"kinhseis", "tameio", "kvdikoi", "omades", "klhsimotameioy", "taken_imports",
             "opening_difference", "codes", "taytothta"})
        sizes += valueOf(both, "SELECT count(*) FROM " + table);
    return sizes.join(u' ');
}

class DeletionTest : public testing::Test {
protected:
    DeletionTest()
    {
        book.addUser("Σοφία", "μυστικό");
        book.close(QDate(2024, 3, 1));
        book.close(QDate(2024, 3, 5));
        book.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<800)"
                     " INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda) SELECT 100, 20240301, 'κίνηση', i"
                     " FROM n; INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (20240301, 1, 0, 1);"
                     " INSERT INTO taken_imports (digest) VALUES ('once');"
                     " INSERT INTO opening_difference VALUES (20240301, 5)");
    }

    [[nodiscard]] CopiedBook deleteAll() const { return deleteAllData(book.files(), testKeys(), byAll()); }
    [[nodiscard]] static QString valueIn(const QString& path, std::string_view sql)
    {
        Connection database = openAt(path);
        return valueOf(database, sql);
    }

    TemporaryBook book;
};

} // namespace

TEST(CloseOpenDays, fillsTheGapsBetweenTheFirstAndTheLast)
{
    const std::pair<std::vector<int>, std::vector<int>> cases[] = {
        {{}, {}},
        {{20240305}, {20240305}},
        {{20240305, 20240301, 20240302}, {20240301, 20240302, 20240303, 20240304, 20240305}},
        {{20231230, 20240102}, {20231230, 20231231, 20240101, 20240102}},
        {{20240228, 20240301}, {20240228, 20240229, 20240301}},
        {{20240301, 20240301, 20240303}, {20240301, 20240301, 20240302, 20240303}},
        {{0, 20240230, 20240303, 20240305, 99999999}, {0, 20240230, 20240303, 20240304, 20240305, 99999999}},
    };
    for (const auto& [closed, then] : cases) {
        const TemporaryBook book;
        Connection auxiliary = book.openAuxiliary();
        for (const int day : closed)
            auxiliary.prepare("INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (?)").bind(day).run();
        closeOpenDays(auxiliary, byAll(), [] { return true; });
        auto days = auxiliary.prepare("SELECT hmeraklhsimatos FROM klhsimotameioy ORDER BY 1");
        std::vector<int> found;
        while (days.step())
            found.push_back(days.number(0));
        EXPECT_EQ(found, then);
    }
}

TEST_F(DeletionTest, copiesTheBookThenEmptiesItButForUsersAndVersion)
{
    const QByteArray main = readFile(book.files().mainDatabase());
    const QByteArray auxiliary = readFile(book.files().auxiliaryDatabase());
    const CopiedBook copy = deleteAll();
    EXPECT_EQ(sizes(book.folder()), allGone);
    EXPECT_EQ(copy.mainDatabase, book.path("lorvan-2024-03-15-120000.mdb"));
    EXPECT_EQ(readFile(book.path("mapcodes-2024-03-15-120000.mdb")), auxiliary);

    book.addMovementRow(incomeOf(QDate(2024, 3, 1), cents(1)));
    EXPECT_EQ(valueIn(book.files().mainDatabase(), "SELECT aa FROM kinhseis"), "801");
    EXPECT_EQ(deleteAll().mainDatabase, book.path("lorvan-2024-03-15-120001.mdb"));
    EXPECT_EQ(readFile(copy.mainDatabase), main) << "no copy overwrites another";
}

TEST_F(DeletionTest, whatAWriterElsewhereIsJustSavingIsCopiedToo)
{
    std::promise<void> writing;
    const auto writer = std::async(std::launch::async, [&] {
        Connection other = book.openMain();
        Transaction change(other, byAll());
        other.execute("INSERT INTO kinhseis (kvdikos) VALUES (100)");
        writing.set_value();
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        change.commit();
    });
    writing.get_future().wait();
    EXPECT_EQ(valueIn(deleteAll().mainDatabase, "SELECT count(*) FROM kinhseis"), "801");
    EXPECT_EQ(sizes(book.folder()), allGone);
}

TEST(SignIn, findsTheFirstUserOfThatNameAndPassword)
{
    const TemporaryBook book;
    Connection auxiliary = book.openAuxiliary();
    addUser(auxiliary, byAll(), " Μαρία ", " κλειδί ", {.modifyCash = true});
    addUser(auxiliary, byAll(), "nikos", "abc", {.closeCash = true});
    addUser(auxiliary, byAll(), "Nikos", "ABC", {.modifyCodes = true});
    addUser(auxiliary, byAll(), "nikos", "def", {.modifyCodes = true});
    addUser(auxiliary, byAll(), "O'Neil", "\"%_", {});
    const QString injection = "' or '1'='1";
    const struct {
        QString name, password;
        const char* user; ///< name and password as stored, with the rights
    } cases[] = {
        {"Μαρία", "κλειδί", "Μαρία/κλειδί/100"},
        {"ΜΑΡΊΑ", "ΚΛΕΙΔΊ", "Μαρία/κλειδί/100"},
        {"NIKOS", "Abc", "nikos/abc/010"},
        {"nikos", "DEF", "nikos/def/001"},
        {"o'neil", "\"%_", "O'Neil/\"%_/000"},
    };
    const auto mark = [](bool right) { return QString::number(int(right)); };
    for (const auto& [name, password, user] : cases) {
        const auto session = signIn(auxiliary, name, password);
        ASSERT_TRUE(session) << name.toStdString();
        EXPECT_EQ(session->user + u'/' + session->password + u'/' + mark(session->rights.modifyCash)
                + mark(session->rights.closeCash) + mark(session->rights.modifyCodes),
            user);
    }
    const std::pair<QString, QString> refused[] = {{"Μαρια", "κλειδί"}, {"Μαρία ", "κλειδί"}, {"Μαρία", "κλειδι"},
        {"Μαρία", {}}, {"Μαρία", "κλειδΐ"}, {"Μαρία", "κλε\u200Bιδί"}, {"nikοs" /* a Greek letter */, "abc"},
        {"nikos", "κλειδί"}, {"O%", "%"}, {injection, injection}, {"nikos", injection}, {{}, {}},
        {"wardenly", "73816"}};
    for (const auto& [name, password] : refused)
        EXPECT_FALSE(signIn(auxiliary, name, password)) << name.toStdString();
}

TEST(SignIn, knowsTheBuiltInAdministrator)
{
    EXPECT_TRUE(isBuiltInAdministrator("wardenly", "73816") && isBuiltInAdministrator("WardenLY", "73816"));
    EXPECT_FALSE(isBuiltInAdministrator("wardenly ", "73816") || isBuiltInAdministrator("wardenly", "73816 "));
    EXPECT_FALSE(isBuiltInAdministrator("wardenly", QString()));
}

} // namespace lorvan::test
