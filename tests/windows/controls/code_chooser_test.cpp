#include "controls/code_chooser.h"
#include "windows/shown_form.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QWheelEvent>

namespace lorvan::test {
namespace {

const QString stale = "παλιό";

class CodeChooserTest : public testing::Test {
protected:
    void SetUp() override
    {
        chooser->setRows({"  100 ΠΩΛΗΣΕΙΣ", "  210 ΔΕΗ", "300"});
        chooser->showText(stale);
        form.show();
        other->setFocus();
        chooser->setFocus(Qt::TabFocusReason);
        lefts.clear();
    }

    ShownForm form;
    CodeChooser* chooser = form.add(new CodeChooser);
    QLineEdit* other = form.add(new QLineEdit);
    QSignalSpy picks{chooser, &CodeChooser::picked};
    QSignalSpy lefts{chooser, &CodeChooser::left};
};

} // namespace

TEST_F(CodeChooserTest, rowsComeAndGoUnderAnUnchangedText)
{
    chooser->setRows({"  400 ΝΕΟΣ"});
    EXPECT_EQ(chooser->currentText(), stale);
    chooser->setCurrentRow(0);
    EXPECT_EQ(chooser->currentText(), stale);
    chooser->setRows({});
    EXPECT_EQ(chooser->currentText(), stale);
    EXPECT_EQ(picks.count(), 0);
}

TEST_F(CodeChooserTest, theListPicksARowLeavesTheTextToTheOwnerAndIsNoLeaving)
{
    QSignalSpy enters(chooser, &CodeChooser::enterPressed);
    QTest::keyClick(chooser, Qt::Key_Enter);
    EXPECT_EQ(enters.count(), 1);
    chooser->showPopup();
    QAbstractItemView* const list = chooser->view();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(list->window()));
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(list, key);
    ASSERT_EQ(picks.count(), 1);
    EXPECT_EQ(picks.first().at(0).toInt(), chooser->currentIndex());
    EXPECT_EQ(chooser->currentText(), stale);
    EXPECT_EQ(enters.count(), 1);
    EXPECT_EQ(lefts.count(), 0);
}

TEST_F(CodeChooserTest, typingForgetsTheRowAndLeavingWithTheTextOfOnePicksNothing)
{
    QTest::keyClicks(chooser, "300");
    QTest::keyClick(chooser, 'a', Qt::AltModifier);
    EXPECT_EQ(chooser->currentText(), "300");
    QTest::keyClick(chooser, Qt::Key_Tab);
    EXPECT_TRUE(other->hasFocus());
    EXPECT_EQ(picks.count(), 0);
    EXPECT_EQ(lefts.count(), 1);

    chooser->setFocus(Qt::TabFocusReason);
    chooser->setCurrentRow(1);
    QTest::keyClicks(chooser, "1");
    QTest::keyClick(chooser, Qt::Key_Down); // from no row to the first, not from the second to the third
    ASSERT_EQ(picks.count(), 1);
    EXPECT_EQ(picks.first().at(0).toInt(), 0);
}

TEST_F(CodeChooserTest, theWheelChangesNothingWhileItIsClosed)
{
    chooser->setCurrentRow(0);
    QWheelEvent wheel({5, 5}, chooser->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
        Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(chooser, &wheel);
    EXPECT_EQ(chooser->currentIndex(), 0);
    EXPECT_FALSE(wheel.isAccepted());
}

TEST_F(CodeChooserTest, aLongTextShowsItsBeginning)
{
    other->setFocus(Qt::TabFocusReason);
    chooser->showText(QString(200, u'Ω'));
    chooser->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(chooser->lineEdit()->selectedText(), chooser->currentText());
    EXPECT_EQ(chooser->lineEdit()->cursorPosition(), 0);
}

} // namespace lorvan::test
