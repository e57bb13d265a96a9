#include "look/style.h"

#include "look/icons.h"
#include "look/style_painting.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>

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
constexpr int leastHandle = 28;
constexpr int titleLeft = 10 + titleInset;
constexpr int toolTipPadding = 11;
constexpr int menuPadding = 4; ///< Above the first entry and below the last.
constexpr QSize aroundMenuEntry{2 * menuInset, 10};
constexpr int spaceBeforeKeys = 12;
constexpr QSize aroundMenuBarEntry{20, 12};

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

bool isInMessageBox(const QWidget* widget)
{
    return widget && qobject_cast<const QMessageBox*>(widget->window());
}

QRect partOfGroupBox(const QStyleOptionGroupBox& box, QStyle::SubControl part)
{
    const int height = box.fontMetrics.height();
    const QRect frame = box.rect.adjusted(0, qRound(0.55 * height), 0, 0);
    if (part == QStyle::SC_GroupBoxFrame)
        return frame;
    if (part == QStyle::SC_GroupBoxContents)
        return frame.adjusted(1, 1 + qRound(0.25 * height), -1, -1);
    return {titleLeft, box.rect.top(), box.fontMetrics.size(Qt::TextShowMnemonic, box.text + u' ').width(), height};
}

/// The toolkit divides a bar that is longer by the buttons at its ends, which are not wanted.
QRect partOfScrollBar(const QStyle& toolkit, const QStyleOptionSlider& bar, QStyle::SubControl part)
{
    const QPoint button = bar.orientation == Qt::Horizontal ? QPoint(scrollBarExtent, 0) : QPoint(0, scrollBarExtent);
    QStyleOptionSlider longer = bar;
    longer.rect.setBottomRight(bar.rect.bottomRight() + 2 * button);
    return toolkit.subControlRect(QStyle::CC_ScrollBar, &longer, part).translated(-button) & bar.rect;
}

bool isRightAligned(const QWidget* widget)
{
    const auto* const field = qobject_cast<const QLineEdit*>(widget);
    return field && field->alignment().testFlag(Qt::AlignRight);
}

/// What the choice is called that drops this list down, in a window of its own; empty for every other list.
QString nameOfChoice(const QAbstractItemView& list)
{
    QWidget* const popup = list.parentWidget();
    auto* const choice = popup ? qobject_cast<QComboBox*>(popup->parentWidget()) : nullptr;
    return choice ? QAccessible::queryAccessibleInterface(choice)->text(QAccessible::Name) : QString();
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
    if (auto* const list = qobject_cast<QAbstractItemView*>(widget); list && list->accessibleName().isEmpty())
        list->setAccessibleName(nameOfChoice(*list));
    if (auto* const box = qobject_cast<QMessageBox*>(widget)) {
        box->setPalette(m_theme.desktopPalette());
        connect(&m_theme, &Theme::changed, box, [this, box] {
            box->setPalette(m_theme.desktopPalette());
            box->setIcon(box->icon()); // painted again
        });
    }
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
        if (qobject_cast<const QAbstractItemView*>(widget)) {
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
    case PE_PanelMenu:
    case PE_PanelTipLabel:
        paintPopup(*painter, option->rect, m_theme);
        return;
    case PE_FrameMenu: // part of the panel
    case PE_FrameFocusRect: // every control shows its focus in its own border
        return;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void Style::drawControl(
    ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    const Theme::DesktopColours ofBoxes(m_theme, isInMessageBox(widget));
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const auto* const entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_PushButtonBevel && button && button->features.testFlag(QStyleOptionButton::Flat))
        paintToolButton(*painter, *option, m_theme);
    else if (element == CE_PushButtonBevel)
        paintButton(*painter, *option, m_theme);
    else if (element == CE_MenuItem && entry)
        paintMenuEntry(*painter, *entry, m_theme);
    else if ((element == CE_MenuBarItem || element == CE_MenuBarEmptyArea) && entry)
        paintMenuBar(*painter, *entry, m_theme);
    else
        QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(
    ComplexControl control, const QStyleOptionComplex* option, QPainter* painter, const QWidget* widget) const
{
    const Theme::DesktopColours ofBoxes(m_theme, isInMessageBox(widget));
    const auto rectOf = [&](SubControl part) { return subControlRect(control, option, part, widget); };
    if (const auto* const combo = qstyleoption_cast<const QStyleOptionComboBox*>(option))
        paintComboBox(*painter, *combo, rectOf(SC_ComboBoxArrow), m_theme);
    else if (const auto* const box = qstyleoption_cast<const QStyleOptionGroupBox*>(option))
        paintGroupBox(*painter, *box, rectOf(SC_GroupBoxFrame), rectOf(SC_GroupBoxLabel), m_theme);
    else if (const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
             control == CC_ScrollBar && bar)
        paintScrollBar(*painter, *bar, rectOf(SC_ScrollBarSlider), m_theme);
    else
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
    if (const auto* const box = qstyleoption_cast<const QStyleOptionGroupBox*>(option))
        return partOfGroupBox(*box, part);
    if (const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option); control == CC_ScrollBar && bar)
        return partOfScrollBar(*baseStyle(), *bar, part);
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
    case CT_MenuItem: {
        const auto* const entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        const bool isSeparator = entry && entry->menuItemType == QStyleOptionMenuItem::Separator;
        const int beforeKeys = entry && entry->text.contains(u'\t') ? spaceBeforeKeys : 0;
        return isSeparator ? QSize(2 * menuInset, 9) : size + aroundMenuEntry + QSize(beforeKeys, 0);
    }
    case CT_MenuBarItem:
        return size + aroundMenuBarEntry;
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
    case PM_ScrollBarSliderMin:
        return leastHandle;
    case PM_MenuPanelWidth:
        return 1;
    case PM_MenuVMargin:
        return menuPadding;
    case PM_ToolTipLabelFrameWidth:
        return toolTipPadding;
    case PM_DefaultFrameWidth:
        if (qobject_cast<const QAbstractItemView*>(widget))
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
    case SH_GroupBox_TextLabelColor:
        return static_cast<int>(m_theme.colour(ColourRole::PageMuted).rgb());
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
