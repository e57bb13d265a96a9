#include "codes/code_maintenance.h"
#include "codes/code_offers.h"
#include "codes/group_maintenance.h"
#include "support/files.h"
#include "support/temporary_book.h"

namespace lorvan::test {
namespace {

class CodesTest : public testing::Test {
protected:
    [[nodiscard]] QString stored(std::string_view sql) { return valueOf(main, sql); }
    [[nodiscard]] qint64 rowOf(qint32 code) { return findCode(main, code, CodeSelection::All)->row; }
    template <typename Change, typename Refusal>
    static std::optional<Refusal> refusalOf(const std::variant<Change, Refusal>& outcome)
    {
        const auto* const refusal = std::get_if<Refusal>(&outcome);
        return refusal ? std::optional(*refusal) : std::nullopt;
    }

    const TemporaryBook book;
    Connection main = book.openMain();
};

class CodeMaintenanceTest : public CodesTest {
protected:
    CodeMaintenanceTest()
    {
        book.addGroup(7, "ΈΞΟΔΑ");
        book.addCode(300, "ΠΑΛΙΟΣ", false, 0, false);
        book.addMovementRow(incomeOf({2024, 3, 14}, cents(100)));
        book.addMovementRow(incomeOf({2024, 3, 15}, cents(200)));
        book.addMovementRow(expenseOf({2024, 3, 15}, cents(300)));
    }
    [[nodiscard]] QString movementGroups()
    {
        return stored("SELECT group_concat(kvdikos||':'||ifnull(aa_omada,'')) FROM kinhseis");
    }
};

/// Three codes of group 1, one of group 2, one without a group, and a movement in group 1.
class GroupMaintenanceTest : public CodesTest {
protected:
    GroupMaintenanceTest()
    {
        book.addGroup(2, "Έξοδα");
        book.addCode(101, "Χονδρική", true, 1);
        book.addCode(102, "Παλιός", true, 1, false);
        book.addCode(201, "Ενοίκια", false, 2);
        book.addMovementRow(incomeOf(QDate(2024, 3, 15), cents(100)));
        book.execute("UPDATE kinhseis SET aa_omada=1");
    }

    /// Number=name of every group.
    [[nodiscard]] QString groups()
    {
        return stored("SELECT group_concat(aa||'='||perigrafh, ' ') FROM (SELECT * FROM omades ORDER BY aa)");
    }
    /// Code:group/name of every code.
    [[nodiscard]] QString codes()
    {
        return stored("SELECT group_concat(kvdikos||':'||aa_omadas||'/'||ifnull(omada,''), ' ')"
                      " FROM (SELECT * FROM kvdikoi ORDER BY kvdikos)");
    }
};

const QString originalGroups = "1=Πωλήσεις 2=Έξοδα";

} // namespace

TEST_F(CodesTest, listsCodesByNumberAndFindsTheFirstActiveOne)
{
    book.addGroup(2, "Έξοδα");
    book.addCode(50, "Παλιός", true, 0, false);
    book.addCode(50, "Νέος", true, 2);
    book.addCode(50, "Δεύτερος", false);
    book.addCode(7, "Ανενεργός", false, 0, false);

    const auto numbers = [this](CodeSelection selection) {
        QStringList list;
        for (const MovementCode& code : listCodes(main, selection))
            list += QString::number(code.code) + code.description.first(1);
        return list.join(u' ');
    };
    EXPECT_EQ(numbers(CodeSelection::Active), "50Ν 50Δ 100Λ 200Π");
    EXPECT_EQ(numbers(CodeSelection::All), "7Α 50Π 50Ν 50Δ 100Λ 200Π");

    const auto found = findCode(main, 50, CodeSelection::Active);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->description, "Νέος");
    EXPECT_EQ(found->listLine, "   50 Νέος");
    EXPECT_EQ(found->group, 2);
    EXPECT_TRUE(found->income);
    EXPECT_EQ(findCode(main, 50, CodeSelection::All)->description, "Παλιός");
    EXPECT_FALSE(findCode(main, 7, CodeSelection::Active));
    EXPECT_TRUE(findCode(main, 7, CodeSelection::All));
    EXPECT_FALSE(findCode(main, 0, CodeSelection::All));
    EXPECT_EQ(listGroups(main).back().name, "Έξοδα");
    EXPECT_EQ(codeListLine("1234567", " α "), "34567  α ");
    EXPECT_EQ(codeListLine(" 7 ", "α"), "    7 α");
}

