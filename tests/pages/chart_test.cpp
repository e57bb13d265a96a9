#include "chart_painter.h"
#include "support/ink.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

Chart chartOf(const std::vector<std::optional<Currency>>& values)
{
    Chart chart;
    for (std::size_t place = 0; place < values.size(); ++place)
        chart.places.append(QString::number(place));
    chart.panels.push_back({ChartPanel::Kind::Bars, {{"Έσοδα", ChartRole::Income, values, false}}});
    return chart;
}

Currency euros(std::int64_t count)
{
    return Currency::fromTenThousandths(count * Currency::unitsPerEuro);
}

} // namespace

TEST(ChartAxisTest, HasRoundAmountsAroundAllValuesAndZero)
{
    const struct {
        std::int64_t low;
        std::int64_t high;
        QString ticks;
    } cases[] = {
        {0, 0, "0 0,20 0,40 0,60 0,80 1"},
        {0, 4, "0 1 2 3 4"},
        {900, 4'100, "0 1.000 2.000 3.000 4.000 5.000"},
        {-30, 70, "-50 0 50 100"},
        {-7'000, -100, "-8.000 -6.000 -4.000 -2.000 0"},
        {0, 922'337'203'685'477, "0 200.000.000.000.000 400.000.000.000.000 600.000.000.000.000 800.000.000.000.000"},
    };
    for (const auto& one : cases) {
        const ChartAxis axis = axisFor(chartOf({euros(one.low), std::nullopt, euros(one.high)}).panels[0], 6);
        QStringList ticks;
        for (const Currency tick : axis.ticks)
            ticks += tickText(tick);
        EXPECT_TRUE(ticks.join(' ').startsWith(one.ticks)) << ticks.join(' ').toStdString();
        EXPECT_LE(axis.low, euros(one.low));
        EXPECT_GE(axis.high, std::min(euros(one.high), Currency::fromTenThousandths(9'000'000'000'000'000'000)));
        EXPECT_LE(ticks.size(), 6);
    }
}

TEST(ChartLayoutTest, ABarStandsInThePlaceThatIsFoundThere)
{
    const QRectF area(0, 0, 600, 300);
    for (const Chart::Form form : {Chart::Form::Upright, Chart::Form::Lying}) {
        Chart chart = chartOf({euros(10), euros(-5), std::nullopt, euros(20)});
        chart.form = form;
        ChartLook look = paperLook(8);
        look.font.setPixelSize(10);
        look.unit = 1;
        QImage image(600, 300, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        paintChart(painter, area, chart, look);
        painter.end();
        const ChartLayout layout(chart, look, area);
        const ChartLayout::Panel& panel = layout.panels().front();
        for (int place = 0; place < 4; ++place) {
            const QRectF slot = layout.slotOf(panel, place);
            EXPECT_EQ(layout.placeAt(slot.center()), place);
            const Currency half = euros(place == 1 ? -3 : 5);
            const qreal at = layout.position(panel, half);
            const QPointF inBar =
                form == Chart::Form::Lying ? QPointF(at, slot.center().y()) : QPointF(slot.center().x(), at);
            EXPECT_EQ(image.pixelColor(inBar.toPoint()) == look.income, place != 2) << place;
        }
        EXPECT_EQ(layout.placeAt({300, 5}), -1); // on the legend
    }
}

} // namespace lorvan::test
