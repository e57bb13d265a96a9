#include "codes/group_card_choice.h"
#include "printing/epilogh_omadvn.h"

#include "windows/box_script.h"
#include "windows/driver.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <optional>

namespace lorvan::test {
namespace {

class GroupChoiceTest : public testing::Test {
protected:
    void open()
    {
        window.reset();
        window.emplace(groups, SettingsStore(settings.path()));
        user.emplace(*window);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&*window));
    }
    [[nodiscard]] QListView& list(int column) const
    {
        return user->find<QListView>(QStringLiteral("List1(%1)").arg(column));
    }
    void clickRow(int column, int row, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QPoint centre = list(column).visualRect(list(column).model()->index(row, 0)).center();
        QTest::mouseClick(list(column).viewport(), Qt::LeftButton, modifiers, centre);
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
        return columns.join(QStringLiteral(" | "));
    }
    /// Positions, condition and names as stored.
    [[nodiscard]] QString stored(int column) const
    {
        const QString number = QString::number(column);
        return settings.value(QStringLiteral("Listes"), QStringLiteral("List1(%1)").arg(number), {}) + u';'
            + settings.value(QStringLiteral("Omades"), QStringLiteral("Omada(%1)").arg(number), {}) + u';'
            + settings.value(QStringLiteral("P_Omadvn"), QStringLiteral("P_omadvn") + number, QStringLiteral("-"));
    }

    QTemporaryDir folder;
    SettingsStore settings{folder.filePath(QStringLiteral("Lorvan.ini"))};
    std::vector<CodeGroup> groups{{3, QStringLiteral("Πωλήσεις")}, {7, QStringLiteral("Έξοδα & άλλα")},
        {8, QStringLiteral("Μισθοί")}, {-2, QStringLiteral(" Τράπεζες")}};
    BoxScript boxes;
    std::optional<EpiloghOmadvn> window;
    std::optional<Driver> user;
};

} // namespace

TEST_F(GroupChoiceTest, keysAloneChooseInAllThreeListsAndGoOn)
{
    open();
    EXPECT_EQ(user->focusName(), QStringLiteral("List1(0)"));
    user->type(QStringLiteral(" έ "));
    user->press(Qt::Key_Down);
    user->press(Qt::Key_Tab);
    user->type(QStringLiteral("  "));
    user->press(Qt::Key_Return);
    user->press(Qt::Key_End);
    user->type(QStringLiteral(" "));
    EXPECT_EQ(chosen(), QStringLiteral("3 7 |  | -2"));
    user->press(Qt::Key_Return);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(stored(0), QStringLiteral("0,1,;( aa_omada=3  or aa_omada=7);Πωλήσεις, Έξοδα & άλλα"));
    EXPECT_EQ(stored(1), QStringLiteral(";;"));
    EXPECT_EQ(stored(2), QStringLiteral("3,;( aa_omada=-2); Τράπεζες"));

    const CardColumns columns = cardColumnsOf(window->choice());
    EXPECT_EQ(columns[0].title, QStringLiteral("Πωλήσεις, Έξοδα & άλλα"));
    EXPECT_EQ(columns[0].groups, (std::vector<qint32>{3, 7}));
    EXPECT_EQ(columns[1].title, QString());
    EXPECT_TRUE(columns[1].groups.empty());
}

TEST_F(GroupChoiceTest, clicksToggleAndSayHowManyAreChosen)
{
    open();
    const auto count = [this] { return user->text(QStringLiteral("count(0)")); };
    EXPECT_EQ(count(), QStringLiteral("Καμία επιλεγμένη"));
    clickRow(0, 1);
    EXPECT_EQ(count(), QStringLiteral("1 επιλεγμένη"));
    clickRow(0, 3, Qt::ShiftModifier);
    EXPECT_EQ(chosen(), QStringLiteral("7 8 -2 |  | "));
    EXPECT_EQ(count(), QStringLiteral("3 επιλεγμένες"));
    clickRow(0, 2, Qt::ControlModifier);
    clickRow(0, 1);
    EXPECT_EQ(chosen(), QStringLiteral("-2 |  | "));
}

TEST_F(GroupChoiceTest, whateverClosesItStoresAndPositionsAreRestored)
{
    for (const bool byEscape : {true, false}) {
        open();
        clickRow(byEscape ? 1 : 2, 2);
        if (byEscape)
            user->press(Qt::Key_Escape);
        else
            window->close();
        EXPECT_FALSE(window->isVisible());
    }
    groups.erase(groups.begin());
    open();
    EXPECT_EQ(chosen(), QStringLiteral(" | -2 | -2")) << "by position, not by number";

    settings.write({{QStringLiteral("LISTES"), QStringLiteral("list1(0)"), QStringLiteral("2,x,,-1,99,0,")}});
    open();
    EXPECT_EQ(chosen(), QStringLiteral("7 -2 | -2 | -2"));
}

TEST_F(GroupChoiceTest, aStoreThatFailsIsToldOfAndTheChoiceGoesOn)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("Lorvan.ini"))); // no file can be there
    const ExpectedBox failed = partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("Lorvan.ini")));
    boxes.expect(failed);
    open();
    clickRow(0, 1);
    boxes.expect(failed);
    user->press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(chosen(), QStringLiteral("7 |  | "));
}

} // namespace lorvan::test
