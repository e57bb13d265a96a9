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

void paintScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& slider, const Theme& theme)
{
    const bool hovered =
        option.state.testFlag(QStyle::State_MouseOver) && option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
    const QColor colour = theme.colour(hovered ? ColourRole::Muted : ColourRole::Edge);
    const int across = 3;
    const int along = 2;
    const bool isLevel = option.orientation == Qt::Horizontal;
    const QMargins around = isLevel ? QMargins(along, across, along, across) : QMargins(across, along, across, along);
    paintPanel(painter, slider.marginsRemoved(around), colour, Qt::transparent, 0, across);
}

void paintGroupBox(
    QPainter& painter, const QStyleOptionGroupBox& option, const QRect& frame, const QRect& title, const Theme& theme)
{
    painter.save();
    if (!option.text.isEmpty())
        painter.setClipRegion(QRegion(option.rect) - title.adjusted(-titleInset, 0, titleInset, 0));
    paintPanel(painter, frame, Qt::transparent, theme.colour(ColourRole::PageLine), 1);
    painter.restore();
    painter.setPen(option.textColor);
    painter.drawText(title, Qt::AlignCenter | Qt::TextHideMnemonic, option.text);
}

void paintPopup(QPainter& painter, const QRect& rect, const Theme& theme)
{
    painter.fillRect(rect, theme.colour(ColourRole::Edge));
    painter.fillRect(rect.adjusted(1, 1, -1, -1), theme.colour(ColourRole::Base));
}

void paintMenuBar(QPainter& painter, const QStyleOptionMenuItem& option, const Theme& theme)
{
    const QRect bar = option.rect;
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    painter.fillRect(bar, theme.colour(selected ? ColourRole::ButtonHover : ColourRole::Band));
    if (!selected)
        painter.fillRect(bar.left(), bar.bottom(), bar.width(), 1, theme.colour(ColourRole::PageLine));
    painter.setPen(theme.colour(selected ? ColourRole::Text : ColourRole::PageText));
    painter.drawText(bar, Qt::AlignCenter | Qt::TextHideMnemonic, option.text);
}

void paintMenuEntry(QPainter& painter, const QStyleOptionMenuItem& option, const Theme& theme)
{
    const QRect row = option.rect;
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(row.left(), row.center().y(), row.width(), 1, theme.colour(ColourRole::Line));
        return;
    }
    const bool selected = option.state.testFlag(QStyle::State_Selected) && !isOff(option);
    if (selected)
        painter.fillRect(row, theme.colour(ColourRole::Highlight));
    const ColourRole usual = isOff(option) ? ColourRole::OffText : ColourRole::Text;
    const QColor colour = theme.colour(selected ? ColourRole::HighlightText : usual);
    const QRect text = row.adjusted(menuInset, 0, -menuInset, 0);
    const int side = 16;
    QRect mark(0, 0, side, side);
    mark.moveCenter({row.left() + menuInset / 2, row.center().y()});
    option.icon.paint(&painter, mark, Qt::AlignCenter, isOff(option) ? QIcon::Disabled : QIcon::Normal);
    if (option.checked)
        paintIcon(painter, mark, QStringLiteral("tick"), colour);
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu)
        paintIcon(painter, mark.translated(row.width() - menuInset, 0), QStringLiteral("next"), colour);
    painter.setPen(colour);
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextHideMnemonic, option.text.section(u'\t', 0, 0));
    painter.drawText(text.adjusted(text.width() - option.reservedShortcutWidth, 0, 0, 0),
        Qt::AlignVCenter | Qt::AlignLeft, option.text.section(u'\t', 1));
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
