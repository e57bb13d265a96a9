#include "lists/row_delegate.h"

#include "lists/plain_list.h"
#include "look/icons.h"
#include "look/style_painting.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int textInset = 10;
constexpr int heightOverFont = 5;
constexpr int barWidth = 3;
constexpr int tickLeft = 8;
constexpr int tickExtent = 16;
constexpr int longestToolTip = 600; // characters
constexpr int longestToolTipLine = 100;

const PlainList* listOf(const QStyleOptionViewItem& option)
{
    return qobject_cast<const PlainList*>(option.widget);
}

QRect textRect(const QStyleOptionViewItem& option)
{
    const PlainList* const list = listOf(option);
    return option.rect.adjusted(list ? list->textInset() : textInset, 0, -textInset / 2, 0);
}

bool hasFocus(const QStyleOptionViewItem& option)
{
    const auto* const view = qobject_cast<const QAbstractItemView*>(option.widget);
    const bool isPopup = option.widget && option.widget->window()->windowType() == Qt::Popup;
    return isPopup || (view && view->hasFocus());
}

void paintTick(QPainter& painter, const QRect& row, const QColor& colour)
{
    const QRect tick(row.left() + tickLeft, row.center().y() - tickExtent / 2 + 1, tickExtent, tickExtent);
    paintIcon(painter, tick, QStringLiteral("check"), colour);
}

QColor paintRowGround(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const Theme& theme = Theme::instance();
    const auto* const view = qobject_cast<const QAbstractItemView*>(option.widget);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const bool focused = hasFocus(option);
    if (selected) {
        painter.fillRect(option.rect, theme.colour(focused ? ColourRole::Highlight : ColourRole::Tint));
        if (!focused) {
            const QRect bar(option.rect.left(), option.rect.top(), barWidth, option.rect.height());
            painter.fillRect(bar, theme.colour(ColourRole::Accent));
        }
    }
    const bool several = view && view->selectionMode() != QAbstractItemView::SingleSelection;
    const PlainList* const list = listOf(option);
    const bool marked = focused || (list && list->marksCurrent());
    if (marked && view && view->currentIndex() == index && (several || !selected)) {
        const bool isOnHighlight = selected && focused;
        const QColor ring = theme.colour(isOnHighlight ? ColourRole::HighlightText : ColourRole::Accent);
        const qreal inset = isOnHighlight ? 1 : 0;
        paintPanel(painter, QRectF(option.rect).adjusted(inset, inset, -inset, -inset), Qt::transparent, ring,
            isOnHighlight ? 1 : focusWidth, 2);
    }
    if (!option.state.testFlag(QStyle::State_Enabled))
        return theme.colour(ColourRole::OffText);
    return theme.colour(selected && focused ? ColourRole::HighlightText : ColourRole::Text);
}

} // namespace

void showPlainToolTip(QPoint globalPosition, const QString& text, QWidget* widget, const QRect& rect)
{
    const bool needsMarkup = Qt::mightBeRichText(text) || text.size() > longestToolTipLine; // only markup wraps lines
    const QString cut = text.size() > longestToolTip ? text.first(longestToolTip) + u'…' : text;
    const QString shown = needsMarkup ? Qt::convertFromPlainText(cut, Qt::WhiteSpaceNormal) : cut;
    QToolTip::showText(globalPosition, shown, widget, rect);
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    painter->save();
    const QColor colour = paintRowGround(*painter, option, index);
    painter->setFont(option.font);
    paintText(*painter, option, index, colour);
    painter->restore();
}

void RowDelegate::paintText(
    QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index, const QColor& colour) const
{
    const PlainList* const list = listOf(option);
    if (list && list->showsTicks() && option.state.testFlag(QStyle::State_Selected)) {
        const bool focused = list->hasFocus();
        paintTick(painter, option.rect, focused ? colour : Theme::instance().colour(ColourRole::Accent));
    }
    const QRect area = textRect(option);
    painter.setPen(colour);
    painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
        option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, area.width()));
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const PlainList* const list = listOf(option);
    const int inset = list ? list->textInset() : textInset;
    const int height = list ? list->rowHeight() : option.fontMetrics.height() + heightOverFont;
    const bool canElide = list && !list->scrollsSideways();
    const int width =
        canElide ? inset : inset + option.fontMetrics.horizontalAdvance(index.data().toString()) + textInset;
    return {width, height};
}

bool RowDelegate::helpEvent(
    QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const bool isAsked = event->type() == QEvent::ToolTip && index.isValid();
    const QString text = isAsked ? toolTipOf(*view, option, index) : QString();
    if (text.isEmpty())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    showPlainToolTip(event->globalPos(), text, view->viewport(), option.rect);
    return true;
}

QString RowDelegate::toolTipOf(
    const QAbstractItemView& view, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QString text = index.data().toString();
    const int shown = std::min(textRect(option).width(), view.viewport()->width() - textInset);
    return option.fontMetrics.horizontalAdvance(text) > shown ? text.trimmed() : QString();
}

} // namespace lorvan
