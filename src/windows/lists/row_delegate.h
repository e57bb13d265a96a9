#pragma once

#include <QStyledItemDelegate>

namespace lorvan {

/// Shows a tooltip as plain text, whatever characters it contains. A long one is wrapped, a very long one cut.
void showPlainToolTip(QPoint globalPosition, const QString& text, QWidget* widget, const QRect& rect);

/// Draws single-line rows of a list and shows the text of rows that do not fit as a tooltip. The selected row is
/// highlighted in the list that has the focus, tinted with a bar on the left in any other; a row is outlined if it is
/// only the keyboard's current one.
class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;

protected:
    /// Paints a row's text, with the row's font set and on its background. `colour` is the text's colour there.
    virtual void paintText(
        QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index, const QColor& colour) const;

    /// What the tooltip says; empty for a row that shows all of its text.
    [[nodiscard]] virtual QString toolTipOf(
        const QAbstractItemView& view, const QStyleOptionViewItem& option, const QModelIndex& index) const;
};

} // namespace lorvan
