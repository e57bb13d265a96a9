#include "printing/epilogh_omadvn.h"

#include "windows/box_script.h"

#include <QDir>
#include <QTemporaryDir>

#include <optional>

namespace lorvan::test {
namespace {

class GroupChoiceTest : public testing::Test {
protected:
    void open()
    {
        window.reset();
        window.emplace(groups, SettingsStore(folder.filePath("Lorvan.ini")));
        user.emplace(*window);
        showActive(*window);
    }
    void clickRow(int column, int row, Qt::KeyboardModifiers modifiers = {}) const
    {
        user->clickRow(user->find<QListView>(QString("List1(%1)").arg(column)), row, modifiers);
    }
    /// Numbers of the chosen groups, the columns apart by " | ".
    [[nodiscard]] QString chosen() const
    {
        QStringList columns;
        for (const auto& column : window->choice()) {
            QStringList numbers;
            for (const ChosenGroup& group : column)
                numbers += QString::number(group.number);
            columns += numbers.join(u' ');
        }
        return columns.join(" | ");
    }

    QTemporaryDir folder;
    std::vector<CodeGroup> groups{{3, "Πωλήσεις"}, {7, "Έξοδα & άλλα"}, {8, "Μισθοί"}, {-2, " Τράπεζες"}};
    BoxScript boxes;
    std::optional<EpiloghOmadvn> window;
    std::optional<Driver> user;
};

} // namespace

TEST_F(GroupChoiceTest, keysAloneChooseInAllThreeListsAndGoOn)
{
    open();
    EXPECT_EQ(user->focusName(), "List1(0)");
    user->type(" έ ");
    user->press(Qt::Key_Down);
    user->type("\t  \n");
    user->press(Qt::Key_End);
    user->type(" ");
    EXPECT_EQ(chosen(), "3 7 |  | -2");
    user->press(Qt::Key_Return);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(GroupChoiceTest, clicksToggleAndSayHowManyAreChosen)
{
    open();
    const auto count = [this] { return user->text("count(0)"); };
    EXPECT_EQ(count(), "Καμία επιλεγμένη");
    clickRow(0, 1);
    EXPECT_EQ(count(), "1 επιλεγμένη");
    clickRow(0, 3, Qt::ShiftModifier);
    EXPECT_EQ(chosen(), "7 8 -2 |  | ");
    EXPECT_EQ(count(), "3 επιλεγμένες");
    clickRow(0, 2, Qt::ControlModifier);
    clickRow(0, 1);
    EXPECT_EQ(chosen(), "-2 |  | ");
}

TEST_F(GroupChoiceTest, whateverClosesItStoresAndPositionsAreRestored)
{
    open();
    clickRow(1, 2);
    user->press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    open();
    clickRow(2, 2);
    window->close();
    EXPECT_FALSE(window->isVisible());
    groups.erase(groups.begin());
    open();
    EXPECT_EQ(chosen(), " | -2 | -2") << "by position, not by number";
    groups.resize(1);
    open();
    EXPECT_EQ(chosen(), " |  | ") << "a position that is no more";
}

TEST_F(GroupChoiceTest, aStoreThatFailsIsToldOfAndTheChoiceGoesOn)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("Lorvan.ini")); // no file can be there
    const ExpectedBox failed = warningWith("Lorvan.ini");
    boxes.expect(failed);
    open();
    clickRow(0, 1);
    boxes.expect(failed);
    user->press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(chosen(), "7 |  | ");
}

} // namespace lorvan::test
