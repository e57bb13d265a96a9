#pragma once

#include "jet/jet_definition.h"

#include <optional>

namespace lorvan {

/// The bytes of one row, split by its table's definition, which must outlive it.
class JetRow {
public:
    /// Throws JetError for a row that is too short or has more columns than its table ever had.
    JetRow(const JetBytes& bytes, const JetDefinition& definition);

    /// The bit of a boolean column; false where the row is from before the column.
    [[nodiscard]] bool boolean(const JetColumn& column) const;

    /// The bytes of a column that is no boolean; nothing for NULL. Throws JetError for bytes outside their part of the
    /// row.
    [[nodiscard]] std::optional<JetBytes> bytesOf(const JetColumn& column) const;

private:
    [[nodiscard]] bool bit(int number) const;
    [[nodiscard]] JetBytes fixedBytes(const JetColumn& column) const;
    [[nodiscard]] JetBytes variableBytes(const JetColumn& column) const;

    JetBytes m_bytes;
    int m_columnCount;
    std::uint64_t m_maskOffset = 0;
};

} // namespace lorvan
