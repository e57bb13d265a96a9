#pragma once

#include <QLabel>

namespace lorvan {

class DayList;

/// A heading over a day list. It keeps its text and paints each of its words over the slice that the word stands for
/// in the text itself; headings of amounts are right-aligned with the amounts.
class DayListHead : public QLabel {
    Q_OBJECT

public:
    /// The heading of all columns but the memorandum's.
    DayListHead(const QString& text, DayList& list, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

    /// Paints a word over the characters from `start` on, at the end of their slice or at its beginning.
    void paintOver(QPainter& painter, int start, int width, Qt::Alignment alignment, const QString& word) const;

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
