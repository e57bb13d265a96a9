#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace lorvan::test {

constexpr int patience = 60'000; ///< Milliseconds that something may take before it counts as a fault.

[[nodiscard]] inline bool comesTrue(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, patience);
}

/// Waits until the keyboard is the window's own.
inline void waitForActive(QWidget& window)
{
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window, patience)) << window.objectName();
}

inline void showActive(QWidget& window)
{
    window.show();
    waitForActive(window);
}

/// Finds a window's controls by their names and works them with the keys and the mouse that the window system would
/// send. Every key goes to the control that has the focus.
class Driver {
public:
    explicit Driver(QWidget& window)
        : m_window(window)
    {
    }

    /// Throws std::runtime_error when the window has no such control.
    template <typename Control = QWidget> [[nodiscard]] Control& find(const QString& name) const
    {
        if (auto* const control = m_window.findChild<Control*>(name))
            return *control;
        throw std::runtime_error("no control " + name.toStdString());
    }
    [[nodiscard]] QLineEdit& field(int index) const { return find<QLineEdit>(QString("Text1(%1)").arg(index)); }
    [[nodiscard]] QAbstractButton& command(int index) const
    {
        return find<QAbstractButton>(QString("Command1(%1)").arg(index));
    }
    [[nodiscard]] QString text(const QString& labelName) const { return find<QLabel>(labelName).text(); }
    [[nodiscard]] QString focusName() const
    {
        activate();
        const QWidget* const focused = m_window.focusWidget();
        return focused ? focused->objectName() : QString();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        activate();
        QTest::sendKeyEvent(QTest::Click, handle(), key, QString(), modifiers);
    }
    /// A line feed is the Enter key, a tab the Tab key.
    void type(const QString& text, Qt::KeyboardModifiers modifiers = {}) const
    {
        for (const QChar c : text) {
            if (!c.isPrint()) {
                press(c == u'\n' ? Qt::Key_Return : Qt::Key_Tab, modifiers);
                continue;
            }
            activate();
            const auto key = static_cast<Qt::Key>(c.toUpper().unicode());
            QTest::sendKeyEvent(QTest::Click, handle(), key, QString(c), modifiers);
        }
    }
    void paste(const QString& text) const
    {
        QGuiApplication::clipboard()->setText(text);
        press(Qt::Key_V, Qt::ControlModifier);
    }

    /// Goes to the control as the Tab key does, which selects what a field holds.
    void goTo(QWidget& control) const
    {
        activate();
        ASSERT_TRUE(control.isVisible() && control.isEnabled()) << control.objectName();
        control.setFocus(Qt::TabFocusReason);
    }
    /// Types into a field in place of what it holds.
    void enter(int index, const QString& text) const
    {
        goTo(field(index));
        press(Qt::Key_A, Qt::ControlModifier);
        if (text.isEmpty())
            press(Qt::Key_Delete);
        type(text);
    }
    void click(QWidget& control) const
    {
        activate();
        ASSERT_TRUE(control.isVisible()) << control.objectName();
        QTest::mouseClick(handle(), Qt::LeftButton, {}, control.mapTo(&m_window, control.rect().center()));
    }
    void clickRow(QListView& list, int row, Qt::KeyboardModifiers modifiers = {}) const
    {
        activate();
        QTest::mouseClick(handle(), Qt::LeftButton, modifiers, centreOf(list, row));
    }
    void doubleClickRow(QListView& list, int row) const
    {
        activate();
        QTest::mouseDClick(handle(), Qt::LeftButton, {}, centreOf(list, row));
    }

private:
    [[nodiscard]] QWindow* handle() const { return m_window.windowHandle(); }
    void activate() const
    {
        if (QApplication::activeWindow() != &m_window)
            waitForActive(m_window);
    }
    [[nodiscard]] QPoint centreOf(QListView& list, int row) const
    {
        const QModelIndex index = list.model()->index(row, 0);
        EXPECT_TRUE(index.isValid()) << "no row " << row;
        list.scrollTo(index);
        const QRect place = list.visualRect(index);
        return list.viewport()->mapTo(&m_window, QPoint(place.left() + 40, place.center().y()));
    }

    QWidget& m_window;
};

/// The rows of a list, each on a line of its own.
[[nodiscard]] inline QString linesOf(const QListView& list)
{
    QStringList lines;
    for (int row = 0; row < list.model()->rowCount(); ++row)
        lines += list.model()->index(row, 0).data().toString();
    return lines.join(u'\n');
}

} // namespace lorvan::test
