#include "controls/row_filter_field.h"

#include "controls/plain_list.h"
#include "platform/row_filter.h"

#include <QLineEdit>

namespace lorvan {

RowFilterField::RowFilterField(QLineEdit* field, PlainList* list)
    : QObject(field)
    , m_field(field)
    , m_list(list)
{
    connect(field, &QLineEdit::textChanged, this, &RowFilterField::apply);
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this, &RowFilterField::showSelected);
}

void RowFilterField::apply()
{
    const QAbstractItemModel& rows = *m_list->model();
    QStringList texts;
    for (int row = 0; row < rows.rowCount(); ++row)
        texts += rows.index(row, 0).data().toString();
    const std::vector<bool> shown = rowsThatMatch(texts, m_field->text());
    for (int row = 0; row < rows.rowCount(); ++row) {
        const bool isSelected = m_list->selectionModel()->isSelected(rows.index(row, 0));
        m_list->setRowHidden(row, !shown[static_cast<std::size_t>(row)] && !isSelected);
    }
}

/// A row can be selected from elsewhere.
void RowFilterField::showSelected()
{
    for (const QModelIndex& index : m_list->selectionModel()->selectedIndexes())
        m_list->setRowHidden(index.row(), false);
}

} // namespace lorvan
