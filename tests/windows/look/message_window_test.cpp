#include "look/message_window.h"

#include "windows/driver.h"

#include <QKeyEvent>
#include <QTimer>

namespace lorvan::test {

TEST(MessageWindow, aKeyThatIsStillHeldAnswersNothing)
{
    bool outlived = false;
    QTimer::singleShot(0, qApp, [&outlived] {
        QWidget* const box = QApplication::activeModalWidget();
        ASSERT_TRUE(box);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape}) {
            QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
            QApplication::sendEvent(box->focusWidget() ? box->focusWidget() : box, &held);
        }
        outlived = box->isVisible();
        QTest::keyClick(box, Qt::Key_Escape);
    });
    EXPECT_FALSE(askOkCancel(nullptr, QMessageBox::Question, "Ερώτηση", "Ναι;"));
    EXPECT_TRUE(outlived);
}

TEST(MessageWindow, isWideEnoughForItsTitle)
{
    const QString title = "Ένας τίτλος που είναι πολύ μακρύτερος από το κείμενο";
    QFont bold = QApplication::font();
    bold.setBold(true);
    int width = 0;
    QTimer::singleShot(0, qApp, [&width] {
        width = QApplication::activeModalWidget()->width();
        QApplication::activeModalWidget()->close();
    });
    showMessage(nullptr, QMessageBox::Information, title, "α");
    EXPECT_GE(width, QFontMetrics(bold).horizontalAdvance(title) + 100);
}

} // namespace lorvan::test
