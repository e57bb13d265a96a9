#include "cashbook/day_list_delegate.h"

#include "cashbook/day_list.h"
#include "look/theme.h"

#include <QPainter>

namespace lorvan {
namespace {

/// Paints the columns of one row.
class LinePainter {
public:
    LinePainter(
        QPainter& painter, const DayLineLayout& layout, const QStyleOptionViewItem& option, const QModelIndex& index)
        : m_painter(painter)
        , m_layout(layout)
        , m_row(option.rect)
        , m_index(index)
        , m_selected(option.state.testFlag(QStyle::State_Selected))
    {
    }

    /// In the focused list, the whole selected row has one colour.
    void forceColour(const QColor& colour) { m_forced = colour; }

    void whole()
    {
        setBold();
        draw(area(m_layout.left(DayColumn::Number), m_layout.width()), Qt::AlignLeft, m_index.data().toString(),
            ColourRole::Text);
    }

    void right(DayColumn column, ColourRole role)
    {
        draw(area(m_layout.left(column), m_layout.right(column)), Qt::AlignRight, cell(column), role);
    }

    void amount(DayColumn column, ColourRole role) { right(column, cell(column) == u"0" ? zeroRole() : role); }

    /// Continues into the room left by an empty or short cell after it.
    void description()
    {
        const QRectF room = area(m_layout.left(DayColumn::Description), endOfDescription());
        const QString text =
            QFontMetricsF(m_painter.font()).elidedText(cell(DayColumn::Description), Qt::ElideRight, room.width());
        draw(room, Qt::AlignLeft, text, ColourRole::Text);
    }

    void cheque()
    {
        setBold();
        right(DayColumn::Cheque, ColourRole::Accent);
    }

private:
    [[nodiscard]] ColourRole zeroRole() const { return m_selected ? ColourRole::Muted : ColourRole::Faint; }

    [[nodiscard]] QString cell(DayColumn column) const { return m_index.data(DayListModel::role(column)).toString(); }

    /// One character before the next text begins.
    [[nodiscard]] qreal endOfDescription() const
    {
        const bool hasMemorandum = !cell(DayColumn::Memorandum).isEmpty();
        const DayColumn next = hasMemorandum ? DayColumn::Memorandum : DayColumn::Income;
        return m_layout.right(next) - static_cast<qreal>(cell(next).size() + 1) * m_layout.advance;
    }

    [[nodiscard]] QRectF area(qreal left, qreal right) const
    {
        return {m_row.left() + left, qreal(m_row.top()), right - left, qreal(m_row.height())};
    }

    void setBold()
    {
        QFont bold = m_painter.font();
        bold.setBold(true);
        m_painter.setFont(bold);
    }

    void draw(const QRectF& area, Qt::Alignment alignment, const QString& text, ColourRole role)
    {
        if (text.isEmpty())
            return;
        m_painter.setPen(m_forced.isValid() ? m_forced : Theme::instance().colour(role));
        m_painter.drawText(area, int(alignment | Qt::AlignVCenter) | Qt::TextSingleLine | Qt::TextDontClip, text);
    }

    QPainter& m_painter;
    const DayLineLayout& m_layout;
    QRect m_row;
    QModelIndex m_index;
    QColor m_forced;
    bool m_selected;
};

bool isBalance(const QModelIndex& index)
{
    return index.data(Qt::UserRole).toLongLong() == 0;
}

void paintMovement(LinePainter& line)
{
    line.right(DayColumn::Number, ColourRole::Muted);
    line.right(DayColumn::Code, ColourRole::Muted);
    line.description();
    line.right(DayColumn::Memorandum, ColourRole::Muted);
    line.amount(DayColumn::Income, ColourRole::Income);
    line.amount(DayColumn::Expense, ColourRole::Expense);
    line.cheque();
}

} // namespace

void DayListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    if (!isSelected && isBalance(index))
        painter->fillRect(option.rect, Theme::instance().colour(ColourRole::BalanceRow));
    else if (!isSelected && index.row() % 2 == 0)
        painter->fillRect(option.rect, Theme::instance().colour(ColourRole::Alternate));
    RowDelegate::paint(painter, option, index);
}

void DayListDelegate::paintText(
    QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index, const QColor& colour) const
{
    const auto* const list = qobject_cast<const DayList*>(option.widget);
    if (!list)
        return;
    LinePainter line(painter, list->lineLayout(), option, index);
    if (option.state.testFlag(QStyle::State_Selected) && list->hasFocus())
        line.forceColour(colour);
    if (isBalance(index))
        line.whole();
    else
        paintMovement(line);
}

QSize DayListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    const auto* const list = qobject_cast<const DayList*>(option.widget);
    return list ? QSize(list->scrollWidth(), list->rowHeight()) : QSize();
}

QString DayListDelegate::toolTipOf(
    const QAbstractItemView& view, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const QString hint = view.toolTip();
    const QString whole = index.data(Qt::ToolTipRole).toString();
    return hint.isEmpty() || whole.isEmpty() ? whole : whole + u'\n' + hint;
}

} // namespace lorvan
