#include "look/ground_frame.h"

#include <QPainter>

namespace lorvan {

GroundFrame::GroundFrame(ColourRole ground, Separator separator, QWidget* parent)
    : QFrame(parent)
    , m_ground(ground)
    , m_separator(separator)
{
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void GroundFrame::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.fillRect(rect(), theme.colour(m_ground));
    const QRect line = m_separator == Separator::Right ? QRect(width() - 1, 0, 1, height()) : QRect(0, 0, width(), 1);
    painter.fillRect(line, theme.colour(m_ground == ColourRole::Page ? ColourRole::PageLine : ColourRole::Line));
}

} // namespace lorvan
