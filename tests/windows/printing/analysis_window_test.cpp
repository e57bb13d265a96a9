#include "printing/analysh_frm.h"

#include "support/temporary_book.h"
#include "windows/box_script.h"
#include "windows/driver.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHelpEvent>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>

#include <optional>

namespace lorvan::test {
namespace {

/// The screen on a book with the codes 100 "Λιανική", 200 "Προμήθειες" and 7 "άλλα", inactive.
class AnalysisWindowTest : public testing::Test {
protected:
    AnalysisWindowTest() { book.addCode(7, QStringLiteral("άλλα"), true, 0, false); }

    void open()
    {
        window.reset();
        window.emplace(main, SettingsStore(settings.path()), QStringLiteral("1/3/2024"));
        user.emplace(*window);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&*window));
    }
    [[nodiscard]] QGroupBox& frame(int group) const
    {
        return user->find<QGroupBox>(QStringLiteral("SSFrame1(%1)").arg(group));
    }
    [[nodiscard]] QLineEdit& editor() const { return user->find<QLineEdit>(QStringLiteral("Text2")); }
    [[nodiscard]] QComboBox& codes() const { return user->find<QComboBox>(QStringLiteral("Combo1")); }
    [[nodiscard]] QWidget& chooser(int box) const { return user->find(QStringLiteral("Command2(%1)").arg(box)); }
    void save() const { user->click(user->find(QStringLiteral("Command1"))); }
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
    [[nodiscard]] QString stored(const char* section, const char* key) const
    {
        return settings.value(QString::fromLatin1(section), QString::fromLatin1(key), QStringLiteral("-"));
    }

    TemporaryBook book;
    Connection main = book.openMain();
    SettingsStore settings{book.path(QStringLiteral("Lorvan.ini"))};
    BoxScript boxes;
    std::optional<AnalyshFRM> window;
    std::optional<Driver> user;
};

} // namespace

TEST_F(AnalysisWindowTest, opensWithDefaultsOrWithWhatWasStored)
{
    open();
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Ανάλυση ταμείου ημέρας: 1/3/2024"));
    EXPECT_EQ(user->focusName(), QStringLiteral("Text1(0)"));
    EXPECT_EQ(shown(4), QStringLiteral("Ομαδα 4|/|/"));

    settings.write({{QStringLiteral("AnaLyshFRM"), QStringLiteral("omada2"), QStringLiteral("Τράπεζα & Σία")},
        {QStringLiteral("AnakyshFRM"), QStringLiteral("2Kvd"), QStringLiteral("100 Λιανική")},
        {QStringLiteral("AnakyshFRM"), QStringLiteral("3Kvd"), QStringLiteral("100")}});
    open();
    EXPECT_EQ(shown(2), QStringLiteral("Τράπεζα & Σία|100 Λιανική/100 |100/"));
    EXPECT_EQ(frame(2).title(), QStringLiteral("Τράπεζα && Σία")) << "marks no key";
}

TEST_F(AnalysisWindowTest, aCutTextIsShownAboveTheHintHowToClearIt)
{
    const QString text = QStringLiteral("100 ") + QString(60, u'Λ');
    settings.write({{QStringLiteral("AnakyshFRM"), QStringLiteral("0Kvd"), text}});
    open();
    for (const int box : {0, 1}) {
        QHelpEvent event(QEvent::ToolTip, {}, user->field(box).mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&user->field(box), &event);
        const QString hint = QStringLiteral("Πατήστε DELγια τη διαγραφή της ομάδας");
        EXPECT_EQ(
            QToolTip::text(), box == 0 ? Qt::convertFromPlainText(text + u'\n' + hint, Qt::WhiteSpaceNormal) : hint);
        QToolTip::hideText();
    }
}

