#pragma once

#include "export/table_export.h"
#include "export/xlsx_workbook.h"

#include <map>
#include <tuple>
#include <vector>

namespace lorvan {

/// Writes a table as a workbook of one sheet into a new file, see XlsxWorkbook.
class XlsxSink : public TableSink {
public:
    /// Page and column widths are taken from the document. Throws TableExportError.
    XlsxSink(const QString& path, const ReportDocument& document);

    void addRow(const std::vector<TableCell>& cells, const TableRowLook& look) override;
    void finish() override { m_workbook.finish(); }

private:
    using Look = std::tuple<TableCell::Kind, TableRowLook::Kind, bool, ReportColour>;

    void setColumns(const ReportDocument& document);
    void addCell(int column, const TableCell& cell, lxw_format* format);
    void setWidth(std::size_t column, double width);
    void widenFor(int column, const TableCell& cell, const TableRowLook& look);
    [[nodiscard]] lxw_format* formatFor(TableCell::Kind kind, const TableRowLook& look);

    XlsxWorkbook m_workbook;
    std::map<Look, lxw_format*> m_formats;
    std::vector<double> m_widths; ///< In characters.
    bool m_hasTitles = false;
};

} // namespace lorvan
