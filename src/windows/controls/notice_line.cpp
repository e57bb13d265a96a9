#include "controls/notice_line.h"

#include <QAccessible>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int sideMargin = 12; // that of the page below
constexpr int above = 3;
constexpr qreal smallType = 0.9;

QString toolTipFor(const QString& reason)
{
    if (reason.isEmpty())
        return {};
    return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(reason.toHtmlEscaped());
}

} // namespace

NoticeLine::NoticeLine(const QString& objectName, QWidget* parent)
    : ThemedLabel({}, ColourRole::Text, smallType, QFont::Normal, parent)
{
    setObjectName(objectName);
    setContentsMargins(sideMargin, above, sideMargin, 0);
    setWordWrap(true);
    QSizePolicy lines(QSizePolicy::Ignored, QSizePolicy::Minimum);
    lines.setHeightForWidth(true);
    setSizePolicy(lines);
}

void NoticeLine::tell(const QString& text, const QString& reason, ColourRole role)
{
    if (text == this->text() && reason == accessibleDescription())
        return;
    setRole(role);
    setText(text);
    setToolTip(toolTipFor(reason));
    setAccessibleDescription(reason);
    if (text.isEmpty())
        return;
    QAccessibleEvent announced(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&announced);
}

int NoticeLine::heightForWidth(int width) const
{
    return std::max(sizeHint().height(), ThemedLabel::heightForWidth(width));
}

QSize NoticeLine::sizeHint() const
{
    return {0, above + fontMetrics().lineSpacing()};
}

} // namespace lorvan