TEST_F(AnalysisWindowTest, theListLiesOverItsBoxAndIsTypedThrough)
{
    open();
    QLineEdit& box = user->field(5);
    user->click(chooser(5));
    ASSERT_TRUE(codes().isVisible());
    EXPECT_EQ(QRect(codes().mapToGlobal(QPoint()), codes().size()), QRect(box.mapToGlobal(QPoint()), box.size()));
    QStringList lines;
    for (int row = 0; row < codes().count(); ++row)
        lines += codes().itemText(row) + u'=' + codes().itemData(row).toString();
    EXPECT_EQ(lines.join(u'\n'), QStringLiteral("7 άλλα=7\n100 Λιανική=100\n200 Προμήθειες=200"));
    pressInList(Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_FALSE(codes().isVisible());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(user->focusName(), QStringLiteral("Text1(5)"));

    choose(5, QStringLiteral("προ"));
    EXPECT_FALSE(codes().isVisible());
    choose(4, QStringLiteral("10"));
    EXPECT_EQ(shown(3), QStringLiteral("Ομαδα 3|100 Λιανική/100|200 Προμήθειες/200"));
    user->click(chooser(5));
    EXPECT_EQ(codes().currentText(), box.text());
    pressInList(Qt::Key_Up);
    pressInList(Qt::Key_Up);
    pressInList(Qt::Key_Return);
    EXPECT_EQ(box.text(), QStringLiteral("7 άλλα"));
}

TEST_F(AnalysisWindowTest, aBoxTakesNoTypingAndDeleteEmptiesIt)
{
    open();
    choose(0, QStringLiteral("100"));
    user->goTo(user->field(0));
    user->type(QStringLiteral("5α "));
    user->press(Qt::Key_Backspace);
    user->paste(QStringLiteral("200 Προμήθειες"));
    EXPECT_EQ(shown(1), QStringLiteral("Ομαδα 1|100 Λιανική/100|/"));
    user->press(Qt::Key_Delete);
    EXPECT_EQ(shown(1), QStringLiteral("Ομαδα 1|/|/"));
    user->press(Qt::Key_Return);
    EXPECT_EQ(user->focusName(), QStringLiteral("Command2(0)"));
}

TEST_F(AnalysisWindowTest, everyWayOutOfTheTitleKeepsIt)
{
    open();
    startRenaming(3);
    ASSERT_TRUE(editor().isVisible());
    EXPECT_EQ(editor().selectedText(), QStringLiteral("Ομαδα 3"));
    const QRect strip(editor().mapTo(&*window, QPoint()), editor().size());
    EXPECT_TRUE(strip.contains(frame(3).mapTo(&*window, QPoint(20, 8)))) << "over the title";
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Tab}) {
        const QString title = QStringLiteral("Τίτλος %1").arg(key);
        startRenaming(3);
        user->type(title);
        user->press(key);
        EXPECT_FALSE(editor().isVisible());
        EXPECT_TRUE(window->isVisible()) << key;
        EXPECT_EQ(frame(3).title(), title);
    }
    user->goTo(chooser(7));
    user->press(Qt::Key_F2);
    user->type(QStringLiteral("Άλλη"));
    user->click(user->field(0));
    EXPECT_FALSE(editor().isVisible());
    EXPECT_EQ(frame(4).title(), QStringLiteral("Άλλη"));
    EXPECT_EQ(user->focusName(), QStringLiteral("Text1(0)"));
    QTest::mouseDClick(&frame(0), Qt::LeftButton, {}, QPoint(60, 8));
    EXPECT_FALSE(editor().isVisible());
    user->press(Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(stored("AnalyshFRM", "Omada4"), QStringLiteral("-")) << "not saved yet";
}

TEST_F(AnalysisWindowTest, theButtonStoresAndTheFrameDoesNot)
{
    open();
    choose(1, QStringLiteral("200"));
    startRenaming(1);
    user->type(QStringLiteral("Τράπεζα"));
    save();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(stored("AnalyshFRM", "Omada1"), QStringLiteral("Τράπεζα"));
    EXPECT_EQ(stored("AnakyshFRM", "1Kvd"), QStringLiteral("200 Προμήθειες"));
    EXPECT_EQ(stored("AnakyshFRM", "7Kvd"), QString());

    open();
    user->goTo(user->field(1));
    user->press(Qt::Key_Delete);
    startRenaming(1);
    user->type(QStringLiteral("Μόνο τώρα"));
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(shown(1), QStringLiteral("Μόνο τώρα|/|/"));
    EXPECT_EQ(stored("AnalyshFRM", "Omada1"), QStringLiteral("Τράπεζα"));
    EXPECT_EQ(stored("AnakyshFRM", "1Kvd"), QStringLiteral("200 Προμήθειες"));
}

TEST_F(AnalysisWindowTest, failuresAreToldAndLoseNothing)
{
    open();
    choose(0, QStringLiteral("200"));
    ASSERT_TRUE(QDir(book.folder()).mkdir(QStringLiteral("Lorvan.ini"))); // no file can be there
    boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("επιλογές"))));
    save();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(shown(1), QStringLiteral("Ομαδα 1|200 Προμήθειες/200|/"));
    EXPECT_THROW(AnalyshFRM(main, settings, {}), SettingsError);
    ASSERT_TRUE(QDir(book.folder()).rmdir(QStringLiteral("Lorvan.ini")));

    open();
    book.execute("ALTER TABLE kvdikoi RENAME TO x");
    boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("kvdikoi"))));
    user->click(chooser(0));
    EXPECT_FALSE(codes().isVisible());
    book.execute("ALTER TABLE x RENAME TO kvdikoi");
    choose(0, QStringLiteral("100"));
    EXPECT_EQ(user->field(0).text(), QStringLiteral("100 Λιανική"));
}

} // namespace lorvan::test
