#include "chart_layout.h"

#include "platform/amount_text.h"
#include "report_fonts.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace lorvan {
namespace {

constexpr double twipsPerPoint = 20;
constexpr qreal paperUnit = 15;
constexpr qreal linesOfLegend = 1.6; // of text height
constexpr qreal linesOfPlaces = 1.5;
constexpr qreal linesBetweenPanels = 0.8;
constexpr qreal linesBetweenTicks = 2.2;
constexpr qreal besideText = 6; // units
constexpr qreal mostOfWidth = 0.4; // that texts at the side may take
constexpr int ticksOfLyingChart = 5;

struct Extent {
    double low = 0; // zero is always on the axis
    double high = 0;
};

Extent extentOf(const ChartPanel& panel)
{
    Extent extent;
    for (const ChartSeries& series : panel.series) {
        for (const std::optional<Currency>& value : series.values) {
            const double units = value ? static_cast<double>(value->tenThousandths()) : 0;
            extent = {std::min(extent.low, units), std::max(extent.high, units)};
        }
    }
    if (extent.low == extent.high)
        extent.high = static_cast<double>(Currency::unitsPerEuro);
    return extent;
}

/// The smallest of 1, 2, 5, 10, 20, … cents that divides the length into at most that many parts.
double roundStep(double length, int parts)
{
    const double wanted = std::max(length / parts, static_cast<double>(Currency::unitsPerCent));
    const double power = std::pow(10.0, std::floor(std::log10(wanted)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= wanted)
            return factor * power;
    }
    return 10 * power;
}

/// Only a place on the paper: no sum is made with it.
Currency nearestAmount(double units)
{
    constexpr double limit = 9e18;
    return Currency::fromTenThousandths(std::llround(std::clamp(units, -limit, limit)));
}

} // namespace

QColor ChartLook::colour(ChartRole role) const
{
    switch (role) {
    case ChartRole::Income:
        return income;
    case ChartRole::Expense:
        return expense;
    case ChartRole::Balance:
        break;
    }
    return balance;
}

ChartLook paperLook(double points)
{
    QFont font = FontShelf().get(ReportFont{QStringLiteral("Arial greek"), points, false}).font();
    font.setPixelSize(static_cast<int>(points * twipsPerPoint));
    return {font, paperUnit, Qt::black, QColor(0x40, 0x40, 0x40), QColor(0xc8, 0xcc, 0xcc), QColor(0x17, 0x6b, 0x3a),
        QColor(0xa8, 0x26, 0x1c), QColor(0x1e, 0x5f, 0x94), {}};
}

ChartAxis axisFor(const ChartPanel& panel, int most)
{
    const Extent extent = extentOf(panel);
    int parts = std::max(most - 1, 1);
    double step = 0;
    double first = 0;
    double last = 0;
    do { // rounding both ends outwards may add a part
        step = roundStep(extent.high - extent.low, parts);
        first = std::floor(extent.low / step);
        last = std::ceil(extent.high / step);
    } while (last - first > std::max(most - 1, 2) && --parts > 0);
    ChartAxis axis;
    for (double tick = first; tick <= last; ++tick)
        axis.ticks.push_back(nearestAmount(tick * step));
    axis.low = axis.ticks.front();
    axis.high = axis.ticks.back();
    return axis;
}

QString tickText(Currency amount)
{
    QString text = amountText(amount);
    if (text.endsWith(QStringLiteral(",00")))
        text.chop(3);
    return text;
}

ChartLayout::ChartLayout(const Chart& chart, const ChartLook& look, const QRectF& area)
    : m_chart(chart)
    , m_isLying(chart.form == Chart::Form::Lying)
    , m_metrics(look.font)
    , m_area(area)
    , m_legend(area.left(), area.top(), area.width(), linesOfLegend * m_metrics.height())
{
    const qreal height = m_metrics.height();
    const qreal count = static_cast<qreal>(std::max<std::size_t>(chart.panels.size(), 1));
    const qreal room = area.height() - m_legend.height() - linesOfPlaces * height;
    const qreal each = (room - (count - 1) * linesBetweenPanels * height) / count;
    for (const ChartPanel& panel : chart.panels) {
        const int ticks =
            m_isLying ? ticksOfLyingChart : std::clamp(static_cast<int>(each / (linesBetweenTicks * height)), 2, 8);
        m_panels.push_back({&panel, QRectF(area.left(), 0, area.width(), std::max(each, 1.0)), axisFor(panel, ticks)});
    }
    const qreal side = besideText * look.unit + (m_isLying ? widestPlace() : widestTick());
    qreal top = m_legend.bottom();
    for (Panel& panel : m_panels) {
        panel.plot.moveTop(top);
        panel.plot.setLeft(area.left() + std::min(side, mostOfWidth * area.width()));
        panel.plot.setRight(area.right() - (m_isLying ? widestTick() / 2 : 0));
        top = panel.plot.bottom() + linesBetweenPanels * height;
    }
}

qreal ChartLayout::widestTick() const
{
    qreal widest = 0;
    for (const Panel& panel : m_panels) {
        for (const Currency tick : panel.axis.ticks)
            widest = std::max(widest, m_metrics.horizontalAdvance(tickText(tick)));
    }
    return widest;
}

qreal ChartLayout::widestPlace() const
{
    qreal widest = 0;
    for (const QString& place : m_chart.places)
        widest = std::max(widest, m_metrics.horizontalAdvance(place));
    return widest;
}

QRectF ChartLayout::slotOf(const Panel& panel, int place) const
{
    const qreal count = static_cast<qreal>(std::max<qsizetype>(m_chart.places.size(), 1));
    const QRectF& plot = panel.plot;
    if (m_isLying)
        return {plot.left(), plot.top() + plot.height() * place / count, plot.width(), plot.height() / count};
    return {plot.left() + plot.width() * place / count, plot.top(), plot.width() / count, plot.height()};
}

qreal ChartLayout::position(const Panel& panel, Currency amount) const
{
    const double low = static_cast<double>(panel.axis.low.tenThousandths());
    const double high = static_cast<double>(panel.axis.high.tenThousandths());
    const double share = (static_cast<double>(amount.tenThousandths()) - low) / (high - low);
    return m_isLying ? panel.plot.left() + share * panel.plot.width()
                     : panel.plot.bottom() - share * panel.plot.height();
}

int ChartLayout::placeAt(QPointF point) const
{
    for (const Panel& panel : m_panels) {
        const QRectF reach(m_area.left(), panel.plot.top(), m_area.width(), panel.plot.height());
        if (!reach.contains(point) || (!m_isLying && point.x() < panel.plot.left()))
            continue;
        for (int place = 0; place < m_chart.places.size(); ++place) {
            const QRectF slot = slotOf(panel, place);
            if (m_isLying ? point.y() < slot.bottom() : point.x() < slot.right())
                return place;
        }
    }
    return -1;
}

} // namespace lorvan
