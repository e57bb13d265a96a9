#include "windows/main_window_test.h"

namespace lorvan::test {
namespace {

class UndoTest : public MainWindowTest {
protected:
    static constexpr int words = 5, modifyCode = 6;

    void SetUp() override
    {
        addCashDay(tomorrow, {});
        start(allRights);
        typeMovement("100", "δεη", "214,67");
        press(insert);
        ASSERT_EQ(notice(), "Αναίρεση: εισαγωγή ΔΕΗ 214,67");
    }

    void undo() const { user().press(Qt::Key_Z, Qt::ControlModifier); }
    void redo() const { user().press(Qt::Key_Y, Qt::ControlModifier); }
    [[nodiscard]] QWidget& button() const { return user().find("undo"); }
    [[nodiscard]] QString movements() const
    {
        return stored("SELECT group_concat(aa||' '||perigrafh, ', ') FROM kinhseis");
    }
};

} // namespace

TEST_F(UndoTest, theKeyTakesBackTypingThenAReleasedEntryThenWhatIsStored)
{
    user().enter(description, "α");
    undo();
    EXPECT_EQ(user().field(description).text(), "") << "the field's own typing";
    redo();
    EXPECT_EQ(user().field(description).text(), "Α");
    typeMovement("100", "νέα", "7");
    const QString typed = entry();
    user().clickRow(list(), 0);
    undo();
    EXPECT_EQ(entry(), typed) << "the released entry";
    undo();
    EXPECT_EQ(movements(), "1 ΔΕΗ") << "an entry is being typed";
    user().goTo(button());
    user().click(button());
    EXPECT_EQ(movements(), "") << "the button means what is stored";
    EXPECT_EQ(entry(), typed);
    EXPECT_EQ(notice(), "Αναιρέθηκε: εισαγωγή ΔΕΗ 214,67");
    EXPECT_FALSE(button().isVisible());
    EXPECT_EQ(shownFigures(), "0 | 0 | 0");

    user().clickRow(list(), 0);
    user().goTo(user().field(memorandum));
    user().type("1");
    undo(); // the typing, after which the entry does not come back any more
    user().press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    user().press(Qt::Key_Backspace);
    user().goTo(list());
    redo();
    EXPECT_EQ(movements(), "1 ΔΕΗ");
    EXPECT_EQ(notice(), "Έγινε ξανά: εισαγωγή ΔΕΗ 214,67");
    EXPECT_TRUE(button().isVisible());
    EXPECT_EQ(shownFigures(), "214,67 | 0 | 214,67");
}

TEST_F(UndoTest, anotherDayIsNamedAndWhatWasChangedMeanwhileIsRefused)
{
    user().enter(date, "16-03-2024\n");
    user().goTo(list());
    undo();
    EXPECT_EQ(notice(), "Αναιρέθηκε: εισαγωγή ΔΕΗ 214,67, στις 15-03-2024");
    EXPECT_EQ(linesOf(list()).section('\n', 0, 0), "Υπόλοιπο από την προηγούμενη 0");
    selectTab(CodesTab);
    user().press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(movements(), "1 ΔΕΗ") << "from another page too";
    book.execute("UPDATE kinhseis SET perigrafh='ΑΛΛΟ'");
    boxes.expect(information("Προσοχή", "Δεν αναιρέθηκε: εισαγωγή ΔΕΗ 214,67.\nΗ κίνηση έχει αλλάξει στο μεταξύ."));
    undo();
    selectTab(PrintingTab);
    EXPECT_EQ(notice(), "");
    undo();
    EXPECT_EQ(movements(), "1 ΑΛΛΟ");
}

TEST_F(UndoTest, aModifiedCodeIsTakenBackOnItsPage)
{
    selectTab(CodesTab);
    user().doubleClickRow(list("DBList1(0)"), 0);
    user().enter(words, "ΧΟΝΔΡΙΚΉ");
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    press(modifyCode);
    ASSERT_EQ(notice(), "Αναίρεση: μεταβολή κωδικού 100 ΧΟΝΔΡΙΚΉ");
    user().goTo(user().field(words));
    user().type("ς");
    undo();
    EXPECT_EQ(stored("SELECT perigrafh FROM kvdikoi WHERE kvdikos=100"), "ΧΟΝΔΡΙΚΉ") << "the typing went back";
    undo();
    EXPECT_EQ(stored("SELECT perigrafh FROM kvdikoi WHERE kvdikos=100"), "Λιανική");
    EXPECT_EQ(user().field(words).text(), "Λιανική");
    EXPECT_EQ(notice(), "Αναιρέθηκε: μεταβολή κωδικού 100 ΧΟΝΔΡΙΚΉ  ·  επόμενη αναίρεση: εισαγωγή ΔΕΗ 214,67");
}

} // namespace lorvan::test
