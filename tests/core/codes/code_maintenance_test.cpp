#include "codes/code_maintenance.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

class CodeMaintenanceTest : public testing::Test {
protected:
    void SetUp() override
    {
        book.addGroup(7, QStringLiteral("ΈΞΟΔΑ"));
        book.addCode(300, QStringLiteral("ΠΑΛΙΟΣ"), false, 0, false);
    }

    [[nodiscard]] QString stored(std::string_view sql) { return valueOf(main, sql); }
    [[nodiscard]] QString lastCode()
    {
        return stored("SELECT kvdikos||'/'||perigrafh||'/'||omada||'/'||aa_omadas||'/'||lista||'/'||esodo||'/'||energos"
                      " FROM kvdikoi ORDER BY aa DESC LIMIT 1");
    }
    [[nodiscard]] qint64 rowOf(qint32 code) { return findCode(main, code, CodeSelection::All)->row; }

    TemporaryBook book;
    Connection main = book.openMain();
};

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

TEST_F(CodeMaintenanceTest, anInsertionIsCheckedInOrderAndStoresNothingWhenRefused)
{
    struct Case {
        const char *code, *description, *group;
        CodeRefusal refusal;
    };
    const Case cases[] = {
        {"  ", "ΝΕΟΣ", "", CodeRefusal::Incomplete},
        {"12α", "  ", "ΑΛΛΗ", CodeRefusal::Incomplete},
        {"12α", "ΠΑΛΙΟΣ", "ΑΛΛΗ", CodeRefusal::NoWholeNumber},
        {"1,5", "ΝΕΟΣ", "", CodeRefusal::NoWholeNumber},
        {"2147483648", "ΝΕΟΣ", "", CodeRefusal::NoWholeNumber},
        {"99999999999999999999", "ΝΕΟΣ", "", CodeRefusal::NoWholeNumber},
        {" 0300 ", "ΠΑΛΙΟΣ", "ΑΛΛΗ", CodeRefusal::CodeExists},
        {"301", "  παλιος ", "ΑΛΛΗ", CodeRefusal::DescriptionExists},
        {"301", "ΝΕΟΣ", "ΑΛΛΗ", CodeRefusal::UnknownGroup},
        {"301", "ΝΕΟΣ", "' OR 1=1 --", CodeRefusal::UnknownGroup},
    };
    for (const Case& each : cases) {
        const auto outcome = insertCode(main, {text(each.code), text(each.description), text(each.group)});
        ASSERT_TRUE(std::holds_alternative<CodeRefusal>(outcome)) << each.code << each.description << each.group;
        EXPECT_EQ(std::get<CodeRefusal>(outcome), each.refusal) << each.code << each.description << each.group;
    }
    EXPECT_EQ(stored("SELECT count(*) FROM kvdikoi"), QStringLiteral("3"));
}

TEST_F(CodeMaintenanceTest, anInsertedCodeIsTrimmedButItsLineAndGroupStandAsTyped)
{
    const std::pair<CodeEntry, const char*> cases[] = {
        {{text(" 1234567"), text(" Ο'ΧΑΡΤΗΣ "), text(" έξοδα "), true, false},
            "1234567/Ο'ΧΑΡΤΗΣ/ έξοδα /7/34567  Ο'ΧΑΡΤΗΣ /-1/0"},
        {{text("-2147483648"), text("ΧΩΡΙΣ"), text("  "), false, true}, "-2147483648/ΧΩΡΙΣ//0/83648 ΧΩΡΙΣ/0/-1"},
    };
    for (const auto& [entry, row] : cases) {
        const auto outcome = insertCode(main, entry);
        ASSERT_TRUE(std::holds_alternative<MovementCode>(outcome)) << row;
        EXPECT_EQ(lastCode(), text(row));
        EXPECT_EQ(stored("SELECT max(aa) FROM kvdikoi").toLongLong(), std::get<MovementCode>(outcome).row);
    }
}

