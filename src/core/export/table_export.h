#pragma once

#include <QString>

#include <functional>
#include <stdexcept>

#include "export/table_cells.h"

class QIODevice;

namespace lorvan {

class ReportDocument;

/// How a row looks; a format that cannot show it ignores it.
struct TableRowLook {
    enum class Kind { Heading, Text, Titles, Row };

    Kind kind = Kind::Row;
    bool isBold = false;
    ReportColour colour = 0;
};

/// Writes a table row by row.
class TableSink {
public:
    virtual ~TableSink() = default;
    /// Throws TableExportError.
    virtual void addRow(const std::vector<TableCell>& cells, const TableRowLook& look) = 0;
    /// To be called after the last row; the table is incomplete without it. Throws TableExportError.
    virtual void finish() = 0;
};

enum class TableFormat {
    Csv, ///< Semicolons, decimal commas, no digit grouping, dd/MM/yyyy; UTF-8 with a byte order mark, lines end in CR
         ///< LF.
    Xlsx, ///< One sheet; numbers are numbers and dates are dates.
};

/// Called now and then with the number of rows written so far and of all rows; returns false to cancel.
using ExportProgress = std::function<bool(int done, int all)>;

/// The table could not be written. what() says why, in UTF-8.
class TableExportError : public std::runtime_error {
public:
    explicit TableExportError(const QString& reason);
};

/// Writes a report as a table: header, paragraphs, titles and rows in their order, without empty ones. Returns false if
/// it was cancelled. The file replaces an earlier one of that name only once it is complete. May be called in any
/// thread. Throws TableExportError, and GivenUp: see decideOrGiveUp().
[[nodiscard]] bool saveTable(
    const ReportDocument& document, const QString& path, TableFormat format, const ExportProgress& progress);

} // namespace lorvan
