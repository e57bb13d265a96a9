#include "codes/omada_kvdikvn.h"

#include "windows/main_window_test.h"

namespace lorvan::test {
namespace {

const QString bothGroups = "Πωλήσεις\nΈξοδα";

/// The groups window on a book with the groups 1 "Πωλήσεις", which has a code, and 2 "Έξοδα".
class GroupsWindowTest : public testing::Test {
protected:
    static constexpr int leave = 0, add = 1, rename = 2, remove = 3;

    void SetUp() override
    {
        book.addGroup(2, "Έξοδα");
        window.emplace(main, byAll(), [this](QWidget*) { return mayChange; });
        user.emplace(*window);
        showActive(*window);
    }

    [[nodiscard]] QListView& list() const { return user->find<QListView>("DBList1"); }
    [[nodiscard]] QLineEdit& name() const { return user->find<QLineEdit>("Text1"); }
    /// What the name field holds, in brackets while the group may be changed.
    [[nodiscard]] QString loaded() const
    {
        const bool isOffered = user->command(rename).isVisible();
        EXPECT_EQ(user->command(remove).isVisible(), isOffered);
        return isOffered ? u'[' + name().text() + u']' : name().text();
    }
    void type(const QString& text) const
    {
        user->goTo(name());
        user->press(Qt::Key_Delete);
        user->paste(text);
    }
    void press(int command) const { user->click(user->command(command)); }
    void expectRefusal(const char* text) { boxes.expect(information("Προσοχή", text)); }
    void expectRemovalQuestion(QMessageBox::StandardButton answer)
    {
        boxes.expect(okCancel(QMessageBox::Critical, "Διαγραφή ομάδας", "Να γίνει η διαγραφή της ομάδας;", answer));
    }
    [[nodiscard]] QString selected() const { return list().currentIndex().data().toString(); }
    [[nodiscard]] QString groupOfCode()
    {
        return valueOf(main, "SELECT aa_omadas||'/'||omada FROM kvdikoi WHERE kvdikos=100");
    }

