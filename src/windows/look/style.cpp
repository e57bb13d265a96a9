#include "look/style.h"

#include "look/icons.h"
#include "look/style_painting.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTextEdit>

namespace lorvan {
namespace {

constexpr int fieldHeight = 30;
constexpr int buttonHeight = 32;
constexpr int leastButtonWidth = 96;
constexpr int heightOverFont = 8;
constexpr int indicatorExtent = 16;
constexpr int scrollBarExtent = 12;
constexpr int messageIconExtent = 36;
constexpr int buttonIconExtent = 18;
constexpr int buttonPadding = 14;
constexpr int fieldPadding = 8; ///< The field itself adds 2 before the text.
constexpr int figurePadding = 5; ///< On the right of right-aligned figures.
constexpr int arrowExtent = 16;
constexpr int arrowPadding = 5;

QString messageIconName(QStyle::StandardPixmap pixmap)
{
    switch (pixmap) {
    case QStyle::SP_MessageBoxQuestion:
        return QStringLiteral("question");
    case QStyle::SP_MessageBoxInformation:
        return QStringLiteral("info");
    case QStyle::SP_MessageBoxWarning:
        return QStringLiteral("warning");
    case QStyle::SP_MessageBoxCritical:
        return QStringLiteral("stop");
    default:
        return {};
    }
}

ColourRole messageIconRole(QStyle::StandardPixmap pixmap)
{
    if (pixmap == QStyle::SP_MessageBoxWarning)
        return ColourRole::Warning;
    return pixmap == QStyle::SP_MessageBoxCritical ? ColourRole::Expense : ColourRole::Accent;
}

bool isFieldArea(const QWidget* widget)
{
    return qobject_cast<const QAbstractItemView*>(widget) || qobject_cast<const QTextEdit*>(widget);
}

bool isInMessageBox(const QWidget* widget)
{
    return widget && qobject_cast<const QMessageBox*>(widget->window());
}

bool isRightAligned(const QWidget* widget)
{
    const auto* const field = qobject_cast<const QLineEdit*>(widget);
    return field && field->alignment().testFlag(Qt::AlignRight);
}

} // namespace

Style::Style(Theme& theme)
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    , m_theme(theme)
{
}

void Style::polish(QPalette& palette)
{
    m_theme.noteSystemPalette(palette);
}

void Style::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QLineEdit*>(widget) || qobject_cast<QAbstractScrollArea*>(widget))
        widget->setAttribute(Qt::WA_Hover, false); // nothing in them changes under the mouse
    if (m_theme.hasPageColour() && isInMessageBox(widget))
        widget->setPalette(m_theme.desktopPalette());
}

