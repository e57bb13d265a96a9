#pragma once

#include "cashbook/day_list_head.h"
#include "lists/record_list.h"
#include "movements/day_view.h"

#include <QAbstractListModel>

#include <vector>

namespace lorvan {

struct DayLine {
    QString text; ///< The line of fixed width from day_view.h.
    QString whole; ///< The same with nothing cut, for the tooltip and assistive technology.
    qint64 key = 0; ///< The movement's; 0 for the balance line.
    DayCells cells; ///< The movement's values, empty for the balance line.
};

class DayListModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setLines(std::vector<DayLine> lines);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

    /// The role of a line's cell in that column.
    [[nodiscard]] static int role(DayColumn column) { return Qt::UserRole + 1 + static_cast<int>(column); }

    /// The text as display text, the key under Qt::UserRole, the whole text as tooltip and accessible text, and each
    /// cell under its column's role.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<DayLine> m_lines;
};

/// The positions of a day's columns for a given width and font. Number, code and description are at the left;
/// memorandum, amounts and cheque mark at the right. Spare width goes to the description: as much as the longest one
/// needs, and up to 40 characters more than its width in the line.
struct DayLineLayout {
    qreal advance = 1; ///< Of one character; may be fractional.
    qreal inset = 10; ///< Left of the text.
    qreal spare = 0; ///< Added to the description's width in the line.
    DayWidths widths;

    /// Edges of a column's text, relative to the row.
    [[nodiscard]] qreal left(DayColumn column) const;
    [[nodiscard]] qreal right(DayColumn column) const;

    [[nodiscard]] qreal width() const; ///< Of a whole line, with the inset.

    [[nodiscard]] static DayLineLayout forWidth(int available, const QFont& font, const DayWidths& widths);
};

/// The movements of one day.
class DayList : public RecordList {
    Q_OBJECT

public:
    explicit DayList(QWidget* parent = nullptr);

    /// Replaces all lines; nothing is selected afterwards.
    void setLines(std::vector<DayLine> lines);

    void selectLast(); ///< Selects the last line and scrolls to it.

    [[nodiscard]] const DayLineLayout& lineLayout() const { return m_layout; }
    [[nodiscard]] int rowHeight() const;
    [[nodiscard]] int scrollWidth() const; ///< Of a row; more than the list's width if it must scroll sideways.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void clickedLine(); ///< Single click on a line.
    void openedLine(qint64 key); ///< Double click or F2 on a line; 0 for the balance line.
    void columnsChanged(); ///< Font, columns or horizontal scroll position have changed.

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();
    [[nodiscard]] QFont largestFont() const;

    DayListModel* m_model;
    DayWidths m_widths;
    DayLineLayout m_layout;
};

} // namespace lorvan
