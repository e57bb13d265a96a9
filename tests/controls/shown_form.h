#pragma once

#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

namespace lorvan::test {

/// A window of controls below one another, shown and active.
class ShownForm {
public:
    template <typename Control> Control* add(Control* control)
    {
        m_layout->addWidget(control);
        return control;
    }

    [[nodiscard]] bool show()
    {
        m_window.show();
        m_window.activateWindow();
        return QTest::qWaitForWindowActive(&m_window);
    }

    [[nodiscard]] QWidget& window() { return m_window; }

private:
    QWidget m_window;
    QVBoxLayout* m_layout = new QVBoxLayout(&m_window);
};

} // namespace lorvan::test
