#include "figures/figure_table.h"

#include "look/focus_rules.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStandardItemModel>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int besideText = 20;

} // namespace

FigureTable::FigureTable(QWidget* parent)
    : TableList(parent)
    , m_model(new QStandardItemModel(this))
{
    setModel(m_model);
    header()->setStretchLastSection(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded); // an amount is never cut
    setHorizontalScrollMode(ScrollPerPixel);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& index) {
        if (!m_isSelecting && isRow(index.row()))
            Q_EMIT rowSelected(index.row());
    });
    connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        if (isRow(index.row()))
            Q_EMIT rowChosen(index.row());
    });
}

void FigureTable::setRows(
    const QStringList& columns, const std::vector<QStringList>& rows, const QStringList& sums, int texts)
{
    const QScopedValueRollback selecting(m_isSelecting, true);
    m_model->clear();
    m_texts = texts;
    m_rows = static_cast<int>(rows.size());
    m_model->setHorizontalHeaderLabels(columns);
    for (int column = texts; column < columns.size(); ++column)
        m_model->horizontalHeaderItem(column)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (const QStringList& row : rows)
        addRow(row, false);
    if (!rows.empty() && !sums.isEmpty())
        addRow(sums, true);
    shareWidth();
}

void FigureTable::addRow(const QStringList& texts, bool isBold)
{
    QList<QStandardItem*> items;
    for (const QString& text : texts) {
        auto* const item = new QStandardItem(text);
        if (items.size() >= m_texts)
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        QFont itemFont = font();
        itemFont.setBold(isBold);
        item->setFont(itemFont);
        items.append(item);
    }
    m_model->appendRow(items);
}

/// Amounts take what they need, the last text the rest.
void FigureTable::shareWidth()
{
    int left = viewport()->width();
    for (int column = 0; column < m_model->columnCount(); ++column) {
        if (column == m_texts - 1)
            continue;
        const int width = std::max(sizeHintForColumn(column), header()->sectionSizeHint(column)) + besideText;
        header()->resizeSection(column, width);
        left -= width;
    }
    if (m_model->columnCount() >= m_texts)
        header()->resizeSection(m_texts - 1, std::max(left, header()->minimumSectionSize() * 4));
}

void FigureTable::select(int row)
{
    const QScopedValueRollback selecting(m_isSelecting, true);
    setCurrentIndex(isRow(row) ? m_model->index(row, 0) : QModelIndex());
}

/// The first row is selected, so that the arrow keys have a place to start from.
void FigureTable::focusInEvent(QFocusEvent* event)
{
    TableList::focusInEvent(event);
    if (m_rows > 0 && !selectionModel()->hasSelection()) {
        select(std::max(selected(), 0));
        Q_EMIT rowSelected(selected());
    }
}

void FigureTable::keyPressEvent(QKeyEvent* event)
{
    if ((isEnter(*event) || event->key() == Qt::Key_F2) && isRow(selected()) && !event->isAutoRepeat())
        Q_EMIT rowChosen(selected());
    else if (!isEnter(*event))
        TableList::keyPressEvent(event);
}

void FigureTable::resizeEvent(QResizeEvent* event)
{
    TableList::resizeEvent(event);
    shareWidth();
}

} // namespace lorvan
