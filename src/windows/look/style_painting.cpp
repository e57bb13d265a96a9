#include "look/style_painting.h"

#include "look/icons.h"

#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace lorvan {
namespace {

bool isOff(const QStyleOption& option)
{
    return !option.state.testFlag(QStyle::State_Enabled);
}

bool isFocused(const QStyleOption& option)
{
    return option.state.testFlag(QStyle::State_HasFocus) && !isOff(option);
}

/// Background and border of an unmarked indicator; the marked one is filled and, while focused, has a ring at a
/// distance.
void paintIndicator(QPainter& painter, const QStyleOption& option, const Theme& theme, qreal radius)
{
    const bool focused = isFocused(option);
    const bool marked = option.state & (QStyle::State_On | QStyle::State_NoChange);
    const QRectF box(option.rect);
    const QColor off = theme.colour(ColourRole::OffText);
    const QColor accent = isOff(option) ? off : theme.colour(ColourRole::Accent);
    const QColor ground = theme.colour(isOff(option) ? ColourRole::OffField : ColourRole::Base);
    const QColor border = theme.colour(isOff(option) ? ColourRole::PageLine : ColourRole::Edge);
    paintPanel(painter, box, ground, focused || marked ? accent : border, focused ? focusWidth : 1, radius);
    if (marked) {
        const qreal inset = focused ? focusWidth + 1 : 0;
        paintPanel(
            painter, box.adjusted(inset, inset, -inset, -inset), accent, accent, 1, std::max(radius - inset, 1.0));
    }
}

} // namespace

void paintField(QPainter& painter, const QStyleOption& option, const Theme& theme, bool marked)
{
    const bool focused = isFocused(option);
    ColourRole border = focused ? ColourRole::Accent : isOff(option) ? ColourRole::Line : ColourRole::Edge;
    if (marked)
        border = ColourRole::Warning;
    paintPanel(painter, option.rect, option.palette.color(QPalette::Base), theme.colour(border),
        focused || marked ? focusWidth : 1);
}

void paintButton(QPainter& painter, const QStyleOption& option, const Theme& theme)
{
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver) && !isOff(option);
    const bool down = option.state & (QStyle::State_Sunken | QStyle::State_On);
    const bool focused = isFocused(option);
    ColourRole ground = isOff(option) ? ColourRole::OffField : ColourRole::Button;
    if (down)
        ground = ColourRole::Tint;
    else if (hovered)
        ground = ColourRole::ButtonHover;
    const ColourRole border = focused ? ColourRole::Accent : isOff(option) ? ColourRole::PageLine : ColourRole::Edge;
    paintPanel(painter, option.rect, theme.colour(ground), theme.colour(border), focused ? focusWidth : 1);
}

void paintToolButton(QPainter& painter, const QStyleOption& option, const Theme& theme)
{
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver) && !isOff(option);
    const bool down = option.state & (QStyle::State_Sunken | QStyle::State_On);
    if (hovered || down) {
        const QColor ground = theme.colour(down ? ColourRole::Tint : ColourRole::ButtonHover);
        paintPanel(painter, option.rect, ground, ground, 1);
    }
    if (isFocused(option))
        paintPanel(painter, option.rect, Qt::transparent, theme.colour(ColourRole::Accent), focusWidth);
}

void paintCheckBox(QPainter& painter, const QStyleOption& option, const Theme& theme)
{
    paintIndicator(painter, option, theme, 3);
    const QColor mark = theme.colour(isOff(option) ? ColourRole::OffField : ColourRole::OnAccent);
    const int inset = isFocused(option) ? 3 : 2;
    if (option.state.testFlag(QStyle::State_On))
        paintIcon(painter, option.rect.adjusted(inset, inset, -inset, -inset), QStringLiteral("tick"), mark);
}

void paintRadioButton(QPainter& painter, const QStyleOption& option, const Theme& theme)
{
    paintIndicator(painter, option, theme, option.rect.height() / 2.0);
    if (!option.state.testFlag(QStyle::State_On))
        return;
    const QColor mark = theme.colour(isOff(option) ? ColourRole::OffField : ColourRole::OnAccent);
    const qreal extent = isFocused(option) ? 4 : 6;
    QRectF dot(0, 0, extent, extent);
    dot.moveCenter(QRectF(option.rect).center());
    paintPanel(painter, dot, mark, mark, 1, extent / 2);
}

void paintAreaFrame(QPainter& painter, const QStyleOption& option, const QWidget& view, const Theme& theme)
{
    QStyleOption field = option;
    field.state.setFlag(QStyle::State_HasFocus, view.hasFocus());
    field.palette = view.palette();
    paintField(painter, field, theme);
}

void paintComboBox(QPainter& painter, const QStyleOptionComboBox& option, const QRect& arrow, const Theme& theme)
{
    paintField(painter, option, theme);
    const QColor colour = theme.colour(isOff(option) ? ColourRole::OffText : ColourRole::Text);
    paintIcon(painter, arrow, QStringLiteral("down"), colour);
}

void paintPanel(
    QPainter& painter, const QRectF& rect, const QColor& ground, const QColor& border, qreal width, qreal radius)
{
    const bool wasSmooth = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(border, width));
    painter.setBrush(ground.alpha() == 0 ? QBrush(Qt::NoBrush) : QBrush(ground));
    const qreal half = width / 2;
    painter.drawRoundedRect(rect.adjusted(half, half, -half, -half), radius - half, radius - half);
    painter.setRenderHint(QPainter::Antialiasing, wasSmooth);
}

} // namespace lorvan
