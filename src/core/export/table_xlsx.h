#pragma once

#include "export/table_export.h"

#include <map>
#include <memory>
#include <tuple>
#include <vector>

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

namespace lorvan {

/// Writes a table as a workbook of one sheet into a new file. Temporary files lie beside it. Until finish() there is no
/// file, and without it there will be none.
class XlsxSink : public TableSink {
public:
    /// Throws TableExportError. The document gives page and columns.
    XlsxSink(const QString& path, const ReportDocument& document);
    ~XlsxSink() override;

    void addRow(const std::vector<TableCell>& cells, const TableRowLook& look) override;
    void finish() override;

private:
    using Look = std::tuple<TableCell::Kind, TableRowLook::Kind, bool, ReportColour>;

    void setColumns(const ReportDocument& document);
    void addCell(int column, const TableCell& cell, lxw_format* format);
    void setWidth(std::size_t column, double width);
    void widenFor(int column, const TableCell& cell, const TableRowLook& look);
    [[nodiscard]] lxw_format* formatFor(TableCell::Kind kind, const TableRowLook& look);

    QString m_path;
    lxw_workbook* m_workbook;
    lxw_worksheet* m_sheet;
    std::map<Look, lxw_format*> m_formats;
    unsigned m_row = 0;
    std::vector<double> m_widths; ///< In characters.
    bool m_hasTitles = false;
};

} // namespace lorvan
