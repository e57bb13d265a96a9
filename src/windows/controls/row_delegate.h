#pragma once

#include <QStyledItemDelegate>

namespace lorvan {

/// Paints the ground of a list's row and answers the colour of its text: highlighted in the focused list, tinted with a
/// bar at the left in any other, ringed where only the keyboard stands on it.
[[nodiscard]] QColor paintRowGround(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index);

/// Shows a tooltip that is no markup, whatever characters it holds. A long one is wrapped, a very long one cut.
void showPlainToolTip(QPoint globalPosition, const QString& text, QWidget* widget, const QRect& rect);

/// Draws single-line rows of a list and shows the text of those that do not fit as a tooltip.
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
