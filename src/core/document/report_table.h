#pragma once

#include "document/report_document.h"
#include "document/report_progress.h"

namespace lorvan {

/// A table of a report that is being written: its columns, the running number of its rows and their alternating shade.
/// All tables of a report use one object, since the shade alternates across them. The document and the progress must
/// outlive it.
class ReportTable {
public:
    ReportTable(ReportDocument& document, const QString& format, const ReportProgress& progress);

    /// Adds titles and one row of empty cells with this border. The rows that follow have no border.
    void begin(int border, const QString& titles, const QString& emptyRow, ReportColour titlesShade = noShade);

    /// Alternately grey and plain, beginning with grey. Throws ReportCancelled.
    void addRow(const CellTexts& cells);

    /// A row that is never shaded and does not affect the alternation.
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
