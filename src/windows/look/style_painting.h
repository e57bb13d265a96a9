#pragma once

#include "look/theme.h"

#include <QColor>
#include <QRectF>

class QPainter;
class QStyleOption;
class QStyleOptionComboBox;
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

inline constexpr qreal cornerRadius = 4;
inline constexpr qreal focusWidth = 2;

/// A rounded background with a border of `width` that lies completely inside the rectangle.
void paintPanel(QPainter& painter, const QRectF& rect, const QColor& ground, const QColor& border, qreal width,
    qreal radius = cornerRadius);

} // namespace lorvan
