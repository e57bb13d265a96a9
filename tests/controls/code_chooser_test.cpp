#include "controls/code_chooser.h"
#include "controls/shown_form.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

class CodeChooserTest : public testing::Test {
protected:
    void SetUp() override
    {
        chooser->setRows({QStringLiteral("  100 ΠΩΛΗΣΕΙΣ"), QStringLiteral("  210 ΔΕΗ"), QStringLiteral("300")});
        chooser->showText(QStringLiteral("παλιό"));
        ASSERT_TRUE(form.show());
        other->setFocus();
        chooser->setFocus(Qt::TabFocusReason);
        lefts.clear();
    }

    ShownForm form;
    CodeChooser* chooser = form.add(new CodeChooser);
    QLineEdit* other = form.add(new QLineEdit);
    QSignalSpy picks{chooser, &CodeChooser::picked};
    QSignalSpy enters{chooser, &CodeChooser::enterPressed};
    QSignalSpy lefts{chooser, &CodeChooser::left};
};

} // namespace

TEST_F(CodeChooserTest, rowsComeAndGoUnderAnUnchangedText)
{
    chooser->setRows({QStringLiteral("  400 ΝΕΟΣ")});
    EXPECT_EQ(chooser->currentText(), QStringLiteral("παλιό"));
    chooser->setCurrentRow(0);
    EXPECT_EQ(chooser->currentIndex(), 0);
    EXPECT_EQ(chooser->currentText(), QStringLiteral("παλιό"));
    chooser->setRows({});
    EXPECT_EQ(chooser->currentText(), QStringLiteral("παλιό"));
    EXPECT_EQ(picks.count(), 0);
}

TEST_F(CodeChooserTest, choosingReportsTheRowAndLeavesTheTextToTheOwner)
{
    chooser->showPopup();
    QAbstractItemView* const list = chooser->view();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(list->window()));
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    ASSERT_EQ(picks.count(), 1);
    const int row = picks.takeFirst().at(0).toInt();
    EXPECT_EQ(row, chooser->currentIndex());
    EXPECT_EQ(chooser->currentText(), QStringLiteral("παλιό"));
    EXPECT_EQ(enters.count(), 0);

    chooser->setCurrentRow(0);
    QTest::keyClick(chooser, Qt::Key_Down);
    ASSERT_EQ(picks.count(), 1);
    EXPECT_EQ(picks.first().at(0).toInt(), 1);
    EXPECT_EQ(chooser->currentText(), QStringLiteral("παλιό"));
}

TEST_F(CodeChooserTest, leavingWithTheTextOfARowPicksNothing)
{
    QTest::keyClicks(chooser, QStringLiteral("300"));
    EXPECT_EQ(chooser->currentText(), QStringLiteral("300"));
    QTest::keyClick(chooser, Qt::Key_Tab);
    EXPECT_TRUE(other->hasFocus());
    EXPECT_EQ(picks.count(), 0);
    EXPECT_EQ(lefts.count(), 1);
}

TEST_F(CodeChooserTest, enterIsReportedAndGoesNoFurther)
{
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(chooser, enter);
    EXPECT_EQ(enters.count(), 2);
    EXPECT_EQ(picks.count(), 0);
    EXPECT_TRUE(chooser->hasFocus());
    EXPECT_EQ(chooser->count(), 3);
}

TEST_F(CodeChooserTest, typingIsReportedAndForgetsTheRow)
{
    QSignalSpy typings(chooser, &CodeChooser::typed);
    chooser->setCurrentRow(1);
    chooser->showText(QStringLiteral("210 ΔΕΗ"));
    EXPECT_EQ(typings.count(), 0);
    QTest::keyClicks(chooser, QStringLiteral("1"));
    EXPECT_EQ(typings.count(), 1);
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

TEST_F(CodeChooserTest, anOpenListIsNoLeavingAndALongTextShowsItsBeginning)
{
    chooser->showPopup();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(chooser->view()->window()));
    chooser->hidePopup();
    EXPECT_EQ(lefts.count(), 0);
    other->setFocus(Qt::TabFocusReason);
    chooser->showText(QString(200, u'Ω'));
    EXPECT_EQ(chooser->lineEdit()->cursorPosition(), 0);
    chooser->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(chooser->lineEdit()->selectedText(), chooser->currentText());
    EXPECT_EQ(chooser->lineEdit()->cursorPosition(), 0);
}

} // namespace lorvan::test
