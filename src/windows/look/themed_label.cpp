#include "look/themed_label.h"

namespace lorvan {
namespace {

constexpr int figureInset = 8;

ColourRole onPage(ColourRole role)
{
    switch (role) {
    case ColourRole::Text:
        return ColourRole::PageText;
    case ColourRole::Muted:
        return ColourRole::PageMuted;
    case ColourRole::Warning:
        return ColourRole::PageWarning;
    default:
        return role;
    }
}

} // namespace

ThemedLabel::ThemedLabel(const QString& text, ColourRole role, qreal factor, QFont::Weight weight, QWidget* parent)
    : QLabel(text, parent)
    , m_role(role)
    , m_factor(factor)
    , m_weight(weight)
{
    setTextFormat(Qt::PlainText);
    connect(&Theme::instance(), &Theme::changed, this, &ThemedLabel::dress);
    dress();
}

void ThemedLabel::setRole(ColourRole role)
{
    m_role = role;
    dress();
}

void ThemedLabel::dress()
{
    const Theme& theme = Theme::instance();
    QPalette colours = palette();
    colours.setColor(QPalette::Active, QPalette::WindowText, theme.colour(onPage(m_role)));
    colours.setColor(QPalette::Inactive, QPalette::WindowText, theme.colour(onPage(m_role)));
    setPalette(colours);
    setFont(theme.font(m_factor, m_weight));
}

ThemedLabel* fieldCaption(const QString& text, CaptionOver over)
{
    auto* const caption = new ThemedLabel(text, ColourRole::Muted, 0.9);
    if (over == CaptionOver::Amount) {
        caption->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        caption->setContentsMargins(0, 0, figureInset, 0);
    }
    return caption;
}

ThemedLabel* listHeading(const QString& text)
{
    return new ThemedLabel(text, ColourRole::Text, 1.0, QFont::DemiBold);
}

} // namespace lorvan
