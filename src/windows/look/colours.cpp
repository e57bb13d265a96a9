#include "look/colours.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lorvan {
namespace {

using LightAndDark = std::pair<QRgb, QRgb>;

LightAndDark coloursOf(ColourRole role)
{
    switch (role) {
    case ColourRole::Band:
        return {0xE9EDF1, 0x1B1F24};
    case ColourRole::Page:
        return {0xF7F9FA, 0x23282E};
    case ColourRole::Base:
        return {0xFFFFFF, 0x15181C};
    case ColourRole::Alternate:
        return {0xF3F6F8, 0x1A1E23};
    case ColourRole::Button:
        return {0xFFFFFF, 0x2E343B};
    case ColourRole::ButtonHover:
        return {0xEEF3F8, 0x38404A};
    case ColourRole::SolidHover:
        return {0x174C78, 0x97C6F1};
    case ColourRole::Text:
    case ColourRole::PageText:
        return {0x1A222C, 0xE8ECF0};
    case ColourRole::Muted:
    case ColourRole::PageMuted:
        return {0x535E6B, 0xA9B3BF};
    case ColourRole::Faint:
        return {0x656F7B, 0x8F99A5};
    case ColourRole::OffText:
    case ColourRole::PageOffText:
        return {0x848E9A, 0x6E7883};
    case ColourRole::OffField:
        return {0xEFF1F4, 0x20242A};
    case ColourRole::Line:
    case ColourRole::PageLine:
        return {0xD3D9E0, 0x3A424B};
    case ColourRole::Edge:
        return {0x838E9B, 0x717C89};
    case ColourRole::Accent:
    case ColourRole::PageAccent:
        return {0x1E5F94, 0x79B4EA};
    case ColourRole::OnAccent:
        return {0xFFFFFF, 0x0C1A28};
    case ColourRole::Highlight:
        return {0x1E5F94, 0x2F6398};
    case ColourRole::HighlightText:
        return {0xFFFFFF, 0xFFFFFF};
    case ColourRole::Tint:
        return {0xDCE8F3, 0x2A3A4A};
    case ColourRole::BalanceRow:
        return {0xE8F0F7, 0x202B36};
    case ColourRole::Income:
    case ColourRole::PageIncome:
        return {0x176B3A, 0x74D492};
    case ColourRole::Expense:
    case ColourRole::PageExpense:
        return {0xA8261C, 0xFF9B91};
    case ColourRole::Warning:
    case ColourRole::PageWarning:
        return {0x8A5A00, 0xF0B95A};
    case ColourRole::Plate:
        return {0x0D1115, 0x0A0D10};
    case ColourRole::Ground:
        return {0xC4CAD1, 0x0F1215};
    }
    return {};
}

qreal linear(qreal channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

qreal luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

QColor lightColour(ColourRole role)
{
    return QColor(coloursOf(role).first);
}

QColor darkColour(ColourRole role)
{
    return QColor(coloursOf(role).second);
}

qreal contrast(const QColor& one, const QColor& other)
{
    const qreal first = luminance(one);
    const qreal second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace lorvan
