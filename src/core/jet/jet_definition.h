#pragma once

#include "jet/jet_file.h"

#include <vector>

namespace lorvan {

enum class JetKind : std::uint8_t {
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Text = 10,
    Memo = 12,
};

struct JetColumn {
    QString name;
    JetKind kind; ///< May be a kind that is not listed above; then only its values cannot be read.
    int number; ///< Its bit in a row's mask.
    bool isFixed;
    bool isCounter;
    int variableIndex; ///< For a column that is not fixed.
    int offset; ///< For a fixed column, counted from byte 2 of the row.
    int size; ///< In bytes.
};

/// The definition of one table in a file.
struct JetDefinition {
    std::uint32_t page;
    std::uint32_t rowCount;
    int columnsEver; ///< Including deleted ones; greater than every column's number.
    JetRowPointer usageMap;
    std::vector<JetColumn> columns; ///< By number.

    /// Letter case is ignored; null if there is no such column.
    [[nodiscard]] const JetColumn* columnNamed(const QString& name) const;
};

/// Reads the definition that begins on a page. Throws JetError.
[[nodiscard]] JetDefinition readDefinition(const JetFile& file, std::uint32_t firstPage);

} // namespace lorvan
