#pragma once

#include "csv/csv_table.h"

#include <QCryptographicHash>

namespace lorvan {

/// SHA-256 over the rows of imported files, independent of their separators, quotes, line ends and order of columns.
/// Its exact form is described in docs/data-files.md.
class ImportDigest {
public:
    /// Adds the table's current row, with those of its columns that an import reads.
    void add(const QString& file, const CsvTable& row, const std::vector<CsvColumn>& columns);

    [[nodiscard]] QString text() const; ///< 64 hexadecimal digits.

private:
    QCryptographicHash m_hash{QCryptographicHash::Sha256};
    QByteArray m_lines; ///< Of one row; kept, so that its memory serves again.
};

} // namespace lorvan
