#include "controls/notice_line.h"

#include <QAccessible>
#include <QMouseEvent>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int sideMargin = 12; // that of the page below
constexpr int above = 3;
constexpr int betweenButtonAndText = 4;
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
    connect(&Theme::instance(), &Theme::changed, this, &NoticeLine::underline);
}

void NoticeLine::tell(const QString& text, const QString& reason, ColourRole role)
{
    if (text == this->text() && reason == accessibleDescription())
        return;
    setRole(role);
    underline();
    setText(text);
    setToolTip(toolTipFor(reason));
    setAccessibleDescription(reason);
    if (text.isEmpty())
        return;
    QAccessibleEvent announced(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&announced);
}

void NoticeLine::setLeadsOn(bool leadsOn)
{
    m_leadsOn = leadsOn;
    setCursor(leadsOn ? Qt::PointingHandCursor : Qt::ArrowCursor);
    underline();
}

void NoticeLine::setButton(QWidget* button)
{
    m_button = button;
    m_button->setParent(this);
    m_button->hide();
}

void NoticeLine::showButton(bool isShown)
{
    const int height = sizeHint().height();
    m_button->setGeometry(sideMargin, 0, height + betweenButtonAndText, height);
    m_button->setVisible(isShown);
    setContentsMargins(
        isShown ? m_button->geometry().right() + 1 + betweenButtonAndText : sideMargin, above, sideMargin, 0);
}

void NoticeLine::underline()
{
    QFont underlined = font();
    underlined.setUnderline(m_leadsOn);
    setFont(underlined);
}

void NoticeLine::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_leadsOn && event->button() == Qt::LeftButton && rect().contains(event->pos()))
        Q_EMIT clicked();
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
