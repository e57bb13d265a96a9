#include "preview/progress_line.h"

#include "look/shapes.h"
#include "look/theme.h"

#include <QPainter>

namespace lorvan {
namespace {

constexpr int thickness = 12;
constexpr int stepsAcross = 40;
constexpr double share = 0.25; // of the bar, that goes on

} // namespace

ProgressLine::ProgressLine(QWidget* parent)
    : QProgressBar(parent)
{
    setRange(0, 0);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ProgressLine::step()
{
    m_steps = (m_steps + 1) % stepsAcross;
    update();
}

QSize ProgressLine::sizeHint() const
{
    return {200, thickness};
}

QRectF ProgressLine::filled() const
{
    const QRectF inside = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (maximum() > minimum())
        return {inside.topLeft(), QSizeF(inside.width() * value() / maximum(), inside.height())};
    const double left = inside.left() + inside.width() * (1 + share) * m_steps / stepsAcross - inside.width() * share;
    return QRectF(left, inside.top(), inside.width() * share, inside.height()).intersected(inside);
}

void ProgressLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Theme& theme = Theme::instance();
    paintPanel(painter, rect(), theme.colour(ColourRole::Base), theme.colour(ColourRole::Edge), 1);
    if (const QRectF part = filled(); part.width() > 2 * cornerRadius)
        paintPanel(
            painter, part, theme.colour(ColourRole::Accent), theme.colour(ColourRole::Accent), 1, cornerRadius - 1);
}

} // namespace lorvan
