#pragma once

#include <QString>

#include <functional>
#include <stdexcept>

#include "export/table_cells.h"

class QIODevice;

namespace lorvan {

class ReportDocument;

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

enum class TableFormat {
    Csv, ///< Semicolons, comma decimals without grouping, dd/MM/yyyy; UTF-8 with a mark, lines end in CR LF.
    Xlsx, ///< One sheet with numbers and dates as such.
};

/// Called now and then with the rows written and all there are; false gives up.
using ExportProgress = std::function<bool(int done, int all)>;

/// The table could not be written. what() says why, in UTF-8.
class TableExportError : public std::runtime_error {
public:
    explicit TableExportError(const QString& reason);
};

/// Writes a report as a table: its header and paragraphs, titles and rows in their order, without the empty ones. The
/// file appears whole or not at all: given up or failed, an earlier file of that name stays. False when given up. Runs
/// on any thread. Throws TableExportError.
[[nodiscard]] bool saveTable(
    const ReportDocument& document, const QString& path, TableFormat format, const ExportProgress& progress);

} // namespace lorvan
