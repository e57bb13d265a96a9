#pragma once

#include <QStyledItemDelegate>

namespace lorvan {

/// Paints the background of a list's row and returns the colour for its text: highlighted in the list that has the
/// focus, tinted with a bar on the left in any other, outlined if it is only the keyboard's current row.
[[nodiscard]] QColor paintRowGround(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index);

/// Shows a tooltip as plain text, whatever characters it contains. A long one is wrapped, a very long one cut.
void showPlainToolTip(QPoint globalPosition, const QString& text, QWidget* widget, const QRect& rect);

/// Draws single-line rows of a list and shows the text of rows that do not fit as a tooltip.
class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;
};

} // namespace lorvan
