#include "codes/omada_kvdikvn.h"

#include "box_script.h"
#include "driver.h"
#include "main_window_test.h"

#include <QTest>

namespace lorvan::test {
namespace {

/// The groups window on a book with the groups 1 "Πωλήσεις" (two codes, one movement) and 2 "Έξοδα".
class GroupsWindowTest : public testing::Test {
protected:
    static constexpr int leave = 0, add = 1, rename = 2, remove = 3;

    GroupsWindowTest()
    {
        book.addGroup(2, QStringLiteral("Έξοδα"));
        book.addCode(101, QStringLiteral("Χονδρική"), true, 1);
        book.addMovementRow(incomeOf(QDate(2024, 3, 15), cents(100)));
        book.execute("UPDATE kinhseis SET aa_omada=1");
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
        EXPECT_EQ(user->find(QStringLiteral("Label2(3)")).isVisible(), offered);
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
    /// Code:group/name of every code, with the group number of the movement behind.
    [[nodiscard]] QString codes()
    {
        return valueOf(main,
            "SELECT group_concat(kvdikos||':'||aa_omadas||'/'||ifnull(omada,'-'), ' ')||"
            " ' '||(SELECT aa_omada FROM kinhseis) FROM kvdikoi");
    }

    TemporaryBook book;
    Connection main = book.openMain();
    BoxScript boxes;
    bool mayChange = true;
    std::optional<OmadaKvdikvn> window;
    std::optional<Driver> user;
};

const QString bothGroups = QStringLiteral("Πωλήσεις\nΈξοδα");
const QString untouched = QStringLiteral("100:1/Πωλήσεις 200:0/- 101:1/Πωλήσεις 1");

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
}

TEST_F(GroupsWindowTest, refusesBlankAndKnownNamesAndKeepsThemInTheField)
{
    for (const auto& [typed, text] : {std::pair("", "Δεν έχετε δώσει την ονομασία της ομάδας"),
             std::pair("  ", "Δεν έχετε δώσει την ονομασία της ομάδας"),
             std::pair(" Πωλήσεις ", "Η περιγραφή υπάρχει ήδη καταχωρημένη"),
             std::pair("ΈΞΟΔΑ", "Η περιγραφή υπάρχει ήδη καταχωρημένη")}) {
        type(QString::fromUtf8(typed));
        expectRefusal(text);
        press(add);
        EXPECT_TRUE(boxes.allSeen()) << typed;
        EXPECT_EQ(name().text(), QString::fromUtf8(typed));
        EXPECT_EQ(user->focusName(), QStringLiteral("Text1"));
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
    user->press(Qt::Key_Delete);
    EXPECT_EQ(linesOf(list()), bothGroups) << "the current group is not the one that is loaded";
    expectRemovalQuestion(QMessageBox::Cancel);
    user->press(Qt::Key_Up);
    user->press(Qt::Key_Delete);
    EXPECT_TRUE(isOffered());
}

TEST_F(GroupsWindowTest, renamesAGroupAndItsCodesEvenToTheNameOfAnother)
{
    user->doubleClickRow(list(), 0);
    type(QStringLiteral("  "));
    expectRefusal("Δεν έχετε δώσει την περιγραφή της ομάδας");
    press(rename);
    type(QStringLiteral(" Έξοδα "));
    boxes.expect(modifyQuestion(QMessageBox::Cancel));
    press(rename);
    EXPECT_EQ(codes(), untouched);
    EXPECT_TRUE(isOffered());
    EXPECT_EQ(name().text(), QStringLiteral(" Έξοδα "));

    boxes.expect(modifyQuestion(QMessageBox::Ok));
    press(rename);
    EXPECT_EQ(linesOf(list()), QStringLiteral("Έξοδα\nΈξοδα"));
    EXPECT_EQ(codes(), QStringLiteral("100:1/Έξοδα 200:0/- 101:1/Έξοδα 1"));
    EXPECT_FALSE(isOffered());
    EXPECT_EQ(list().currentIndex().row(), 0);
    EXPECT_EQ(user->focusName(), QStringLiteral("Text1"));
}

TEST_F(GroupsWindowTest, deletesAGroupAndLeavesItsCodesWithoutOne)
{
    user->doubleClickRow(list(), 0);
    expectRemovalQuestion(QMessageBox::Cancel);
    press(remove);
    EXPECT_EQ(codes(), untouched);
    EXPECT_EQ(name().text(), QStringLiteral("Πωλήσεις"));

    expectRemovalQuestion(QMessageBox::Ok);
    press(remove);
    EXPECT_EQ(codes(), QStringLiteral("100:0/  200:0/- 101:0/  1"));
    EXPECT_EQ(linesOf(list()), QStringLiteral("Έξοδα"));
    EXPECT_EQ(selected(), QStringLiteral("Έξοδα"));
    EXPECT_FALSE(isOffered());
    EXPECT_EQ(name().text(), QString());

    user->doubleClickRow(list(), 0);
    expectRemovalQuestion(QMessageBox::Ok);
    user->press(Qt::Key_Delete);
    EXPECT_EQ(linesOf(list()), QString());
    EXPECT_EQ(user->focusName(), QStringLiteral("DBList1"));
}

TEST_F(GroupsWindowTest, aGroupAddedWhileAnotherIsLoadedTakesItsPlace)
{
    user->doubleClickRow(list(), 0);
    type(QStringLiteral("Νέα"));
    press(add);
    expectRemovalQuestion(QMessageBox::Ok);
    press(remove);
    EXPECT_EQ(linesOf(list()), bothGroups) << "deleted is what is selected and shown";
    EXPECT_EQ(codes(), untouched);
}

TEST_F(GroupsWindowTest, aGroupThatAnotherComputerHasDeletedIsToldOf)
{
    for (const int command : {rename, remove}) {
        user->doubleClickRow(list(), 0);
        const QString loaded = name().text();
        book.execute("DELETE FROM omades WHERE aa=(SELECT min(aa) FROM omades)");
        boxes.expect(command == rename ? modifyQuestion(QMessageBox::Ok)
                                       : okCancel(QMessageBox::Critical, QStringLiteral("Διαγραφή ομάδας"),
                                           QStringLiteral("Να γίνει η διαγραφή της ομάδας;"), QMessageBox::Ok));
        expectRefusal("Η ομάδα δεν υπάρχει πια. Την έχει διαγράψει άλλος χρήστης.");
        press(command);
        EXPECT_TRUE(boxes.allSeen()) << command;
        EXPECT_EQ(name().text(), loaded);
        EXPECT_FALSE(isOffered());
    }
    EXPECT_EQ(linesOf(list()), QString());
    EXPECT_EQ(codes(), untouched);
}

TEST_F(GroupsWindowTest, changesNothingWithoutLeaveOrWhenTheBookCannotBeWritten)
{
    user->doubleClickRow(list(), 0);
    type(QStringLiteral("Νέα"));
    mayChange = false;
    for (const int command : {add, rename, remove})
        press(command);
    mayChange = true;

    main.setBusyTimeout(std::chrono::milliseconds(1));
    Connection other = book.openMain();
    other.execute("BEGIN IMMEDIATE");
    boxes.expect(modifyQuestion(QMessageBox::Ok));
    boxes.expect(partly(
        warning(QStringLiteral("Προσοχή"), QStringLiteral("χρησιμοποιείται αυτή τη στιγμή από άλλο πρόγραμμα"))));
    press(rename);
    other.execute("ROLLBACK");
    EXPECT_EQ(linesOf(list()), bothGroups);
    EXPECT_EQ(codes(), untouched);
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
    EXPECT_TRUE(window->isVisible());
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
