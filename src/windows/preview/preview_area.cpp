#include "preview/preview_area.h"

#include "look/themed_label.h"

#include <QPaintEvent>
#include <QPainter>

namespace lorvan {
namespace {

constexpr double twipsInPixel = 15;

// In twips, the traditional layout of the window. Menu and tool row take the height that the pages lose.
constexpr int corner = 100;
constexpr int lessWidth = 300;

int pixels(int twips)
{
    return qRound(twips / twipsInPixel);
}

} // namespace

PreviewArea::PreviewArea(QWidget* parent)
    : QWidget(parent)
    , m_view(new PageView(this))
    , m_line(new ThemedLabel(QString(), ColourRole::Text, 1.0, QFont::Normal, this))
{
    m_view->setObjectName(QStringLiteral("Tg"));
    m_line->setObjectName(QStringLiteral("state"));
    m_line->setAccessibleName(QStringLiteral("Κατάσταση"));
}

void PreviewArea::say(const QString& text)
{
    m_line->setText(text);
    m_line->setToolTip(text);
    layOut();
}

void PreviewArea::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), Theme::instance().colour(ColourRole::Ground));
}

void PreviewArea::resizeEvent(QResizeEvent*)
{
    layOut();
}

/// The pages reach down to the lower edge, or to the status line while it has a text.
void PreviewArea::layOut()
{
    const int lineHeight = m_line->text().isEmpty() ? 0 : m_line->sizeHint().height() + pixels(corner);
    const int less = pixels(corner) + lineHeight;
    const QSize room(std::max(width() - pixels(lessWidth), 0), std::max(height() - less, 0));
    m_view->setGeometry(QRect(QPoint(pixels(corner), pixels(corner)), room));
    m_line->setGeometry(m_view->x() + pixels(corner), height() - lineHeight, room.width(), lineHeight);
}

} // namespace lorvan