void Style::drawPrimitive(
    PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    const Theme::DesktopColours ofBoxes(m_theme, isInMessageBox(widget));
    switch (element) {
    case PE_PanelLineEdit: {
        const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (frame && frame->lineWidth > 0)
            paintField(*painter, *option, m_theme, widget && widget->property(markProperty).toBool());
        return;
    }
    case PE_FrameLineEdit:
        return;
    case PE_Frame:
        if (isFieldArea(widget)) {
            paintAreaFrame(*painter, *option, *widget, m_theme);
            return;
        }
        break;
    case PE_PanelButtonCommand:
        paintButton(*painter, *option, m_theme);
        return;
    case PE_PanelButtonTool:
        paintToolButton(*painter, *option, m_theme);
        return;
    case PE_IndicatorCheckBox:
        paintCheckBox(*painter, *option, m_theme);
        return;
    case PE_IndicatorRadioButton:
        paintRadioButton(*painter, *option, m_theme);
        return;
    case PE_FrameFocusRect:
        return; // every control shows its focus in its own border
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void Style::drawControl(
    ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    const Theme::DesktopColours ofBoxes(m_theme, isInMessageBox(widget));
    if (element == CE_PushButtonBevel) {
        const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
        if (!button || !button->features.testFlag(QStyleOptionButton::Flat))
            paintButton(*painter, *option, m_theme);
        else
            paintToolButton(*painter, *option, m_theme);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(
    ComplexControl control, const QStyleOptionComplex* option, QPainter* painter, const QWidget* widget) const
{
    const Theme::DesktopColours ofBoxes(m_theme, isInMessageBox(widget));
    const auto* const combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control == CC_ComboBox && combo) {
        const QRect arrow = proxy()->subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget);
        paintComboBox(*painter, *combo, arrow, m_theme);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const
{
    if (element == SE_LineEditContents) {
        const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (!frame || frame->lineWidth <= 0)
            return option->rect;
        return option->rect.adjusted(fieldPadding, 1, -(isRightAligned(widget) ? figurePadding : fieldPadding), -1);
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect Style::subControlRect(
    ComplexControl control, const QStyleOptionComplex* option, SubControl part, const QWidget* widget) const
{
    if (control != CC_ComboBox)
        return QProxyStyle::subControlRect(control, option, part, widget);
    const QRect field = option->rect;
    const int arrowSpace = arrowExtent + 2 * arrowPadding;
    if (part == SC_ComboBoxArrow) {
        return {field.right() + 1 - arrowPadding - arrowExtent, field.top() + (field.height() - arrowExtent) / 2,
            arrowExtent, arrowExtent};
    }
    if (part == SC_ComboBoxEditField)
        return field.adjusted(fieldPadding, 2, -arrowSpace, -2);
    return field;
}

QSize Style::sizeFromContents(
    ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const
{
    const int lineHeight = option->fontMetrics.height() + heightOverFont;
    switch (type) {
    case CT_LineEdit:
        return {size.width() + 2 * fieldPadding, std::max(fieldHeight, lineHeight)};
    case CT_ComboBox:
        return {size.width() + fieldPadding + arrowExtent + 2 * arrowPadding, std::max(fieldHeight, lineHeight)};
    case CT_PushButton:
        return {std::max(size.width() + 2 * buttonPadding, leastButtonWidth), std::max(buttonHeight, lineHeight)};
    default:
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return indicatorExtent;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return 10;
    case PM_MessageBoxIconSize:
        return messageIconExtent;
    case PM_ButtonIconSize:
        return buttonIconExtent;
    case PM_ScrollBarExtent:
        return scrollBarExtent;
    case PM_DefaultFrameWidth:
        if (isFieldArea(widget))
            return static_cast<int>(focusWidth);
        break;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    default:
        break;
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int Style::styleHint(
    StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* returned) const
{
    switch (hint) {
    case SH_ItemView_ActivateItemOnSingleClick:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_ComboBox_Popup:
    case SH_Widget_Animation_Duration:
    case SH_EtchDisabledText:
    case SH_UnderlineShortcut:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

QIcon Style::standardIcon(StandardPixmap pixmap, const QStyleOption* option, const QWidget* widget) const
{
    const QString name = messageIconName(pixmap);
    if (name.isEmpty())
        return QProxyStyle::standardIcon(pixmap, option, widget);
    const QIcon icon = themedIcon(name, messageIconRole(pixmap));
    if (!m_theme.hasPageColour() || !isInMessageBox(widget))
        return icon;
    const Theme::DesktopColours ofBoxes(m_theme, true); // the colours at this moment
    return icon.pixmap({messageIconExtent, messageIconExtent}, widget->devicePixelRatioF());
}

QPixmap Style::standardPixmap(StandardPixmap pixmap, const QStyleOption* option, const QWidget* widget) const
{
    const QString name = messageIconName(pixmap);
    return name.isEmpty() ? QProxyStyle::standardPixmap(pixmap, option, widget)
                          : themedIcon(name, messageIconRole(pixmap)).pixmap(messageIconExtent, messageIconExtent);
}

} // namespace lorvan
