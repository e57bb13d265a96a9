#pragma once

#include "document/report_document.h"
#include "document/report_progress.h"

namespace lorvan {

/// A table of a report while it is written: its columns, the running number of its rows and their alternating shade.
/// Every table of a report goes through one object, since the shade alternates across them. Must not outlive the
/// document and the progress.
class ReportTable {
public:
    ReportTable(ReportDocument& document, const QString& format, const ReportProgress& progress);

    /// Adds titles and one row of empty cells with this border. The rows to come have none.
    void begin(int border, const QString& titles, const QString& emptyRow, ReportColour titlesShade = noShade);

    /// Grey and plain in turn, the first one grey. Throws ReportCancelled.
    void addRow(const CellTexts& cells);

    /// A row that is never shaded and leaves the alternation as it is.
    void addTotals(const CellTexts& cells);

    /// Counts from 1.
    [[nodiscard]] int nextNumber() { return ++m_number; }

private:
    ReportDocument& m_document;
    QString m_format;
    const ReportProgress& m_progress;
    int m_number = 0;
    int m_rows = 0;
    bool m_nextIsPlain = false;
};

} // namespace lorvan
