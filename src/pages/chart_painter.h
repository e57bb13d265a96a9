#pragma once

#include "chart_layout.h"

class QPainter;

namespace lorvan {

/// Draws a chart into the area: legend, axes, bars and lines. Income is drawn as full bars, expense as hatched ones,
/// the year before in outline or dashed, so that they differ in black and white. `marked` is a place to draw on a
/// ground of its own; -1 for none. An empty chart draws nothing. Restores the painter's state.
void paintChart(QPainter& painter, const QRectF& area, const Chart& chart, const ChartLook& look, int marked = -1);

} // namespace lorvan
