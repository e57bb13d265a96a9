#include "chart_painter.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace lorvan {
namespace {

constexpr qreal shareOfBars = 0.78; // of a place's width
constexpr qreal lineUnits = 2;
constexpr qreal pointUnits = 3; // the radius
constexpr qreal hatchUnits = 4; // between two strokes
constexpr int mostPoints = 40;
constexpr qreal swatchShare = 0.7; // of the text height
constexpr qreal legendGap = 12; // units
constexpr qreal placeGap = 8; // units

class ChartPainter {
public:
    ChartPainter(QPainter& painter, const QRectF& area, const Chart& chart, const ChartLook& look)
        : m_painter(painter)
        , m_chart(chart)
        , m_look(look)
        , m_layout(chart, look, area)
        , m_metrics(look.font)
        , m_isLying(chart.form == Chart::Form::Lying)
    {
        m_painter.setFont(look.font);
    }

    void paint(int marked)
    {
        paintLegend();
        for (const ChartLayout::Panel& panel : m_layout.panels()) {
            if (marked >= 0 && marked < m_chart.places.size())
                m_painter.fillRect(m_layout.slotOf(panel, marked), m_look.mark);
            paintAxis(panel);
            if (panel.content->kind == ChartPanel::Kind::Bars)
                paintBars(panel);
            else
                paintLines(panel);
        }
        paintPlaces();
    }

private:
    [[nodiscard]] QPen pen(const QColor& colour, qreal units = 1) const
    {
        QPen pen(colour, units * m_look.unit);
        pen.setJoinStyle(Qt::RoundJoin);
        return pen;
    }

    void drawText(const QRectF& area, int flags, const QString& text, const QColor& colour)
    {
        m_painter.setPen(colour);
        m_painter.drawText(area, flags | Qt::TextSingleLine, text);
    }

    void paintLegend()
    {
        const qreal height = m_metrics.height();
        const qreal swatch = swatchShare * height;
        qreal left = m_layout.legend().left();
        for (const ChartPanel& panel : m_chart.panels) {
            for (const ChartSeries& series : panel.series) {
                const QRectF mark(left, m_layout.legend().top() + (height - swatch) / 2, swatch, swatch);
                if (panel.kind == ChartPanel::Kind::Bars) {
                    paintBar(mark, series);
                } else {
                    m_painter.setPen(linePen(series));
                    m_painter.drawLine(
                        QPointF(mark.left(), mark.center().y()), QPointF(mark.right(), mark.center().y()));
                }
                const qreal width = m_metrics.horizontalAdvance(series.name);
                left = mark.right() + legendGap / 2 * m_look.unit;
                drawText(QRectF(left, m_layout.legend().top(), width + 1, height), Qt::AlignLeft | Qt::AlignVCenter,
                    series.name, m_look.text);
                left += width + legendGap * m_look.unit;
            }
        }
    }

    void paintAxis(const ChartLayout::Panel& panel)
    {
        const QRectF& plot = panel.plot;
        const qreal height = m_metrics.height();
        for (const Currency tick : panel.axis.ticks) {
            const qreal at = m_layout.position(panel, tick);
            m_painter.setPen(pen(tick.isZero() ? m_look.muted : m_look.grid));
            if (m_isLying) {
                const qreal width = m_metrics.horizontalAdvance(tickText(tick)) + 2;
                m_painter.drawLine(QPointF(at, plot.top()), QPointF(at, plot.bottom()));
                drawText(QRectF(at - width / 2, plot.bottom(), width, height), Qt::AlignCenter, tickText(tick),
                    m_look.muted);
            } else {
                m_painter.drawLine(QPointF(plot.left(), at), QPointF(plot.right(), at));
                drawText(QRectF(m_layout.area().left(), at - height / 2,
                             plot.left() - m_layout.area().left() - placeGap / 2 * m_look.unit, height),
                    Qt::AlignRight | Qt::AlignVCenter, tickText(tick), m_look.muted);
            }
        }
    }

    void paintBars(const ChartLayout::Panel& panel)
    {
        for (int place = 0; place < m_chart.places.size(); ++place) {
            const std::vector<const ChartSeries*> drawn = barsAt(panel, place);
            const QRectF slot = m_layout.slotOf(panel, place);
            const qreal across = (m_isLying ? slot.height() : slot.width()) * shareOfBars;
            const qreal each = across / static_cast<qreal>(std::max<std::size_t>(drawn.size(), 1));
            qreal at = (m_isLying ? slot.center().y() : slot.center().x()) - across / 2;
            for (const ChartSeries* const series : drawn) {
                const Currency value = series->values[static_cast<std::size_t>(place)].value_or(Currency());
                if (!value.isZero())
                    paintBar(barArea(panel, value, at, each), *series);
                at += each;
            }
        }
    }

