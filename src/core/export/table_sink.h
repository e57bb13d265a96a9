#pragma once

#include "export/table_cells.h"

class QIODevice;

namespace lorvan {

/// What the rows of a table look like, where the format can show it.
struct TableRowLook {
    enum class Kind { Heading, Text, Titles, Row };

    Kind kind = Kind::Row;
    bool isBold = false;
    ReportColour colour = 0;
};

/// A file that takes a table row by row.
class TableSink {
public:
    virtual ~TableSink() = default;
    /// Throws TableExportError.
    virtual void addRow(const std::vector<TableCell>& cells, const TableRowLook& look) = 0;
    /// After the last row; without it nothing is whole. Throws TableExportError.
    virtual void finish() = 0;
};

} // namespace lorvan
