#include "windows/driver.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QWindow>

namespace lorvan::test {

Driver::Driver(QWidget& window)
    : m_window(window)
{
}

QLineEdit& Driver::field(int index) const
{
    return find<QLineEdit>(QStringLiteral("Text1(%1)").arg(index));
}

QAbstractButton& Driver::command(int index) const
{
    return find<QAbstractButton>(QStringLiteral("Command1(%1)").arg(index));
}

QString Driver::focusName() const
{
    activate();
    const QWidget* const focused = m_window.focusWidget();
    return focused ? focused->objectName() : QString();
}

void Driver::activate() const
{
    if (QApplication::activeWindow() == &m_window)
        return;
    m_window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
}

void Driver::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    activate();
    QTest::sendKeyEvent(QTest::Click, m_window.windowHandle(), key, QString(), modifiers);
}

void Driver::type(const QString& text, Qt::KeyboardModifiers modifiers) const
{
    activate();
    for (const QChar c : text)
        QTest::sendKeyEvent(
            QTest::Click, m_window.windowHandle(), static_cast<Qt::Key>(c.toUpper().unicode()), QString(c), modifiers);
}

void Driver::paste(const QString& text) const
{
    QGuiApplication::clipboard()->setText(text);
    press(Qt::Key_V, Qt::ControlModifier);
}

void Driver::goTo(QWidget& control) const
{
    activate();
    ASSERT_TRUE(control.isVisible() && control.isEnabled()) << control.objectName().toStdString();
    control.setFocus(Qt::TabFocusReason);
}

void Driver::enter(int index, const QString& text) const
{
    goTo(field(index));
    press(Qt::Key_A, Qt::ControlModifier);
    type(text);
}

QPoint Driver::centreOf(const QWidget& control) const
{
    return control.mapTo(&m_window, control.rect().center());
}

QPoint Driver::centreOf(QListView& list, int row) const
{
    const QModelIndex index = list.model()->index(row, 0);
    EXPECT_TRUE(index.isValid()) << "no row " << row;
    list.scrollTo(index);
    const QRect place = list.visualRect(index);
    return list.viewport()->mapTo(&m_window, QPoint(place.left() + 40, place.center().y()));
}

void Driver::click(QWidget& control) const
{
    activate();
    ASSERT_TRUE(control.isVisible()) << control.objectName().toStdString();
    QTest::mouseClick(m_window.windowHandle(), Qt::LeftButton, {}, centreOf(control));
}

void Driver::clickRow(QListView& list, int row) const
{
    activate();
    QTest::mouseClick(m_window.windowHandle(), Qt::LeftButton, {}, centreOf(list, row));
}

void Driver::doubleClickRow(QListView& list, int row) const
{
    activate();
    QTest::mouseDClick(m_window.windowHandle(), Qt::LeftButton, {}, centreOf(list, row));
}

QString linesOf(const QListView& list)
{
    QStringList lines;
    for (int row = 0; row < list.model()->rowCount(); ++row)
        lines += list.model()->index(row, 0).data().toString();
    return lines.join(u'\n');
}

} // namespace lorvan::test
