#include "printing/analysh_frm.h"

#include "support/temporary_book.h"
#include "windows/box_script.h"

#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QHelpEvent>
#include <QTemporaryDir>
#include <QToolTip>

#include <optional>

namespace lorvan::test {
namespace {

/// The screen on a book with the codes 100 "Λιανική", 200 "Προμήθειες" and 7 "άλλα", inactive.
class AnalysisWindowTest : public testing::Test {
protected:
    AnalysisWindowTest() { book.addCode(7, "άλλα", true, 0, false); }

    void open()
    {
        window.reset();
        window.emplace(main, SettingsStore(settings.path()), "1/3/2024");
        user.emplace(*window);
        showActive(*window);
    }
    [[nodiscard]] QGroupBox& frame(int group) const
    {
        return user->find<QGroupBox>(QString("SSFrame1(%1)").arg(group));
    }
    [[nodiscard]] QLineEdit& editor() const { return user->find<QLineEdit>("Text2"); }
    [[nodiscard]] QComboBox& codes() const { return user->find<QComboBox>("Combo1"); }
    [[nodiscard]] QWidget& chooser(int box) const { return user->find(QString("Command2(%1)").arg(box)); }
    void save() const { user->click(user->find("Command1")); }
    /// A key for the list that is open, as the window system gives it.
    static void pressInList(Qt::Key key, const QString& text = {})
    {
        QTest::sendKeyEvent(QTest::Click, QApplication::activePopupWidget()->windowHandle(), key, text, {});
    }
    /// Opens the list of a box with the mouse, goes to the code whose text begins so, and takes it.
    void choose(int box, const QString& beginning) const
    {
        user->click(chooser(box));
        for (const QChar c : beginning)
            pressInList(static_cast<Qt::Key>(c.toUpper().unicode()), QString(c));
        pressInList(Qt::Key_Return);
    }
    void startRenaming(int group) const
    {
        QTest::mouseDClick(&frame(group), Qt::LeftButton, {}, QPoint(frame(group).width() / 2, 8));
    }
    [[nodiscard]] QString shown(int group) const
    {
        const AnalysisGroup each = window->groups().at(static_cast<std::size_t>(group) - 1);
        return each.title + u'|' + each.boxes[0].text + u'/' + each.boxes[0].tag + u'|' + each.boxes[1].text + u'/'
            + each.boxes[1].tag;
    }
    TemporaryBook book;
    Connection main = book.openMain();
    SettingsStore settings{book.path("Lorvan.ini")};
    BoxScript boxes;
    std::optional<AnalyshFRM> window;
    std::optional<Driver> user;
};

} // namespace

TEST_F(AnalysisWindowTest, aCutTextIsShownAboveTheHintHowToClearIt)
{
    const QString text = "100 " + QString(60, u'Λ');
    settings.write({{"AnakyshFRM", "0Kvd", text}});
    open();
    for (const int box : {0, 1}) {
        QHelpEvent event(QEvent::ToolTip, {}, user->field(box).mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&user->field(box), &event);
        const QString hint = "Πατήστε DELγια τη διαγραφή της ομάδας";
        EXPECT_EQ(
            QToolTip::text(), box == 0 ? Qt::convertFromPlainText(text + u'\n' + hint, Qt::WhiteSpaceNormal) : hint);
        QToolTip::hideText();
    }
}

TEST_F(AnalysisWindowTest, theListLiesOverItsBoxAndIsTypedThrough)
{
    open();
    EXPECT_EQ(window->windowTitle(), "Ανάλυση ταμείου ημέρας: 1/3/2024");
    EXPECT_EQ(user->focusName(), "Text1(0)");
    QLineEdit& box = user->field(5);
    user->click(chooser(5));
    ASSERT_TRUE(codes().isVisible());
    EXPECT_EQ(QRect(codes().mapToGlobal(QPoint()), codes().size()), QRect(box.mapToGlobal(QPoint()), box.size()));
    QStringList lines;
    for (int row = 0; row < codes().count(); ++row)
        lines += codes().itemText(row) + u'=' + codes().itemData(row).toString();
    EXPECT_EQ(lines.join(u'\n'), "7 άλλα=7\n100 Λιανική=100\n200 Προμήθειες=200");
    pressInList(Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_FALSE(codes().isVisible());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(user->focusName(), "Text1(5)");

    choose(5, "προ");
    EXPECT_FALSE(codes().isVisible());
    choose(4, "10");
    EXPECT_EQ(shown(3), "Ομαδα 3|100 Λιανική/100|200 Προμήθειες/200");
    user->click(chooser(5));
    EXPECT_EQ(codes().currentText(), box.text());
    pressInList(Qt::Key_Up);
    pressInList(Qt::Key_Up);
    pressInList(Qt::Key_Return);
    EXPECT_EQ(box.text(), "7 άλλα");
}

TEST_F(AnalysisWindowTest, aBoxTakesNoTypingAndDeleteEmptiesIt)
{
    open();
    choose(0, "100");
    user->goTo(user->field(0));
    user->type("5α ");
    user->press(Qt::Key_Backspace);
    user->paste("200 Προμήθειες");
    EXPECT_EQ(shown(1), "Ομαδα 1|100 Λιανική/100|/");
    user->press(Qt::Key_Delete);
    EXPECT_EQ(shown(1), "Ομαδα 1|/|/");
    user->press(Qt::Key_Return);
    EXPECT_EQ(user->focusName(), "Command2(0)");
}

TEST_F(AnalysisWindowTest, everyWayOutOfTheTitleKeepsIt)
{
    open();
    startRenaming(3);
    ASSERT_TRUE(editor().isVisible());
    EXPECT_EQ(editor().selectedText(), "Ομαδα 3");
    const QRect strip(editor().mapTo(&*window, QPoint()), editor().size());
    EXPECT_TRUE(strip.contains(frame(3).mapTo(&*window, QPoint(20, 8)))) << "over the title";
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Tab}) {
        const QString title = QString("Τίτλος %1").arg(key);
        startRenaming(3);
        user->type(title);
        user->press(key);
        EXPECT_FALSE(editor().isVisible());
        EXPECT_EQ(frame(3).title(), title);
    }
    user->goTo(chooser(7));
    user->press(Qt::Key_F2);
    user->type("Άλλη");
    user->click(user->field(0));
    EXPECT_EQ(frame(4).title(), "Άλλη");
    EXPECT_EQ(user->focusName(), "Text1(0)");
    QTest::mouseDClick(&frame(0), Qt::LeftButton, {}, QPoint(60, 8));
    EXPECT_FALSE(editor().isVisible());
    user->press(Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(AnalysisWindowTest, theButtonStoresAndTheFrameDoesNot)
{
    const QString saved = "Τράπεζα & Σία|/|200 Προμήθειες/200 ";
    open();
    choose(1, "200");
    startRenaming(1);
    user->type("Τράπεζα & Σία");
    save();
    EXPECT_FALSE(window->isVisible());

    open();
    EXPECT_EQ(shown(1), saved);
    EXPECT_EQ(frame(1).title(), "Τράπεζα && Σία") << "marks no key";
    user->goTo(user->field(1));
    user->press(Qt::Key_Delete);
    startRenaming(1);
    user->type("Μόνο τώρα");
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(shown(1), "Μόνο τώρα|/|/");
    open();
    EXPECT_EQ(shown(1), saved);
}

TEST_F(AnalysisWindowTest, failuresAreToldAndLoseNothing)
{
    open();
    choose(0, "200");
    ASSERT_TRUE(QDir(book.folder()).mkdir("Lorvan.ini")); // no file can be there
    boxes.expect(warningWith("επιλογές"));
    save();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(shown(1), "Ομαδα 1|200 Προμήθειες/200|/");
    EXPECT_THROW(AnalyshFRM(main, settings, {}), SettingsError);
    ASSERT_TRUE(QDir(book.folder()).rmdir("Lorvan.ini"));

    open();
    book.execute("ALTER TABLE kvdikoi RENAME TO x");
    boxes.expect(warningWith("kvdikoi"));
    user->click(chooser(0));
    EXPECT_FALSE(codes().isVisible());
    book.execute("ALTER TABLE x RENAME TO kvdikoi");
    choose(0, "100");
    EXPECT_EQ(user->field(0).text(), "100 Λιανική");
}

} // namespace lorvan::test
