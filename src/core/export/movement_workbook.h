#pragma once

#include "export/xlsx_workbook.h"
#include "movements/movement.h"

namespace lorvan {

/// Writes movements as an XLSX workbook into a new file. Days are dates; amounts are numbers, or text if they have more
/// than fifteen digits; the titles stay in view. When a sheet is full, the next one begins. The file appears with
/// finish(), see XlsxWorkbook.
class MovementWorkbook {
public:
    /// A sheet has `rowsOfSheet` rows, titles included. Throws TableExportError.
    explicit MovementWorkbook(const QString& path, unsigned rowsOfSheet = XlsxWorkbook::mostRows);

    /// Throws TableExportError.
    void add(const Movement& movement);
    /// Writes the file and reads it again. Throws TableExportError.
    void finish() { m_workbook.finish(); }

private:
    void beginSheet();
    void addAmount(int column, Currency amount);

    XlsxWorkbook m_workbook;
    lxw_format* m_titles;
    lxw_format* m_whole;
    lxw_format* m_date;
    lxw_format* m_amount;
    const unsigned m_rowsOfSheet;
};

} // namespace lorvan
