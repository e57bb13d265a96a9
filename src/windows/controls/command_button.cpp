#include "controls/command_button.h"

#include "look/focus_rules.h"
#include "look/icons.h"
#include "look/style_painting.h"

#include <QAction>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>

namespace lorvan {
namespace {

constexpr int iconExtent = 18;
constexpr int iconGap = 8;
constexpr int sidePadding = 14;
constexpr int smallSidePadding = 11;
constexpr int leastSidePadding = 8;
constexpr int usualHeight = 32;
constexpr int smallHeight = 26;
constexpr int heightOverFont = 8;
constexpr int leastWidth = 104;
constexpr int iconAloneWidth = 44;
constexpr int framelessWidth = 36; ///< At most: icons do not grow with the font.
constexpr int slack = 2; ///< A text's ink may reach beyond its advance.
constexpr float hoverShade = 0.06F;
constexpr float pressedShade = 0.12F;

int textWidth(const QString& text, QFont::Weight weight)
{
    return QFontMetrics(Theme::instance().font(1.0, weight)).horizontalAdvance(text);
}

} // namespace

CommandButton::CommandButton(const QString& iconName, const QString& caption, QWidget* parent)
    : QPushButton(parent)
    , m_iconName(iconName)
    , m_caption(new QLabel(this))
{
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    m_caption->setTextFormat(Qt::PlainText);
    m_caption->setForegroundRole(QPalette::WindowText); // not the text role of the button it lies in
    m_caption->setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(&Theme::instance(), &Theme::changed, this, &CommandButton::dressCaption);
    setCaption(caption);
    dressCaption();
}

void CommandButton::setLook(Look look)
{
    if (look == m_look)
        return;
    m_look = look;
    dressCaption();
    update();
}

void CommandButton::setSmall(bool isSmall)
{
    m_small = isSmall;
    updateGeometry();
}

void CommandButton::setFrameless(bool isFrameless)
{
    m_frameless = isFrameless;
    dressCaption();
    update();
}

void CommandButton::setCaption(const QString& caption)
{
    m_caption->setText(caption);
    followCaption();
}

void CommandButton::followCaption()
{
    if (text() != m_caption->text())
        setText(m_caption->text());
    if (!m_caption->text().isEmpty())
        setAccessibleName(m_caption->text().trimmed());
    updateGeometry();
    placeCaption();
    update();
}

bool CommandButton::showsCaption() const
{
    return !m_caption->isHidden() && !m_caption->text().isEmpty();
}

int CommandButton::contentWidth() const
{
    const int icon = m_iconName.isEmpty() ? 0 : iconExtent;
    if (!showsCaption())
        return icon;
    const QFont::Weight weight = m_look == Look::Solid ? QFont::DemiBold : QFont::Normal;
    return icon + (icon > 0 ? iconGap : 0) + textWidth(m_caption->text(), weight);
}

QSize CommandButton::sizeHint() const
{
    const int height = std::max(m_small ? smallHeight : usualHeight, fontMetrics().height() + heightOverFont);
    if (!showsCaption())
        return {m_frameless ? std::min(height, framelessWidth) : iconAloneWidth, height};
    const int icon = m_iconName.isEmpty() ? 0 : iconExtent + iconGap;
    const int padding = m_small || m_frameless ? smallSidePadding : sidePadding;
    // The same for every look, so that nothing moves when a button becomes solid or stops being so.
    const int width = icon
        + std::max(textWidth(m_caption->text(), QFont::Normal) + 2 * padding,
            textWidth(m_caption->text(), QFont::DemiBold) + 2 * leastSidePadding);
    return {m_small || m_frameless ? width : std::max(width, leastWidth), height};
}

QSize CommandButton::minimumSizeHint() const
{
    return sizeHint();
}

bool CommandButton::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) // posted by the label when its text or visibility changes
        followCaption();
    return QPushButton::event(event);
}

void CommandButton::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        dressCaption();
    if (event->type() == QEvent::FontChange)
        updateGeometry();
}

QColor CommandButton::textColour() const
{
    const Theme& theme = Theme::instance();
    if (!isEnabled())
        return theme.colour(m_look == Look::Quiet || m_frameless ? ColourRole::PageOffText : ColourRole::OffText);
    switch (m_look) {
    case Look::Solid:
        return theme.colour(ColourRole::OnAccent);
    case Look::Danger:
        return theme.colour(ColourRole::Expense);
    case Look::Quiet:
        return theme.colour(ColourRole::PageMuted);
    case Look::Outlined:
        break;
    }
    return theme.colour(m_frameless ? ColourRole::PageText : ColourRole::Text);
}

