#include "lists/table_list.h"

#include "lists/empty_text.h"
#include "lists/row_delegate.h"
#include "look/theme.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QStyledItemDelegate>

namespace lorvan {
namespace {

constexpr int besideText = 14; // the delegate's margins
constexpr int heightOverFont = 5;

class HigherRows : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return {QStyledItemDelegate::sizeHint(option, index).width(), option.fontMetrics.height() + heightOverFont};
    }
};

} // namespace

TableList::TableList(QWidget* parent)
    : QTreeView(parent)
{
    setItemDelegate(new HigherRows(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setAllColumnsShowFocus(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(false);
    header()->setStretchLastSection(true);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(&Theme::instance(), &Theme::changed, this, &TableList::dress);
    dress();
}

void TableList::dress()
{
    QPalette colours;
    if (!hasFocus()) {
        colours.setColor(QPalette::Highlight, Theme::instance().colour(ColourRole::Tint));
        colours.setColor(QPalette::HighlightedText, Theme::instance().colour(ColourRole::Text));
    }
    setPalette(colours);
}

void TableList::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    dress();
}

void TableList::focusOutEvent(QFocusEvent* event)
{
    QTreeView::focusOutEvent(event);
    dress();
}

void TableList::setEmptyText(const QString& text)
{
    m_emptyText = text;
    setAccessibleDescription(text);
    viewport()->update();
}

void TableList::setColumnWidths(const QStringList& widestTexts)
{
    for (int column = 0; column < widestTexts.size(); ++column)
        header()->resizeSection(column, fontMetrics().horizontalAdvance(widestTexts[column]) + besideText);
}

void TableList::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (!m_emptyText.isEmpty() && model()->rowCount() == 0)
        paintEmptyText(*this, 0, m_emptyText);
}

bool TableList::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto& asked = static_cast<const QHelpEvent&>(*event);
        return showToolTip(asked.pos(), asked.globalPos());
    }
    return QTreeView::viewportEvent(event);
}

bool TableList::showToolTip(const QPoint& position, const QPoint& globalPosition)
{
    const QModelIndex index = indexAt(position);
    const QString text = index.data().toString();
    const QRect place = visualRect(index);
    const bool isCut = fontMetrics().horizontalAdvance(text) + besideText > place.width();
    showPlainToolTip(globalPosition, isCut ? text : QString(), viewport(), place);
    return true;
}

} // namespace lorvan
