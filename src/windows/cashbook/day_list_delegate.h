#pragma once

#include "lists/row_delegate.h"

namespace lorvan {

/// Paints a day's movements in columns, from their own values, and the balance line as one text.
class DayListDelegate : public RowDelegate {
    Q_OBJECT

public:
    using RowDelegate::RowDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void paintText(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
        const QColor& colour) const override;
    [[nodiscard]] QString toolTipOf(
        const QAbstractItemView& view, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace lorvan
