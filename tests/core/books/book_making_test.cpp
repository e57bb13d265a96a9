#include "books/book_making.h"
#include "books/ready_sets.h"
#include "codes/code_catalogue.h"
#include "movements/opening_difference.h"
#include "proof/book_check.h"
#include "support/files.h"
#include "support/mount.h"
#include "support/temporary_book.h"
#include "users/user_accounts.h"

#include <unistd.h>

namespace lorvan::test {
namespace {

class BookMaking : public testing::Test {
protected:
    [[nodiscard]] NewBookDraft draft() const
    {
        return {base.filePath("Νέο/βιβλίο"), "Τ' Αυλάκι", {"Σοφία", "μυστικό", "μυστικό", {true, false, true}},
            "12-3-2024", "10.000.000,00", 0};
    }
    void expectFault(const NewBookDraft& typed, NewBookField field, const char* text) const
    {
        const auto fault = faultOf(typed, fixedClock().today());
        ASSERT_TRUE(fault) << text;
        EXPECT_EQ(fault->field, field) << text;
        EXPECT_TRUE(fault->text.contains(text)) << fault->text.toStdString();
    }

    QTemporaryDir base;
};

} // namespace

TEST_F(BookMaking, theBookIsInOrderWithUserCodesAndOpeningBalance)
{
    ASSERT_FALSE(faultOf(draft(), fixedClock().today()));
    makeBook(draft(), fixedClock());
    EXPECT_EQ(namesIn(draft().folder), "lorvan.dat lorvan.mdb mapcodes.mdb");
    Connection main = openCopy(draft().folder + "/lorvan.mdb");
    EXPECT_EQ(valueOf(main, "SELECT ariumos FROM taytothta"), "3");
    EXPECT_EQ(openingDifferences(main), (OpeningDifferences{{20240312, cents(1'000'000'000)}}));
    EXPECT_EQ(listCodes(main, CodeSelection::Active).size(), readySets()[0].codeCount());
    EXPECT_EQ(listGroups(main).size(), readySets()[0].groups.size());
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM journal WHERE action='opening'"), "1");
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM journal WHERE action='found'"), "0")
        << "the user was added, not found";
    Connection auxiliary = openCopy(draft().folder + "/mapcodes.mdb");
    const auto users = listUsers(auxiliary);
    ASSERT_EQ(users.size(), 1U);
    EXPECT_TRUE(users[0].name == "Σοφία" && users[0].rights.modifyCash && !users[0].rights.closeCash);
    Connection both = openCopy(draft().folder + "/lorvan.mdb");
    both.attach(draft().folder + "/mapcodes.mdb", testKeys().keyFor(draft().folder + "/mapcodes.mdb"), "auxiliary");
    EXPECT_TRUE(checkContent(both, [](std::int64_t, std::int64_t) {}).findings.isInOrder());
    expectFault(draft(), NewBookField::Folder, "υπάρχει ήδη βιβλίο");
}

TEST_F(BookMaking, eachReadySetFitsAnEmptyBook)
{
    EXPECT_EQ(readySets().size(), 4U);
    for (std::size_t set = 0; set < readySets().size(); ++set) {
        NewBookDraft typed = draft();
        typed.folder = base.filePath(readySets()[set].name);
        typed.readySet = set;
        typed.openingAmount = " ";
        makeBook(typed, fixedClock());
        Connection main = openCopy(typed.folder + "/lorvan.mdb");
        EXPECT_EQ(listCodes(main, CodeSelection::All).size(), readySets()[set].codeCount());
        EXPECT_TRUE(openingDifferences(main).empty());
        for (const MovementCode& code : listCodes(main, CodeSelection::All))
            EXPECT_GT(code.group, 0) << code.listLine.toStdString();
    }
}

TEST_F(BookMaking, whatCannotBeIsToldAtItsField)
{
    using Field = NewBookField;
    writeFile(base.filePath("file"), "x");
    writeFile(base.filePath("full/other"), "x");
    ASSERT_EQ(::symlink("/nowhere/at/all", QFile::encodeName(base.filePath("link")).constData()), 0);
    const struct {
        Field field;
        std::function<void(NewBookDraft&)> change;
        const char* text;
    } cases[] = {{Field::Heading, [](auto& d) { d.heading = QString(10'000, u'Α'); }, "10000 χαρακτήρες"},
        {Field::Folder, [](auto& d) { d.folder.clear(); }, "Δώστε τον φάκελο"},
        {Field::Folder, [](auto& d) { d.folder = "/漢"; }, "Windows-1253"},
        {Field::Folder, [&](auto& d) { d.folder = base.filePath("file"); }, "είναι αρχείο"},
        {Field::Folder, [&](auto& d) { d.folder = base.filePath("file/new"); }, "είναι αρχείο"},
        {Field::Folder, [&](auto& d) { d.folder = base.filePath("full"); }, "άλλα αρχεία"},
        {Field::Folder, [&](auto& d) { d.folder = base.filePath("link"); }, "σύνδεσμος"},
        {Field::UserName, [](auto& d) { d.user.name = "  "; }, "όνομα"},
        {Field::UserName, [](auto& d) { d.user.name = QString(101, u'x'); }, "101"},
        {Field::Password, [](auto& d) { d.user.password.clear(); }, "κωδικό"},
        {Field::Password, [](auto& d) { d.user.password = " α"; }, "κενό"},
        {Field::Repeated, [](auto& d) { d.user.repeated = "Μυστικό"; }, "διαφέρουν"},
        {Field::OpeningDay, [](auto& d) { d.openingDay = "31-02-2024"; }, "ημερομηνία"},
        {Field::OpeningDay, [](auto& d) { d.openingDay = "16-03-2024"; }, "δεν έχει έρθει"},
        {Field::OpeningAmount, [](auto& d) { d.openingAmount = "1,234,5"; }, "δεν είναι ποσό"}};
    for (const auto& each : cases) {
        NewBookDraft typed = draft();
        each.change(typed);
        expectFault(typed, each.field, each.text);
    }
    EXPECT_EQ(folderFromTyped(" ~/α/../β "), QDir::homePath() + "/β");
}

TEST_F(BookMaking, theFirstUserIsAddedOnceAndNoFurtherOne)
{
    const TemporaryBook book;
    const FirstUser user{"Σοφία", "α", "α"};
    addFirstUser(book.files(), user, fixedClock());
    Connection auxiliary = book.openAuxiliary();
    EXPECT_EQ(listUsers(auxiliary).size(), 1U);
    EXPECT_NE(failureOf([&] { addFirstUser(book.files(), user, fixedClock()); }), "");
    EXPECT_EQ(listUsers(auxiliary).size(), 1U);
}

} // namespace lorvan::test
