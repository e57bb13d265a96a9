#pragma once

#include "look/theme.h"

#include <QColor>
#include <QRectF>

class QPainter;
class QStyleOption;
class QStyleOptionComboBox;
class QStyleOptionGroupBox;
class QStyleOptionMenuItem;
class QStyleOptionSlider;
class QWidget;

namespace lorvan {

/// The property of a field that is to be framed as a warning.
inline constexpr auto markProperty = "marked";

/// What the style draws itself. State and rectangle come from the option, colours from the theme.

/// Background and border of a field; a disabled one has only a faint border.
void paintField(QPainter& painter, const QStyleOption& option, const Theme& theme, bool marked = false);

void paintButton(QPainter& painter, const QStyleOption& option, const Theme& theme);
void paintToolButton(QPainter& painter, const QStyleOption& option, const Theme& theme);
void paintCheckBox(QPainter& painter, const QStyleOption& option, const Theme& theme);
void paintRadioButton(QPainter& painter, const QStyleOption& option, const Theme& theme);

/// The frame of a list or a text; its background shows in the narrow margins around the rows.
void paintAreaFrame(QPainter& painter, const QStyleOption& option, const QWidget& view, const Theme& theme);

/// `arrow` is the rectangle of the arrow.
void paintComboBox(QPainter& painter, const QStyleOptionComboBox& option, const QRect& arrow, const Theme& theme);

/// Only the handle, which lies inside `slider`; a scroll bar has no background and no buttons.
void paintScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& slider, const Theme& theme);

/// A frame with its title in a gap of the upper edge.
void paintGroupBox(
    QPainter& painter, const QStyleOptionGroupBox& option, const QRect& frame, const QRect& title, const Theme& theme);

/// The background of a menu or a tooltip.
void paintPopup(QPainter& painter, const QRect& rect, const Theme& theme);

/// An entry of the menu bar, or the bar beside them.
void paintMenuBar(QPainter& painter, const QStyleOptionMenuItem& option, const Theme& theme);

inline constexpr int menuInset = 28; ///< On both sides of an entry's text; a mark or an icon is on the left.
void paintMenuEntry(QPainter& painter, const QStyleOptionMenuItem& option, const Theme& theme);

inline constexpr int titleInset = 6; ///< On both sides of a frame's title.
inline constexpr qreal cornerRadius = 4;
inline constexpr qreal focusWidth = 2;

/// A rounded background with a border of `width` that lies completely inside the rectangle.
void paintPanel(QPainter& painter, const QRectF& rect, const QColor& ground, const QColor& border, qreal width,
    qreal radius = cornerRadius);

} // namespace lorvan
