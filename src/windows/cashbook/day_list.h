#pragma once

#include "cashbook/day_list_head.h"
#include "cashbook/day_view.h"
#include "controls/record_list.h"

#include <QAbstractListModel>

#include <vector>

namespace lorvan {

struct DayLine {
    QString text; ///< The line of fixed width, as day_view.h makes it.
    QString whole; ///< The same with nothing cut, for tooltip and assistive tools.
    qint64 key = 0; ///< The movement's; 0 for the balance line.
    DayCells cells; ///< The movement's own values, empty for the balance line.
};

class DayListModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setLines(std::vector<DayLine> lines);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

    /// Under which a line's cell of that column stands.
    [[nodiscard]] static int role(DayColumn column) { return Qt::UserRole + 1 + static_cast<int>(column); }

    /// The text as display text, the key under Qt::UserRole, the whole text as tooltip and accessible text, each cell
    /// under its column's role.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<DayLine> m_lines;
};

/// Where the columns of a day stand at a given width and font. Number, code and description begin at the left;
/// memorandum, amounts and cheque mark end at the right. What is spare goes to the description: all that the longest
/// one needs, and up to 40 characters more than it has in the line.
struct DayLineLayout {
    qreal advance = 1; ///< Of one character, fractional.
    qreal inset = 10; ///< Of the text at the left.
    qreal spare = 0; ///< Of the description, beyond its width in the line.
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

    void selectLast(); ///< Selects the last line and shows it.

    [[nodiscard]] const DayLineLayout& lineLayout() const { return m_layout; }
    [[nodiscard]] int rowHeight() const;
    [[nodiscard]] int scrollWidth() const; ///< Of a row; more than the list's width where it must scroll sideways.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void clickedLine(); ///< Single click on a line.
    void openedLine(qint64 key); ///< Double click or F2 on a line; 0 for the balance line.
    void columnsChanged(); ///< Font, columns or sideways position are others.

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
