#pragma once

#include <QApplication>
#include <QFont>

namespace lorvan::test {

/// The desktop font for the time of a test.
class DesktopFont {
public:
    DesktopFont(const QString& family, qreal points)
    {
        QFont font(family);
        font.setPointSizeF(points);
        QApplication::setFont(font);
    }
    ~DesktopFont() { QApplication::setFont(m_before); }
    Q_DISABLE_COPY_MOVE(DesktopFont)

private:
    QFont m_before = QApplication::font();
};

} // namespace lorvan::test
