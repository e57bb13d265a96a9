#include "controls/day_list_delegate.h"

#include "cashbook/day_view.h"
#include "controls/day_list.h"
#include "controls/row_delegate.h"
#include "controls/theme.h"

#include <QHelpEvent>
#include <QPainter>

namespace lorvan {
namespace {

using namespace day_line;

/// Paints the slices of one row.
class LinePainter {
public:
    LinePainter(QPainter& painter, const DayLineLayout& layout, const QStyleOptionViewItem& option, QString line)
        : m_painter(painter)
        , m_layout(layout)
        , m_row(option.rect)
        , m_line(std::move(line))
        , m_selected(option.state.testFlag(QStyle::State_Selected))
    {
    }

    /// In the focused list every slice of the selected row has one colour.
    void forceColour(const QColor& colour) { m_forced = colour; }

    void whole()
    {
        setBold();
        draw(area(0, length), Qt::AlignLeft, m_line, ColourRole::Text);
    }

    void left(int start, int width, ColourRole role)
    {
        draw(area(start, width), Qt::AlignLeft, m_line.mid(start, width), role);
    }

    void right(int start, int width, ColourRole role)
    {
        draw(area(start, width), Qt::AlignRight, m_line.mid(start, width).trimmed(), role);
    }

    void amount(int start, ColourRole role)
    {
        const bool isZero = m_line.mid(start, amountWidth).trimmed() == u"0";
        right(start, amountWidth, isZero ? zeroRole() : role);
    }

    void cheque()
    {
        setBold();
        left(chequeStart, chequeWidth, ColourRole::Accent);
    }

private:
    [[nodiscard]] ColourRole zeroRole() const { return m_selected ? ColourRole::Muted : ColourRole::Faint; }

    [[nodiscard]] QRectF area(int start, int width) const
    {
        return {
            m_row.left() + m_layout.left(start), qreal(m_row.top()), width * m_layout.advance, qreal(m_row.height())};
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
    QString m_line;
    QColor m_forced;
    bool m_selected;
};

void paintGround(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index, bool isBalance)
{
    if (option.state.testFlag(QStyle::State_Selected))
        return;
    if (isBalance)
        painter.fillRect(option.rect, Theme::instance().colour(ColourRole::BalanceRow));
    else if (index.row() % 2 == 0)
        painter.fillRect(option.rect, Theme::instance().colour(ColourRole::Alternate));
}

void paintMovement(LinePainter& line)
{
    line.right(0, numberWidth, ColourRole::Muted);
    line.right(codeStart, codeWidth, ColourRole::Muted);
    line.left(descriptionStart, descriptionWidth, ColourRole::Text);
    line.right(memorandumStart, memorandumWidth, ColourRole::Muted);
    line.amount(incomeStart, ColourRole::Income);
    line.amount(expenseStart, ColourRole::Expense);
    line.cheque();
}

} // namespace

void DayListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const auto* const list = qobject_cast<const DayList*>(option.widget);
    if (!list)
        return;
    const bool isBalance = index.data(Qt::UserRole).toLongLong() == 0;
    painter->save();
    paintGround(*painter, option, index, isBalance);
    const QColor colour = paintRowGround(*painter, option, index);
    painter->setFont(option.font);
    LinePainter line(*painter, list->lineLayout(), option, index.data().toString());
    if (option.state.testFlag(QStyle::State_Selected) && list->hasFocus())
        line.forceColour(colour);
    if (isBalance)
        line.whole();
    else
        paintMovement(line);
    painter->restore();
}

QSize DayListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    const auto* const list = qobject_cast<const DayList*>(option.widget);
    return list ? QSize(list->scrollWidth(), list->rowHeight()) : QSize();
}

bool DayListDelegate::helpEvent(
    QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const QString whole = index.data(Qt::ToolTipRole).toString();
    if (event->type() != QEvent::ToolTip || whole.isEmpty())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString hint = view->toolTip();
    showPlainToolTip(event->globalPos(), hint.isEmpty() ? whole : whole + u'\n' + hint, view->viewport(), option.rect);
    return true;
}

} // namespace lorvan
