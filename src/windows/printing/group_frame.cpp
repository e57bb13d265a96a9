#include "printing/group_frame.h"

#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionGroupBox>

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

GroupFrame::GroupFrame(QWidget* parent)
    : QGroupBox(parent)
{
    setProperty("strong", true);
}

void GroupFrame::setGroupTitle(const QString& title)
{
    m_title = title;
    setTitle(literally(title));
    setAccessibleName(title);
}

void GroupFrame::initStyleOption(QStyleOptionGroupBox* option) const
{
    QGroupBox::initStyleOption(option);
    option->text = literally(fontMetrics().elidedText(m_title, Qt::ElideRight, width() - titleSides));
}

QRect GroupFrame::titleStrip() const
{
    QStyleOptionGroupBox option;
    QGroupBox::initStyleOption(&option);
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
