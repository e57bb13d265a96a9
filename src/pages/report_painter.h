#pragma once

class QPainter;

namespace lorvan {

class ReportPage;

/// Paints a page with a painter whose unit is the twip, from the page's top left corner. Used for screen, printer and
/// PDF: texts are drawn as texts, a row at a time.
void paintReportPage(QPainter& painter, const ReportPage& page);

} // namespace lorvan