TEST_F(CodeMaintenanceTest, aModificationStoresWhatStandsThereAndTakesTheMovementsOfItsNumberAlong)
{
    book.addMovementRow(incomeOf({2024, 3, 14}, cents(100)));
    book.addMovementRow(incomeOf({2024, 3, 15}, cents(200)));
    book.addMovementRow(expenseOf({2024, 3, 15}, cents(300)));
    const auto groups = [this] {
        return stored("SELECT group_concat(kvdikos||':'||ifnull(aa_omada,'')) FROM kinhseis");
    };
    const qint64 row = rowOf(100);

    EXPECT_FALSE(modifyCode(main, row, {text("100"), text(" ΛΙΑΝΙΚΗ"), text("ΑΣΧΕΤΟ"), true, false}, 7));
    EXPECT_EQ(stored("SELECT perigrafh||omada||aa_omadas||lista||energos FROM kvdikoi WHERE kvdikos=100"),
        text("ΛΙΑΝΙΚΗΑΣΧΕΤΟ7  100  ΛΙΑΝΙΚΗ0"));
    EXPECT_EQ(groups(), QStringLiteral("100:7,100:7,200:0"));

    EXPECT_FALSE(modifyCode(main, row, {text("200"), {}, {}, true, true}, 9)) << "another row's number, no description";
    EXPECT_EQ(groups(), QStringLiteral("100:7,100:7,200:9")) << "movements keep the number they were entered under";

    for (const char* const code : {"", "12.5", "4000000000"})
        EXPECT_EQ(modifyCode(main, row, {text(code), text("Χ"), {}}, 1), CodeRefusal::NoWholeNumber) << code;
    EXPECT_EQ(modifyCode(main, 4711, {text("200"), text("Χ"), {}}, 1), CodeRefusal::IsGone);
    EXPECT_EQ(groups(), QStringLiteral("100:7,100:7,200:9"));
}

TEST_F(CodeMaintenanceTest, tellsBeforehandWhatAModificationDoesBesides)
{
    book.addMovementRow(incomeOf({2024, 3, 14}, cents(100)));
    book.addMovementRow(incomeOf({2024, 3, 15}, cents(200)));
    book.addMovementRow(expenseOf({2024, 3, 15}, cents(300)));
    const auto effects = [this](const char* code, const char* description, const char* groupName, qint32 group) {
        const auto found =
            effectsOfModification(main, rowOf(100), {text(code), text(description), text(groupName)}, group);
        return !found ? QStringLiteral("none")
                      : QStringLiteral("%1%2 keeping %3 moving %4 to %5%6")
                            .arg(found->codeExists ? u"code " : u"", found->descriptionExists ? u"description" : u"")
                            .arg(found->keeping)
                            .arg(found->moving)
                            .arg(found->group, found->groupDiffers ? u"!" : u"");
    };
    EXPECT_EQ(effects("100", "Λιανική", " ", 0), text(" keeping 0 moving 0 to "));
    EXPECT_EQ(effects(" 100 ", " παλιοσ", "ΈΞΟΔΑ", 7), text("description keeping 0 moving 2 to ΈΞΟΔΑ"));
    EXPECT_EQ(effects("200", "", "", 7), text("code  keeping 2 moving 1 to ΈΞΟΔΑ!"));
    EXPECT_EQ(effects("5", "Νέα", "Άλλη", 0), text(" keeping 2 moving 0 to !"));
    EXPECT_EQ(effects("1,5", "Νέα", "", 0), text("none"));
}

TEST_F(CodeMaintenanceTest, aCodeWithMovementsIsNotRemoved)
{
    book.addMovementRow(incomeOf({2024, 3, 14}, cents(100)));
    const qint64 used = rowOf(100);
    const qint64 unused = rowOf(300);
    EXPECT_EQ(checkRemoval(main, used), CodeRefusal::IsUsed);
    EXPECT_EQ(removeCode(main, used), CodeRefusal::IsUsed);
    EXPECT_FALSE(removeCode(main, unused));
    EXPECT_EQ(removeCode(main, unused), CodeRefusal::IsGone);
    EXPECT_EQ(stored("SELECT group_concat(kvdikos) FROM kvdikoi"), QStringLiteral("100,200"));
}

} // namespace lorvan::test
