#pragma once

#include "jet/jet_definition.h"

#include <optional>

namespace lorvan {

/// The bytes of one row, split up according to its table's definition, which must outlive it.
class JetRow {
public:
    /// Throws JetError for a row that is too short or has more columns than its table ever had.
    JetRow(const JetBytes& bytes, const JetDefinition& definition);

    /// The bit of a boolean column; false if the row is older than the column.
    [[nodiscard]] bool boolean(const JetColumn& column) const;

    /// The bytes of a non-boolean column; no value for NULL. Throws JetError if the bytes are outside the part of the
    /// row meant for them.
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
