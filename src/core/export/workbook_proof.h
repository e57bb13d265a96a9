#pragma once

#include <QString>

#include <vector>

namespace lorvan {

/// Reads a finished workbook again, since the library that writes it does not notice when the disk under its temporary
/// files is full, and then leaves out rows or whole parts: every part is read to its end, against its length and
/// checksum. `rows` holds the number of rows of each sheet, in order.
/// Throws TableExportError when there is anything else in the file, or a part that is no whole document.
void proveWorkbook(const QString& path, const std::vector<qint64>& rows);

} // namespace lorvan
