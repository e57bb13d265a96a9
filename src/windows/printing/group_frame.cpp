#include "printing/group_frame.h"

#include "look/theme.h"

#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

namespace lorvan {
namespace {

constexpr int titleSides = 32; ///< The room left and right of the longest title.
constexpr int titleInset = 8;
constexpr int aroundTitle = 4;

/// An ampersand would otherwise define a shortcut key.
QString literally(QString title)
{
    return title.replace(u'&', QStringLiteral("&&"));
}

} // namespace

void GroupFrame::setGroupTitle(const QString& title)
{
    m_title = title;
    setTitle(literally(title));
    setAccessibleName(title);
}

void GroupFrame::initStyleOption(QStyleOptionGroupBox* option) const
{
    QGroupBox::initStyleOption(option);
    option->fontMetrics = QFontMetrics(titleFont());
    option->textColor = Theme::instance().colour(ColourRole::PageText);
    option->text = literally(option->fontMetrics.elidedText(m_title, Qt::ElideRight, width() - titleSides));
}

QFont GroupFrame::titleFont() const
{
    QFont strong = font(); // not its own font, which its fields would inherit
    strong.setWeight(QFont::DemiBold);
    return strong;
}

void GroupFrame::paintEvent(QPaintEvent*)
{
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    QStylePainter painter(this);
    painter.setFont(titleFont());
    painter.drawComplexControl(QStyle::CC_GroupBox, option);
}

QRect GroupFrame::titleStrip() const
{
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    option.text = QStringLiteral("Α"); // an empty title would have no place
    const QRect label = style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, this);
    return {titleInset, label.top() - aroundTitle, width() - 2 * titleInset, label.height() + 2 * aroundTitle};
}

QSize GroupFrame::minimumSizeHint() const
{
    return QWidget::minimumSizeHint();
}

void GroupFrame::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT renameAsked();
}

} // namespace lorvan
