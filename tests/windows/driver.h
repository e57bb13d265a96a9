#pragma once

#include "support/printing.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListView>

#include <gtest/gtest.h>

#include <stdexcept>

namespace lorvan::test {

/// Finds a window's controls by their names and works them with the keys and the mouse that the window system would
/// send. Every key goes to the control that has the focus.
class Driver {
public:
    explicit Driver(QWidget& window);

    /// Throws std::runtime_error when the window has no such control.
    template <typename Control = QWidget> [[nodiscard]] Control& find(const QString& name) const
    {
        if (auto* const control = m_window.findChild<Control*>(name))
            return *control;
        throw std::runtime_error("no control " + name.toStdString());
    }
    [[nodiscard]] QLineEdit& field(int index) const; ///< Text1(index)
    [[nodiscard]] QAbstractButton& command(int index) const; ///< Command1(index)
    [[nodiscard]] QString text(const QString& labelName) const { return find<QLabel>(labelName).text(); }
    [[nodiscard]] QString focusName() const;

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;
    void type(const QString& text, Qt::KeyboardModifiers modifiers = {}) const;
    void paste(const QString& text) const;

    /// Goes to the control as the Tab key does, which selects what a field holds.
    void goTo(QWidget& control) const;
    /// Types into a field in place of what it holds.
    void enter(int index, const QString& text) const;
    void click(QWidget& control) const;
    void clickRow(QListView& list, int row) const;
    void doubleClickRow(QListView& list, int row) const;

private:
    void activate() const;
    [[nodiscard]] QPoint centreOf(const QWidget& control) const;
    [[nodiscard]] QPoint centreOf(QListView& list, int row) const;

    QWidget& m_window;
};

/// The rows of a list, each on a line of its own.
[[nodiscard]] QString linesOf(const QListView& list);

} // namespace lorvan::test
