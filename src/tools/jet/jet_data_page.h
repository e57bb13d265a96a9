#pragma once

#include "jet/jet_file.h"

namespace lorvan {

/// A data page: row slots in front, rows filling it from its end downwards.
class JetDataPage {
public:
    struct Slot {
        JetBytes bytes;
        bool isMoved; ///< The bytes begin with a pointer to where the row is.
        bool isDeleted; ///< Or the data of a row that was moved here.
    };

    /// Throws JetError for a page of another kind and for more slots than fit.
    JetDataPage(const JetFile& file, std::uint32_t page);

    [[nodiscard]] std::uint32_t owner() const; ///< The page of the table's definition.
    [[nodiscard]] bool holdsLongValues() const;
    [[nodiscard]] int slotCount() const { return m_slotCount; }
    /// Throws JetError for a slot that is not there or that lies outside the page or in another row.
    [[nodiscard]] Slot slot(int number) const;

private:
    [[nodiscard]] std::uint16_t packedSlot(int number) const;

    JetBytes m_page;
    int m_slotCount;
};

/// The bytes that a row pointer names, whatever their flags.
[[nodiscard]] JetBytes bytesAt(const JetFile& file, JetRowPointer pointer);

} // namespace lorvan
