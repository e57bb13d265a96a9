#include "controls/band_tabs.h"

#include "look/icons.h"
#include "look/style_painting.h"

#include <QEvent>
#include <QPainter>

namespace lorvan {
namespace {

constexpr int tabHeight = 40;
constexpr int heightOverFont = 16;
constexpr int iconExtent = 20;
constexpr int iconGap = 8;
constexpr int sidePadding = 14;
constexpr int spaceBetween = 2;
constexpr int markHeight = 3;

} // namespace

BandTabs::BandTabs(QWidget* parent)
    : QTabBar(parent)
{
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(false);
    setElideMode(Qt::ElideNone);
    setFocusPolicy(Qt::TabFocus);
}

QString BandTabs::shownText(int index) const
{
    return tabText(index).remove(u'&').trimmed();
}

void BandTabs::changeEvent(QEvent* event)
{
    QTabBar::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        update();
}

QSize BandTabs::tabSizeHint(int index) const
{
    const QFontMetrics metrics(Theme::instance().font(1.0, QFont::DemiBold));
    return {2 * sidePadding + iconExtent + iconGap + metrics.horizontalAdvance(shownText(index)) + spaceBetween,
        std::max(tabHeight, metrics.height() + heightOverFont)};
}

void BandTabs::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (int index = 0; index < count(); ++index)
        paintTab(painter, index);
}

void BandTabs::paintTab(QPainter& painter, int index) const
{
    const Theme& theme = Theme::instance();
    const bool selected = index == currentIndex();
    const QRect tab = tabRect(index).adjusted(0, 0, -spaceBetween, 0);
    if (selected) {
        painter.fillRect(tab, theme.colour(ColourRole::PageLine));
        painter.fillRect(tab.adjusted(1, 0, -1, 0), theme.colour(ColourRole::Page));
        painter.fillRect(tab.left(), tab.top(), tab.width(), markHeight, theme.colour(ColourRole::PageAccent));
    }
    const QRect icon(tab.left() + sidePadding, tab.center().y() - iconExtent / 2 + 1, iconExtent, iconExtent);
    paintIcon(painter, icon, tabData(index).toString(),
        theme.colour(selected ? ColourRole::PageAccent : ColourRole::PageMuted));
    painter.setFont(theme.font(1.0, selected ? QFont::DemiBold : QFont::Normal));
    painter.setPen(theme.colour(selected ? ColourRole::PageText : ColourRole::PageMuted));
    painter.drawText(tab.adjusted(sidePadding + iconExtent + iconGap, 0, 0, 0),
        Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shownText(index));
    if (selected && hasFocus()) {
        paintPanel(painter, QRectF(tab).adjusted(4, markHeight + 3, -4, -4), Qt::transparent,
            theme.colour(ColourRole::PageAccent), focusWidth);
    }
}

} // namespace lorvan
