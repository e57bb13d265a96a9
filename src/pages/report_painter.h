#pragma once

class QPainter;

namespace lorvan {

class ReportPage;

/// Paints a page with a painter that counts in twips from the page's top left corner. The one painter for screen,
/// printer and PDF: texts are drawn as texts, a row at a time.
void paintReportPage(QPainter& painter, const ReportPage& page);

} // namespace lorvan
