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
    JetKind kind; ///< May be a kind that is not listed above; only its values cannot be read.
    int number; ///< Its bit in a row's mask.
    bool isFixed;
    bool isCounter;
    int variableIndex; ///< Of a column that is not fixed.
    int offset; ///< Of a fixed column, counted from byte 2 of the row.
    int size; ///< In bytes.
};

/// What a file says of one table.
struct JetDefinition {
    std::uint32_t page;
    std::uint32_t rowCount;
    int columnsEver; ///< Deleted ones included; greater than every column's number.
    JetRowPointer usageMap;
    std::vector<JetColumn> columns; ///< By number.

    /// Names ignore letter case; null when there is none.
    [[nodiscard]] const JetColumn* columnNamed(const QString& name) const;
};

/// The definition that begins on a page. Throws JetError.
[[nodiscard]] JetDefinition readDefinition(const JetFile& file, std::uint32_t firstPage);

} // namespace lorvan
