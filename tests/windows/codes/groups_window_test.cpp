#include "codes/omada_kvdikvn.h"

#include "windows/box_script.h"
#include "windows/driver.h"
#include "windows/main_window_test.h"

#include <QTest>

namespace lorvan::test {
namespace {

/// The groups window on a book with the groups 1 "Πωλήσεις", which has a code, and 2 "Έξοδα".
class GroupsWindowTest : public testing::Test {
protected:
    static constexpr int leave = 0, add = 1, rename = 2, remove = 3;

    GroupsWindowTest()
    {
        book.addGroup(2, QStringLiteral("Έξοδα"));
        window.emplace(main, [this](QWidget*) { return mayChange; });
        user.emplace(*window);
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&*window));
    }

    [[nodiscard]] QListView& list() const { return user->find<QListView>(QStringLiteral("DBList1")); }
    [[nodiscard]] QLineEdit& name() const { return user->find<QLineEdit>(QStringLiteral("Text1")); }
    [[nodiscard]] bool isOffered() const
    {
        const bool offered = user->command(rename).isVisible();
        EXPECT_EQ(user->command(remove).isVisible(), offered);
        return offered;
    }
    void type(const QString& text) const
    {
        user->goTo(name());
        user->press(Qt::Key_Delete);
        user->paste(text);
    }
    void press(int command) const { user->click(user->command(command)); }
    void expectRefusal(const char* text)
    {
        boxes.expect(information(QStringLiteral("Προσοχή"), QString::fromUtf8(text)));
    }
    void expectRemovalQuestion(QMessageBox::StandardButton answer)
    {
        boxes.expect(okCancel(QMessageBox::Critical, QStringLiteral("Διαγραφή ομάδας"),
            QStringLiteral("Να γίνει η διαγραφή της ομάδας;"), answer));
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

const QString bothGroups = QStringLiteral("Πωλήσεις\nΈξοδα");

} // namespace

TEST_F(GroupsWindowTest, addsWhatIsTypedWithTheKeysAlone)
{
    EXPECT_EQ(user->focusName(), QStringLiteral("Text1"));
    user->type(QStringLiteral(" Δαπάνες "));
    user->press(Qt::Key_Return);
    EXPECT_EQ(user->focusName(), QStringLiteral("Command1(1)"));
    user->press(Qt::Key_Return);
    EXPECT_EQ(linesOf(list()), bothGroups + QStringLiteral("\nΔαπάνες"));
    EXPECT_EQ(selected(), QStringLiteral("Δαπάνες"));
    EXPECT_EQ(user->focusName(), QStringLiteral("Text1"));
    EXPECT_EQ(name().selectedText(), QStringLiteral(" Δαπάνες "));

    const QString odd = QStringLiteral("Ό'μικρον\"; ΰ--%") + QString(10'000, u'Ώ');
    type(odd);
    press(add);
    EXPECT_EQ(selected(), odd);
    EXPECT_FALSE(isOffered());

    user->doubleClickRow(list(), 0);
    type(QStringLiteral("Νέα"));
    press(add);
    expectRemovalQuestion(QMessageBox::Ok);
    press(remove);
    EXPECT_TRUE(linesOf(list()).endsWith(odd)) << "deleted is what is selected and shown";
    EXPECT_EQ(groupOfCode(), QStringLiteral("1/Πωλήσεις"));
}

TEST_F(GroupsWindowTest, refusesBlankAndKnownNamesAndKeepsThemInTheField)
{
    for (const auto& [typed, text] : {std::pair("  ", "Δεν έχετε δώσει την ονομασία της ομάδας"),
             std::pair(" πωλήσεις ", "Η περιγραφή υπάρχει ήδη καταχωρημένη")}) {
        type(QString::fromUtf8(typed));
        expectRefusal(text);
        press(add);
        EXPECT_TRUE(boxes.allSeen()) << typed;
        EXPECT_EQ(name().text(), QString::fromUtf8(typed));
    }
    EXPECT_EQ(linesOf(list()), bothGroups);
}

TEST_F(GroupsWindowTest, aDoubleClickOffersAndAClickTakesBack)
{
    const QPoint exit = user->command(leave).pos();
    user->doubleClickRow(list(), 1);
    EXPECT_TRUE(isOffered());
    EXPECT_EQ(name().text(), QStringLiteral("Έξοδα"));
    EXPECT_EQ(user->command(leave).pos(), exit);
    user->clickRow(list(), 0);
    EXPECT_FALSE(isOffered());
    EXPECT_EQ(name().text(), QString());

    user->press(Qt::Key_Delete);
    user->press(Qt::Key_F2);
    EXPECT_EQ(name().text(), QStringLiteral("Πωλήσεις"));
    user->press(Qt::Key_Down);
    EXPECT_FALSE(isOffered()) << "going to another group is a click on it";
    user->press(Qt::Key_Delete);
    EXPECT_EQ(linesOf(list()), bothGroups);
    expectRemovalQuestion(QMessageBox::Cancel);
    user->press(Qt::Key_Up);
    user->press(Qt::Key_F2);
    user->press(Qt::Key_Delete);
    EXPECT_TRUE(isOffered());
}

TEST_F(GroupsWindowTest, renamesAfterAQuestion)
{
    user->doubleClickRow(list(), 0);
    type(QStringLiteral("  "));
    expectRefusal("Δεν έχετε δώσει την περιγραφή της ομάδας");
    press(rename);
    type(QStringLiteral(" Έξοδα "));
    for (const auto& [answer, lines] :
        {std::pair(QMessageBox::Cancel, bothGroups), std::pair(QMessageBox::Ok, QStringLiteral("Έξοδα\nΈξοδα"))}) {
        EXPECT_TRUE(isOffered());
        boxes.expect(modifyQuestion(answer));
        press(rename);
        EXPECT_EQ(linesOf(list()), lines);
        EXPECT_EQ(name().text(), QStringLiteral(" Έξοδα "));
    }
    EXPECT_EQ(groupOfCode(), QStringLiteral("1/Έξοδα"));
    EXPECT_FALSE(isOffered());
    EXPECT_EQ(list().currentIndex().row(), 0);
    EXPECT_EQ(user->focusName(), QStringLiteral("Text1"));
}

TEST_F(GroupsWindowTest, deletesAfterAQuestion)
{
    user->doubleClickRow(list(), 0);
    expectRemovalQuestion(QMessageBox::Cancel);
    press(remove);
    EXPECT_EQ(linesOf(list()), bothGroups);
    expectRemovalQuestion(QMessageBox::Ok);
    press(remove);
    EXPECT_EQ(groupOfCode(), QStringLiteral("0/ "));
    EXPECT_EQ(selected(), QStringLiteral("Έξοδα"));
    EXPECT_FALSE(isOffered());
    EXPECT_EQ(name().text(), QString());

    user->doubleClickRow(list(), 0);
    expectRemovalQuestion(QMessageBox::Ok);
    user->press(Qt::Key_Delete);
    EXPECT_EQ(linesOf(list()), QString());
    EXPECT_EQ(user->focusName(), QStringLiteral("DBList1"));
}

TEST_F(GroupsWindowTest, aGroupThatAnotherComputerHasDeletedIsToldOf)
{
    for (const int command : {rename, remove}) {
        user->doubleClickRow(list(), 0);
        const QString loaded = name().text();
        book.execute("DELETE FROM omades WHERE aa=(SELECT min(aa) FROM omades)");
        if (command == rename)
            boxes.expect(modifyQuestion(QMessageBox::Ok));
        else
            expectRemovalQuestion(QMessageBox::Ok);
        expectRefusal("Η ομάδα δεν υπάρχει πια. Την έχει διαγράψει άλλος χρήστης.");
        press(command);
        EXPECT_TRUE(boxes.allSeen()) << command;
        EXPECT_EQ(name().text(), loaded);
        EXPECT_FALSE(isOffered());
    }
    EXPECT_EQ(linesOf(list()), QString());
    EXPECT_EQ(groupOfCode(), QStringLiteral("1/Πωλήσεις"));
}

TEST_F(GroupsWindowTest, asksBeforeEachChangeWhetherItMayBeMade)
{
    user->doubleClickRow(list(), 0);
    type(QStringLiteral("Νέα"));
    mayChange = false;
    for (const int command : {add, rename, remove})
        press(command);
    EXPECT_EQ(linesOf(list()), bothGroups);
    EXPECT_EQ(name().text(), QStringLiteral("Νέα"));
    EXPECT_TRUE(isOffered());
}

TEST_F(GroupsWindowTest, escapeLeavesUnlessItWouldLoseATypedName)
{
    user->doubleClickRow(list(), 0);
    user->goTo(name());
    user->type(QStringLiteral("Νέα"));
    user->goTo(user->command(add));
    user->press(Qt::Key_Escape);
    ASSERT_TRUE(window->isVisible());
    EXPECT_EQ(user->focusName(), QStringLiteral("Text1"));
    EXPECT_EQ(name().text(), QStringLiteral("Νέα"));
    press(add);
    user->press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());

    window->show();
    user->goTo(list());
    user->press(Qt::Key_Return);
    EXPECT_EQ(user->focusName(), QStringLiteral("Text1"));
    press(leave);
    EXPECT_FALSE(window->isVisible());
}

} // namespace lorvan::test