    /// Upright, all series have their own place, so that they can be followed from left to right; lying, those that are
    /// zero leave theirs to the others.
    [[nodiscard]] std::vector<const ChartSeries*> barsAt(const ChartLayout::Panel& panel, int place) const
    {
        std::vector<const ChartSeries*> drawn;
        for (const ChartSeries& series : panel.content->series) {
            const auto& value = series.values[static_cast<std::size_t>(place)];
            if (!m_isLying || (value && !value->isZero()))
                drawn.push_back(&series);
        }
        return drawn;
    }

    [[nodiscard]] QRectF barArea(const ChartLayout::Panel& panel, Currency value, qreal at, qreal across) const
    {
        const qreal zero = m_layout.position(panel, Currency());
        const qreal end = m_layout.position(panel, value);
        return (m_isLying ? QRectF(zero, at, end - zero, across) : QRectF(at, end, across, zero - end)).normalized();
    }

    void paintBar(const QRectF& area, const ChartSeries& series)
    {
        const QColor colour = m_look.colour(series.role);
        if (series.role != ChartRole::Expense && !series.isEarlier)
            m_painter.fillRect(area, colour);
        m_painter.setPen(pen(colour));
        if (series.role == ChartRole::Expense)
            hatch(area, series.isEarlier ? hatchUnits * 2 : hatchUnits);
        m_painter.setBrush(Qt::NoBrush);
        m_painter.drawRect(area);
    }

    void hatch(const QRectF& area, qreal units)
    {
        m_painter.save();
        m_painter.setClipRect(area, Qt::IntersectClip);
        const qreal step = units * m_look.unit;
        for (qreal left = area.left() - area.height(); left < area.right(); left += step)
            m_painter.drawLine(QPointF(left, area.bottom()), QPointF(left + area.height(), area.top()));
        m_painter.restore();
    }

    [[nodiscard]] QPen linePen(const ChartSeries& series) const
    {
        QPen line = pen(m_look.colour(series.role), series.isEarlier ? 1 : lineUnits);
        if (series.isEarlier)
            line.setStyle(Qt::DashLine);
        return line;
    }

    void paintLines(const ChartLayout::Panel& panel)
    {
        for (const ChartSeries& series : panel.content->series) {
            QPainterPath line;
            std::vector<QPointF> points;
            bool goesOn = false;
            for (int place = 0; place < m_chart.places.size(); ++place) {
                const auto& value = series.values[static_cast<std::size_t>(place)];
                if (value) {
                    points.emplace_back(m_layout.slotOf(panel, place).center().x(), m_layout.position(panel, *value));
                    goesOn ? line.lineTo(points.back()) : line.moveTo(points.back());
                }
                goesOn = value.has_value();
            }
            m_painter.setBrush(Qt::NoBrush);
            m_painter.setPen(linePen(series));
            m_painter.drawPath(line);
            if (!series.isEarlier && m_chart.places.size() <= mostPoints)
                paintPoints(points, m_look.colour(series.role));
        }
    }

    void paintPoints(const std::vector<QPointF>& points, const QColor& colour)
    {
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(colour);
        for (const QPointF& point : points)
            m_painter.drawEllipse(point, pointUnits * m_look.unit, pointUnits * m_look.unit);
    }

    /// Below the last panel, as many texts as there is room for.
    void paintPlaces()
    {
        const ChartLayout::Panel& last = m_layout.panels().back();
        qreal widest = 0;
        for (const QString& place : m_chart.places)
            widest = std::max(widest, m_metrics.horizontalAdvance(place) + placeGap * m_look.unit);
        const int step = m_isLying
            ? 1
            : std::max(1, static_cast<int>(std::ceil(widest / std::max(m_layout.slotOf(last, 0).width(), 1.0))));
        for (int place = 0; place < m_chart.places.size(); place += step) {
            const QRectF slot = m_layout.slotOf(last, place);
            if (m_isLying)
                paintLyingPlace(m_chart.places[place], slot);
            else
                drawText(QRectF(slot.center().x() - widest / 2, last.plot.bottom(), widest, m_metrics.height()),
                    Qt::AlignCenter, m_chart.places[place], m_look.muted);
        }
    }

    void paintLyingPlace(const QString& text, const QRectF& slot)
    {
        const qreal width = slot.left() - m_layout.area().left() - placeGap / 2 * m_look.unit;
        drawText(QRectF(m_layout.area().left(), slot.top(), width, slot.height()), Qt::AlignLeft | Qt::AlignVCenter,
            m_metrics.elidedText(text, Qt::ElideRight, width), m_look.text);
    }

    QPainter& m_painter;
    const Chart& m_chart;
    const ChartLook& m_look;
    const ChartLayout m_layout;
    const QFontMetricsF m_metrics;
    const bool m_isLying;
};

} // namespace

void paintChart(QPainter& painter, const QRectF& area, const Chart& chart, const ChartLook& look, int marked)
{
    if (chart.isEmpty() || area.isEmpty())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    ChartPainter(painter, area, chart, look).paint(marked);
    painter.restore();
}

} // namespace lorvan
