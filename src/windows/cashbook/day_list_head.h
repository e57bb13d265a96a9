#pragma once

#include "cashbook/day_view.h"

#include <QLabel>

namespace lorvan {

class DayList;

/// A heading over a day list. It keeps its text and paints each of its words over the column that the word stands for;
/// headings of amounts are right-aligned with the amounts.
class DayListHead : public QLabel {
    Q_OBJECT

public:
    /// The heading of all columns but the memorandum's.
    DayListHead(const QString& text, DayList& list, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

    /// Paints a word over a column, at its end or at its beginning.
    void paintOver(QPainter& painter, DayColumn column, Qt::Alignment alignment, const QString& word) const;

private:
    void dress();

    DayList& m_list;
};

/// The heading of the memorandum column, a label of its own: lay it over the other with the same geometry.
class MemorandumHead : public DayListHead {
    Q_OBJECT

public:
    using DayListHead::DayListHead;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Both headings, one over the other, as one widget above the list.
[[nodiscard]] QWidget* dayListHeading(DayListHead* head, MemorandumHead* memorandum);

} // namespace lorvan