TEST_F(CodeMaintenanceTest, anInsertionIsCheckedInOrderAndStoresNothingWhenRefused)
{
    using enum CodeRefusal;
    const std::pair<CodeEntry, CodeRefusal> cases[] = {{{"  ", "ΝΕΟΣ", ""}, Incomplete},
        {{"12α", "  ", "ΑΛΛΗ"}, Incomplete}, {{"12α", "ΠΑΛΙΟΣ", "ΑΛΛΗ"}, NoWholeNumber},
        {{"1,5", "ΝΕΟΣ", ""}, NoWholeNumber}, {{"2147483648", "ΝΕΟΣ", ""}, NoWholeNumber},
        {{"99999999999999999999", "ΝΕΟΣ", ""}, NoWholeNumber}, {{" 0300 ", "ΠΑΛΙΟΣ", "ΑΛΛΗ"}, CodeExists},
        {{"301", "  παλιος ", "ΑΛΛΗ"}, DescriptionExists}, {{"301", "ΝΕΟΣ", "ΑΛΛΗ"}, UnknownGroup},
        {{"301", "ΝΕΟΣ", "' OR 1=1 --"}, UnknownGroup}};
    for (const auto& [entry, refusal] : cases) {
        const auto outcome = insertCode(main, byAll(), entry);
        ASSERT_TRUE(std::holds_alternative<CodeRefusal>(outcome)) << entry.code.toStdString();
        EXPECT_EQ(std::get<CodeRefusal>(outcome), refusal) << entry.code.toStdString();
    }
    EXPECT_EQ(stored("SELECT count(*) FROM kvdikoi"), "3");
}

TEST_F(CodeMaintenanceTest, anInsertedCodeIsTrimmedButItsLineAndGroupStandAsTyped)
{
    const std::pair<CodeEntry, const char*> cases[] = {
        {{" 1234567", " Ο'ΧΑΡΤΗΣ ", " έξοδα ", true, false}, "1234567/Ο'ΧΑΡΤΗΣ/ έξοδα /7/34567  Ο'ΧΑΡΤΗΣ /-1/0"},
        {{"-2147483648", "ΧΩΡΙΣ", "  ", false, true}, "-2147483648/ΧΩΡΙΣ//0/83648 ΧΩΡΙΣ/0/-1"},
    };
    for (const auto& [entry, row] : cases) {
        const auto outcome = insertCode(main, byAll(), entry);
        ASSERT_TRUE(std::holds_alternative<MovementCode>(outcome)) << row;
        EXPECT_EQ(stored("SELECT kvdikos||'/'||perigrafh||'/'||omada||'/'||aa_omadas||'/'||lista||'/'||esodo||'/'"
                         "||energos FROM kvdikoi ORDER BY aa DESC LIMIT 1"),
            row);
        EXPECT_EQ(stored("SELECT max(aa) FROM kvdikoi").toLongLong(), std::get<MovementCode>(outcome).row);
    }
}

TEST_F(CodeMaintenanceTest, aModificationStoresWhatStandsThereAndTakesTheMovementsOfItsNumberAlong)
{
    const qint64 row = rowOf(100);
    EXPECT_FALSE(refusalOf(modifyCode(main, byAll(), row, {"100", " ΛΙΑΝΙΚΗ", "ΑΣΧΕΤΟ", true, false}, 7)));
    EXPECT_EQ(stored("SELECT perigrafh||omada||aa_omadas||lista||energos FROM kvdikoi WHERE kvdikos=100"),
        "ΛΙΑΝΙΚΗΑΣΧΕΤΟ7  100  ΛΙΑΝΙΚΗ0");
    EXPECT_EQ(movementGroups(), "100:7,100:7,200:0");

    EXPECT_FALSE(refusalOf(modifyCode(main, byAll(), row, {"200", {}, {}, true, true}, 9)))
        << "another row's number, no description";
    EXPECT_EQ(movementGroups(), "100:7,100:7,200:9") << "movements keep the number they were entered under";

    for (const char* const code : {"", "12.5", "4000000000"})
        EXPECT_EQ(refusalOf(modifyCode(main, byAll(), row, {code, "Χ", {}}, 1)), CodeRefusal::NoWholeNumber) << code;
    EXPECT_EQ(refusalOf(modifyCode(main, byAll(), 4711, {"200", "Χ", {}}, 1)), CodeRefusal::IsGone);
    EXPECT_EQ(movementGroups(), "100:7,100:7,200:9");
}