    TemporaryBook book;
    Connection main = book.openMain();
    BoxScript boxes;
    bool mayChange = true;
    std::optional<OmadaKvdikvn> window;
    std::optional<Driver> user;
};

} // namespace

TEST_F(GroupsWindowTest, addsWhatIsTypedWithTheKeysAlone)
{
    EXPECT_EQ(user->focusName(), "Text1");
    user->type(" Δαπάνες \n");
    EXPECT_EQ(user->focusName(), "Command1(1)");
    user->press(Qt::Key_Return);
    EXPECT_EQ(linesOf(list()), bothGroups + "\nΔαπάνες");
    EXPECT_EQ(selected(), "Δαπάνες");
    EXPECT_EQ(user->focusName(), "Text1");
    EXPECT_EQ(name().selectedText(), " Δαπάνες ");

    const QString odd = "Ό'μικρον\"; ΰ--%" + QString(10'000, u'Ώ');
    type(odd);
    press(add);
    EXPECT_EQ(selected(), odd);
    user->doubleClickRow(list(), 0);
    type("Νέα");
    press(add);
    expectRemovalQuestion(QMessageBox::Ok);
    press(remove);
    EXPECT_TRUE(linesOf(list()).endsWith(odd)) << "deleted is what is selected and shown";
    EXPECT_EQ(groupOfCode(), "1/Πωλήσεις");
}

TEST_F(GroupsWindowTest, refusesBlankAndKnownNamesAndWhatMayNotBeChanged)
{
    user->doubleClickRow(list(), 0);
    for (const auto& [command, typed, text] : {std::tuple(add, "  ", "Δεν έχετε δώσει την ονομασία της ομάδας"),
             std::tuple(add, " έξοδα ", "Η περιγραφή υπάρχει ήδη καταχωρημένη"),
             std::tuple(rename, "  ", "Δεν έχετε δώσει την περιγραφή της ομάδας")}) {
        type(typed);
        expectRefusal(text);
        press(command);
        EXPECT_EQ(name().text(), typed);
    }
    type("Νέα");
    mayChange = false;
    for (const int command : {add, rename, remove})
        press(command);
    EXPECT_EQ(linesOf(list()), bothGroups);
    EXPECT_EQ(loaded(), "[Νέα]");
}

TEST_F(GroupsWindowTest, aDoubleClickOffersAndAClickTakesBack)
{
    const QPoint exit = user->command(leave).pos();
    user->doubleClickRow(list(), 1);
    EXPECT_EQ(loaded(), "[Έξοδα]");
    EXPECT_EQ(user->command(leave).pos(), exit);
    user->clickRow(list(), 0);
    EXPECT_EQ(loaded(), "");

    user->press(Qt::Key_Delete);
    user->press(Qt::Key_F2);
    EXPECT_EQ(loaded(), "[Πωλήσεις]");
    user->press(Qt::Key_Down);
    EXPECT_EQ(loaded(), "") << "going to another group is a click on it";
    user->press(Qt::Key_Delete);
    EXPECT_EQ(linesOf(list()), bothGroups);
}

TEST_F(GroupsWindowTest, renamesAfterAQuestion)
{
    user->doubleClickRow(list(), 0);
    type(" Έξοδα ");
    for (const auto answer : {QMessageBox::Cancel, QMessageBox::Ok}) {
        EXPECT_EQ(loaded(), "[ Έξοδα ]");
        EXPECT_EQ(linesOf(list()), bothGroups);
        boxes.expect(modifyQuestion(answer));
        press(rename);
    }
    EXPECT_EQ(linesOf(list()), "Έξοδα\nΈξοδα");
    EXPECT_EQ(groupOfCode(), "1/Έξοδα");
    EXPECT_EQ(loaded(), " Έξοδα ");
    EXPECT_EQ(list().currentIndex().row(), 0);
    EXPECT_EQ(user->focusName(), "Text1");
}

TEST_F(GroupsWindowTest, deletesAfterAQuestion)
{
    user->doubleClickRow(list(), 0);
    for (const auto answer : {QMessageBox::Cancel, QMessageBox::Ok}) {
        EXPECT_EQ(loaded(), "[Πωλήσεις]");
        expectRemovalQuestion(answer);
        press(remove);
    }
    EXPECT_EQ(groupOfCode(), "0/ ");
    EXPECT_EQ(selected(), "Έξοδα");
    EXPECT_EQ(loaded(), "");

    user->doubleClickRow(list(), 0);
    expectRemovalQuestion(QMessageBox::Ok);
    user->press(Qt::Key_Delete);
    EXPECT_EQ(linesOf(list()), "");
    EXPECT_EQ(user->focusName(), "DBList1");
}

TEST_F(GroupsWindowTest, aGroupThatAnotherComputerHasDeletedIsToldOf)
{
    for (const int command : {rename, remove}) {
        user->doubleClickRow(list(), 0);
        const QString before = name().text();
        book.execute("DELETE FROM omades WHERE aa=(SELECT min(aa) FROM omades)");
        if (command == rename)
            boxes.expect(modifyQuestion(QMessageBox::Ok));
        else
            expectRemovalQuestion(QMessageBox::Ok);
        expectRefusal("Η ομάδα δεν υπάρχει πια. Την έχει διαγράψει άλλος χρήστης.");
        press(command);
        EXPECT_EQ(loaded(), before);
    }
    EXPECT_EQ(linesOf(list()), "");
    EXPECT_EQ(groupOfCode(), "1/Πωλήσεις");
}

TEST_F(GroupsWindowTest, whatIsTypedAboveTheListFiltersIt)
{
    auto& filter = user->find<QLineEdit>("filterGroups");
    const int rows = list().model()->rowCount();
    const auto shown = [&] {
        int count = 0;
        for (int row = 0; row < rows; ++row)
            count += list().isRowHidden(row) ? 0 : 1;
        return count;
    };
    user->goTo(filter);
    user->type("εξ");
    EXPECT_EQ(shown(), 1);
    user->press(Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(shown(), rows);
    user->press(Qt::Key_Down);
    EXPECT_EQ(user->focusName(), "DBList1");
    user->goTo(filter);
    user->press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(GroupsWindowTest, escapeLeavesUnlessItWouldLoseATypedName)
{
    user->doubleClickRow(list(), 0);
    user->goTo(name());
    user->type("Νέα");
    user->goTo(user->command(add));
    user->press(Qt::Key_Escape);
    ASSERT_TRUE(window->isVisible());
    EXPECT_EQ(user->focusName(), "Text1");
    EXPECT_EQ(name().text(), "Νέα");
    press(add);
    user->press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());

    window->show();
    user->goTo(list());
    user->press(Qt::Key_Return);
    EXPECT_EQ(user->focusName(), "Text1");
    press(leave);
    EXPECT_FALSE(window->isVisible());
}

} // namespace lorvan::test