void CommandButton::dressCaption()
{
    QPalette colours = m_caption->palette();
    colours.setColor(QPalette::WindowText, textColour());
    m_caption->setPalette(colours);
    m_caption->setFont(Theme::instance().font(1.0, m_look == Look::Solid ? QFont::DemiBold : QFont::Normal));
    updateGeometry();
    placeCaption();
}

void CommandButton::placeCaption()
{
    const int icon = m_iconName.isEmpty() ? 0 : iconExtent + iconGap;
    const int left = (width() - contentWidth()) / 2 + icon;
    const int room = m_caption->fontMetrics().horizontalAdvance(m_caption->text()) + slack;
    m_caption->setGeometry(left, 0, room, height());
}

void CommandButton::resizeEvent(QResizeEvent* event)
{
    QPushButton::resizeEvent(event);
    placeCaption();
}

void CommandButton::keyPressEvent(QKeyEvent* event)
{
    if (!isEnter(*event)) {
        QPushButton::keyPressEvent(event);
        return;
    }
    event->accept();
    if (!event->isAutoRepeat())
        click();
}

void CommandButton::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (m_frameless)
        QPushButton::mouseDoubleClickEvent(event);
    else
        event->accept();
}

QColor CommandButton::groundColour() const
{
    const Theme& theme = Theme::instance();
    const bool touched = isEnabled() && (isDown() || underMouse() || isChecked());
    if (isSolid())
        return theme.colour(touched ? ColourRole::SolidHover : ColourRole::Accent);
    if (isBare()) {
        QColor shade = theme.colour(ColourRole::PageText);
        shade.setAlphaF(!touched ? 0 : isDown() || isChecked() ? pressedShade : hoverShade);
        return shade;
    }
    if (!isEnabled())
        return theme.colour(ColourRole::OffField);
    if (isDown())
        return theme.colour(ColourRole::Tint);
    return theme.colour(touched ? ColourRole::ButtonHover : ColourRole::Button);
}

QColor CommandButton::borderColour() const
{
    if (isSolid())
        return groundColour();
    if (m_frameless)
        return Qt::transparent;
    const bool faint = m_look == Look::Quiet || !isEnabled();
    return Theme::instance().colour(faint ? ColourRole::PageLine : ColourRole::Edge);
}

/// Around an outlined button; inside a solid one, where it has the colour of the text.
void CommandButton::paintFocus(QPainter& painter) const
{
    const Theme& theme = Theme::instance();
    if (!isSolid()) {
        const ColourRole role = isBare() ? ColourRole::PageAccent : ColourRole::Accent;
        paintPanel(painter, rect(), Qt::transparent, theme.colour(role), focusWidth);
        return;
    }
    const QRectF inside = QRectF(rect()).adjusted(focusWidth, focusWidth, -focusWidth, -focusWidth);
    paintPanel(painter, inside, Qt::transparent, theme.colour(ColourRole::OnAccent), focusWidth, cornerRadius - 1);
}

void CommandButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintPanel(painter, rect(), groundColour(), borderColour(), 1);
    if (hasFocus())
        paintFocus(painter);
    const int left = (width() - contentWidth()) / 2;
    if (!m_iconName.isEmpty())
        paintIcon(painter, QRect(left, (height() - iconExtent) / 2, iconExtent, iconExtent), m_iconName, textColour());
}

CommandButton* newCommand(const char* name, const QString& icon, const QString& caption, const QString& tip)
{
    auto* const button = new CommandButton(icon, caption);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    if (caption.isEmpty())
        button->setAccessibleName(tip);
    return button;
}

ActionButton::ActionButton(QAction* action, const QString& icon, const QString& caption)
    : CommandButton(icon, caption)
{
    setObjectName(action->objectName());
    setAccessibleName(action->text());
    setAccessibleDescription(action->text()); // the caption becomes the name
    setToolTip(action->toolTip());
    setEnabled(action->isEnabled());
    connect(this, &CommandButton::clicked, this, [this, action] {
        action->trigger();
        setChecked(action->isChecked());
    });
    connect(action, &QAction::enabledChanged, this, &ActionButton::setEnabled);
    setCheckable(action->isCheckable());
    setChecked(action->isChecked());
    connect(action, &QAction::toggled, this, &ActionButton::setChecked);
}

void ActionButton::showCaption(bool isShown)
{
    captionLabel()->setVisible(isShown);
    updateGeometry();
}

} // namespace lorvan
