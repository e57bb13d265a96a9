#pragma once

#include "windows/driver.h"

#include <QVBoxLayout>

namespace lorvan::test {

/// A window of controls below one another.
class ShownForm {
public:
    template <typename Control> Control* add(Control* control)
    {
        m_layout->addWidget(control);
        return control;
    }
    void show() { showActive(m_window); }
    [[nodiscard]] QWidget& window() { return m_window; }

private:
    QWidget m_window;
    QVBoxLayout* m_layout = new QVBoxLayout(&m_window);
};

/// The desktop font for the time of a test.
class DesktopFont {
public:
    DesktopFont(const QString& family, int points) { QApplication::setFont(QFont(family, points)); }
    ~DesktopFont() { QApplication::setFont(m_before); }
    Q_DISABLE_COPY_MOVE(DesktopFont)

private:
    QFont m_before = QApplication::font();
};

} // namespace lorvan::test
