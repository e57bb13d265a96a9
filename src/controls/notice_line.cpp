#include "controls/notice_line.h"

#include <QPainter>

namespace lorvan {
namespace {

constexpr int sideMargin = 12; // that of the figures above
constexpr int below = 5;
constexpr qreal smallType = 0.9;

} // namespace

NoticeLine::NoticeLine(const QString& objectName, QWidget* parent)
    : ThemedLabel({}, ColourRole::Warning, smallType, QFont::Normal, parent)
{
    setObjectName(objectName);
    setContentsMargins(sideMargin, 0, sideMargin, below);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    hide();
}

void NoticeLine::tell(const QString& text, const QString& reason)
{
    setText(text);
    setToolTip(QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(reason.toHtmlEscaped()));
    setAccessibleDescription(reason);
    show();
}

void NoticeLine::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(rect(), Theme::instance().colour(ColourRole::Band));
    ThemedLabel::paintEvent(event);
}

} // namespace lorvan
