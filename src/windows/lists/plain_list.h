#pragma once

#include "lists/record_list.h"

#include <vector>

class QStandardItemModel;

namespace lorvan {

struct ListRow {
    QString text;
    qint64 data = 0; ///< Available under Qt::UserRole.
};

/// A list of single lines. The selected row is highlighted while the list has the focus; otherwise it is tinted, with a
/// bar on its left. Rows that do not fit end in an ellipsis and show their text as a tooltip. A list that scrolls
/// sideways shows them in full instead, scrolls with the Left and Right keys too, and returns to the left edge when
/// another row is selected.
class PlainList : public RecordList {
    Q_OBJECT

public:
    enum class Face { Desktop, FixedWidth };

    explicit PlainList(Face face = Face::Desktop, QWidget* parent = nullptr, Moves moves = Moves::Click);

    /// Replaces all rows; nothing is selected afterwards.
    void setRows(const std::vector<ListRow>& rows);

    /// Selects the first row with that data and scrolls to it. If there is none, selects nothing and returns false.
    bool selectData(qint64 key);

    void setScrollsSideways();
    [[nodiscard]] bool scrollsSideways() const { return m_scrollsSideways; }

    void setRowHeight(int pixels); ///< Instead of the font's height plus 5.

    [[nodiscard]] int rowHeight() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// Scrolls vertically to a row, never sideways, so that a click moves nothing.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

    /// Where a row's text begins; a list with ticks keeps a column free for them.
    [[nodiscard]] virtual int textInset() const { return 10; }
    [[nodiscard]] virtual bool showsTicks() const { return false; }
    /// Whether the current row is marked even while another control has the focus.
    [[nodiscard]] virtual bool marksCurrent() const { return false; }

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void dress();

    QStandardItemModel* m_rows;
    Face m_face;
    int m_rowHeight = 0;
    bool m_scrollsSideways = false;
};

} // namespace lorvan
