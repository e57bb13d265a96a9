#pragma once

#include <QString>

#include <vector>

namespace lorvan {

/// Reads a finished workbook again. The library that writes it does not notice if the disk with its temporary files is
/// full, and then leaves out rows or whole parts. Every part is read to its end and compared with its length and
/// checksum. `rows` has the number of rows of each sheet, in their order.
/// Throws TableExportError if the file differs from this, or a part is not a complete document.
void proveWorkbook(const QString& path, const std::vector<qint64>& rows);

} // namespace lorvan