TEST_F(CodeMaintenanceTest, tellsBeforehandWhatAModificationDoesBesides)
{
    const auto effects = [this](const char* code, const char* description, const char* groupName, qint32 group) {
        const auto found = effectsOfModification(main, rowOf(100), {code, description, groupName}, group);
        return !found ? "none"
                      : QStringLiteral("%1%2 keeping %3 moving %4 to %5%6")
                            .arg(found->codeExists ? u"code " : u"", found->descriptionExists ? u"description" : u"")
                            .arg(found->keeping)
                            .arg(found->moving)
                            .arg(found->group, found->groupDiffers ? u"!" : u"");
    };
    EXPECT_EQ(effects("100", "Λιανική", " ", 0), " keeping 0 moving 0 to ");
    EXPECT_EQ(effects(" 100 ", " παλιοσ", "ΈΞΟΔΑ", 7), "description keeping 0 moving 2 to ΈΞΟΔΑ");
    EXPECT_EQ(effects("200", "", "", 7), "code  keeping 2 moving 1 to ΈΞΟΔΑ!");
    EXPECT_EQ(effects("5", "Νέα", "Άλλη", 0), " keeping 2 moving 0 to !");
    EXPECT_EQ(effects("1,5", "Νέα", "", 0), "none");
}

TEST_F(CodeMaintenanceTest, aCodeWithMovementsIsNotRemoved)
{
    const qint64 used = rowOf(100);
    const qint64 unused = rowOf(300);
    EXPECT_EQ(refusalOfRemoval(main, used), CodeRefusal::IsUsed);
    EXPECT_EQ(removeCode(main, byAll(), used), CodeRefusal::IsUsed);
    EXPECT_FALSE(removeCode(main, byAll(), unused));
    EXPECT_EQ(removeCode(main, byAll(), unused), CodeRefusal::IsGone);
    EXPECT_EQ(stored("SELECT group_concat(kvdikos) FROM kvdikoi"), "100,200");
}

TEST_F(GroupMaintenanceTest, addTrimsAndRefusesWhatIsThereAlready)
{
    for (const char* name : {"", " \t "})
        EXPECT_EQ(std::get<GroupRefusal>(addGroup(main, byAll(), name)), GroupRefusal::NoName);
    for (const char* name : {"Πωλήσεις", "  πωλήσεισ ", "ΈΞΟΔΑ"})
        EXPECT_EQ(std::get<GroupRefusal>(addGroup(main, byAll(), name)), GroupRefusal::NameExists) << name;
    EXPECT_EQ(groups(), originalGroups);

    ASSERT_FALSE(removeGroup(main, byAll(), 2));
    const QString typed = " Εξοδα', omada=\"' -- ";
    const auto added = std::get<CodeGroup>(addGroup(main, byAll(), typed));
    EXPECT_EQ(added.number, 3) << "a deleted number is not given again";
    EXPECT_EQ(listGroups(main).back().name, typed.trimmed());
}

TEST_F(GroupMaintenanceTest, renameTakesAlongTheCodesOfTheGroupAlone)
{
    EXPECT_FALSE(refusalOf(renameGroup(main, byAll(), 1, " Έξοδα ")));
    EXPECT_EQ(groups(), "1=Έξοδα 2=Έξοδα");
    const QString renamed = "100:1/Έξοδα 101:1/Έξοδα 102:1/Έξοδα 200:0/ 201:2/Έξοδα";
    EXPECT_EQ(codes(), renamed);

    book.execute("UPDATE kvdikoi SET omada='άλλο' WHERE kvdikos=102");
    EXPECT_FALSE(refusalOf(renameGroup(main, byAll(), 1, "Έξοδα")));
    EXPECT_EQ(codes(), renamed) << "an equal name brings the copies in step";
}

TEST_F(GroupMaintenanceTest, removalLeavesItsCodesWithoutAGroupAndItsMovementsAlone)
{
    EXPECT_FALSE(removeGroup(main, byAll(), 1));
    EXPECT_EQ(groups(), "2=Έξοδα");
    EXPECT_EQ(codes(), "100:0/  101:0/  102:0/  200:0/ 201:2/Έξοδα");
    EXPECT_EQ(valueOf(main, "SELECT aa_omada FROM kinhseis"), "1");
}

TEST(CodeOffers, areTheCodesWithAWordThatBeginsSo)
{
    std::vector<MovementCode> codes;
    for (const char* const description : {"ΠΩΛΉΣΕΙΣ Λιανικής", "ΔΕΗ - ΎΔΡΕΥΣΗ", "ΠΡΟΜ/ΤΗΣ ΑΛΦΑ 4"})
        codes.emplace_back().description = QString::fromUtf8(description);
    const std::pair<const char*, std::vector<int>> cases[] = {{"λια", {0}}, {"πωλησεισ", {0}}, {"ύδ δε", {1}},
        {"δεη-υδ", {1}}, {"π", {0, 2}}, {"προμ/τη 4", {2}}, {"ανικ", {}}, {"λια αλφα", {}}, {"4", {}}, {"", {}},
        {" - ", {}}, {"π 2", {}}};
    for (const auto& [typed, rows] : cases)
        EXPECT_EQ(offeredCodes(codes, QString::fromUtf8(typed)), rows) << typed;
}

} // namespace lorvan::test
