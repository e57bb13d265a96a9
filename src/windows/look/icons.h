#pragma once

#include "look/theme.h"

#include <QIcon>
#include <QWidget>

namespace lorvan {

/// One of our line icons by name: daybook, codes, print, exit, insert, modify, delete, closecash, unlock, groups,
/// users, key, calendar, zoomin, zoomout, search, pages, width, pdf, table, first, prev, next, last, back, check,
/// question, info, warning, stop, computer, folder, newfolder, file, up, down, list, tools, undo, tick. It is painted
/// in the colour that the role has at that time, in the colour of disabled text when disabled, and in the highlighted
/// text's colour on a selected row. An unknown name gives an empty icon.
[[nodiscard]] QIcon themedIcon(const QString& name, ColourRole role);

/// Paints an icon into a rectangle in logical pixels, at the painter's own resolution.
void paintIcon(QPainter& painter, const QRect& rect, const QString& name, const QColor& colour);

/// A single icon as a widget.
class IconView : public QWidget {
    Q_OBJECT

public:
    /// `extent` is the side of the square in pixels.
    IconView(const QString& name, ColourRole role, int extent, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return {m_extent, m_extent}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_name;
    ColourRole m_role;
    int m_extent;
};

} // namespace lorvan
