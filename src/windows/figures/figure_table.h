#pragma once

#include "lists/table_list.h"

#include <vector>

class QStandardItemModel;

namespace lorvan {

/// Rows of a text and amounts, which are right-aligned below their titles; a last bold row for the sums.
class FigureTable : public TableList {
    Q_OBJECT

public:
    explicit FigureTable(QWidget* parent = nullptr);

    /// The first `texts` columns are texts. Selects nothing.
    void setRows(
        const QStringList& columns, const std::vector<QStringList>& rows, const QStringList& sums, int texts = 1);

    void select(int row); ///< -1 for none.
    [[nodiscard]] int selected() const { return currentIndex().row(); }

Q_SIGNALS:
    void rowSelected(int row); ///< By the user; not the row of the sums.
    void rowChosen(int row); ///< With Enter, F2 or a double click.

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void addRow(const QStringList& texts, bool isBold);
    void shareWidth();
    [[nodiscard]] bool isRow(int row) const { return row >= 0 && row < m_rows; }

    QStandardItemModel* m_model;
    int m_rows = 0; ///< Without the sums.
    int m_texts = 1;
    bool m_isSelecting = false;
};

} // namespace lorvan
