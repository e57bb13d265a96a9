#pragma once

#include "movements/day_view.h"

#include <QLabel>

namespace lorvan {

class DayList;

/// A heading above a day list. It paints each word of its text above the column named by it; headings of amounts are
/// right-aligned like the amounts.
class DayListHead : public QLabel {
    Q_OBJECT

public:
    /// The heading of all columns except the memorandum.
    DayListHead(const QString& text, DayList& list, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

    /// Paints a word above a column, aligned to its end or its beginning.
    void paintOver(QPainter& painter, DayColumn column, Qt::Alignment alignment, const QString& word) const;

private:
    void dress();

    DayList& m_list;
};

/// The heading of the memorandum column, as a separate label: give it the same geometry as the other, on top of it.
class MemorandumHead : public DayListHead {
    Q_OBJECT

public:
    using DayListHead::DayListHead;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Both headings, one on top of the other, as one widget above the list.
[[nodiscard]] QWidget* dayListHeading(DayListHead* head, MemorandumHead* memorandum);

} // namespace lorvan
