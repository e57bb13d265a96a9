#include "codes/group_maintenance.h"

#include "platform/engine/sql_error.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

/// Three codes of group 1, one of group 2, one without a group, and a movement in group 1.
class GroupMaintenanceTest : public testing::Test {
protected:
    GroupMaintenanceTest()
    {
        book.addGroup(2, QStringLiteral("Έξοδα"));
        book.addCode(101, QStringLiteral("Χονδρική"), true, 1);
        book.addCode(102, QStringLiteral("Παλιός"), true, 1, false);
        book.addCode(201, QStringLiteral("Ενοίκια"), false, 2);
        book.addMovementRow(incomeOf(QDate(2024, 3, 15), cents(100)));
        book.execute("UPDATE kinhseis SET aa_omada=1");
    }

    /// Number=name of every group.
    [[nodiscard]] QString groups()
    {
        return valueOf(main, "SELECT group_concat(aa||'='||perigrafh, ' ') FROM (SELECT * FROM omades ORDER BY aa)");
    }
    /// Code:group/name of every code.
    [[nodiscard]] QString codes()
    {
        return valueOf(main,
            "SELECT group_concat(kvdikos||':'||aa_omadas||'/'||ifnull(omada,''), ' ')"
            " FROM (SELECT * FROM kvdikoi ORDER BY kvdikos)");
    }

    TemporaryBook book;
    Connection main = book.openMain();
};

const QString originalGroups = QStringLiteral("1=Πωλήσεις 2=Έξοδα");
const QString originalCodes = QStringLiteral("100:1/Πωλήσεις 101:1/Πωλήσεις 102:1/Πωλήσεις 200:0/ 201:2/Έξοδα");

} // namespace

TEST_F(GroupMaintenanceTest, addTrimsAndRefusesWhatIsThereAlready)
{
    for (const auto& [name, refusal] : {std::pair("", GroupRefusal::NoName), std::pair(" \t ", GroupRefusal::NoName),
             std::pair("Πωλήσεις", GroupRefusal::NameExists), std::pair("  πωλήσεισ ", GroupRefusal::NameExists),
             std::pair("ΈΞΟΔΑ", GroupRefusal::NameExists)}) {
        const auto outcome = addGroup(main, QString::fromUtf8(name));
        ASSERT_TRUE(std::holds_alternative<GroupRefusal>(outcome)) << name;
        EXPECT_EQ(std::get<GroupRefusal>(outcome), refusal) << name;
    }
    EXPECT_EQ(groups(), originalGroups);

    ASSERT_FALSE(removeGroup(main, 2));
    const QString typed = QStringLiteral(" Εξοδα', omada=\"' -- ");
    const auto added = std::get<CodeGroup>(addGroup(main, typed));
    EXPECT_EQ(added.number, 3) << "a deleted number is not given again";
    EXPECT_EQ(listGroups(main).back().name, typed.trimmed());
}

TEST_F(GroupMaintenanceTest, renameTakesAlongTheCodesOfTheGroupAlone)
{
    EXPECT_FALSE(renameGroup(main, 1, QStringLiteral(" Έξοδα ")));
    EXPECT_EQ(groups(), QStringLiteral("1=Έξοδα 2=Έξοδα"));
    const QString renamed = QStringLiteral("100:1/Έξοδα 101:1/Έξοδα 102:1/Έξοδα 200:0/ 201:2/Έξοδα");
    EXPECT_EQ(codes(), renamed);

    book.execute("UPDATE kvdikoi SET omada='άλλο' WHERE kvdikos=102");
    EXPECT_FALSE(renameGroup(main, 1, QStringLiteral("Έξοδα")));
    EXPECT_EQ(codes(), renamed) << "an equal name brings the copies in step";
}

TEST_F(GroupMaintenanceTest, removalLeavesItsCodesWithoutAGroupAndItsMovementsAlone)
{
    EXPECT_FALSE(removeGroup(main, 1));
    EXPECT_EQ(groups(), QStringLiteral("2=Έξοδα"));
    EXPECT_EQ(codes(), QStringLiteral("100:0/  101:0/  102:0/  200:0/ 201:2/Έξοδα"));
    EXPECT_EQ(valueOf(main, "SELECT aa_omada FROM kinhseis"), QStringLiteral("1"));
}

TEST_F(GroupMaintenanceTest, aFailureMidwayUndoesTheWholeChange)
{
    book.execute("CREATE TRIGGER refuse BEFORE UPDATE ON kvdikoi WHEN old.kvdikos=102"
                 " BEGIN SELECT raise(ABORT, 'no'); END");
    letTriggersRun(main);
    EXPECT_THROW((void)renameGroup(main, 1, QStringLiteral("Νέο")), SqlError);
    EXPECT_THROW((void)removeGroup(main, 1), SqlError);
    EXPECT_EQ(groups(), originalGroups);
    EXPECT_EQ(codes(), originalCodes);
}

} // namespace lorvan::test
