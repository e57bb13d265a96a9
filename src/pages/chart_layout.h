#pragma once

#include "document/chart.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QRectF>

#include <vector>

namespace lorvan {

/// Colours, font and measure with which a chart is drawn. All lengths are in the painter's units.
struct ChartLook {
    QFont font;
    qreal unit = 1; ///< The width of a thin line: a pixel on the screen, 15 twips on paper.
    QColor text;
    QColor muted;
    QColor grid;
    QColor income;
    QColor expense;
    QColor balance;
    QColor mark; ///< Behind the place that is marked.

    [[nodiscard]] QColor colour(ChartRole role) const;
};

/// Black text and lines, and colours that also differ in black and white, in a font of that size in points; in twips.
[[nodiscard]] ChartLook paperLook(double points);

/// An axis with round amounts, from the lowest to the highest value and always with zero.
struct ChartAxis {
    Currency low;
    Currency high;
    std::vector<Currency> ticks; ///< Ascending; `low` and `high` are the first and the last.
};

/// The axis for the values of a panel. At most `most` ticks; at least two.
[[nodiscard]] ChartAxis axisFor(const ChartPanel& panel, int most);

/// The amount at a tick: "20.000", or with cents if the tick is no whole amount.
[[nodiscard]] QString tickText(Currency amount);

/// Where the parts of a chart stand in an area.
class ChartLayout {
public:
    /// The chart must outlive it.
    ChartLayout(const Chart& chart, const ChartLook& look, const QRectF& area);

    struct Panel {
        const ChartPanel* content = nullptr;
        QRectF plot;
        ChartAxis axis;
    };

    [[nodiscard]] const std::vector<Panel>& panels() const { return m_panels; }
    [[nodiscard]] const QRectF& legend() const { return m_legend; }
    [[nodiscard]] const QRectF& area() const { return m_area; }

    /// The part of a plot that belongs to a place, counted from 0.
    [[nodiscard]] QRectF slotOf(const Panel& panel, int place) const;
    /// Where an amount is on the axis: from the bottom up, or from the left in a lying chart.
    [[nodiscard]] qreal position(const Panel& panel, Currency amount) const;
    /// The place at a point; -1 beside all plots.
    [[nodiscard]] int placeAt(QPointF point) const;

private:
    [[nodiscard]] qreal widestTick() const;
    [[nodiscard]] qreal widestPlace() const;

    const Chart& m_chart;
    const bool m_isLying;
    const QFontMetricsF m_metrics;
    QRectF m_area;
    QRectF m_legend;
    std::vector<Panel> m_panels;
};

} // namespace lorvan
