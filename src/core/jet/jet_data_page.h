#pragma once

#include "jet/jet_file.h"

namespace lorvan {

/// A data page: row slots at the front, row data filling it from the end backwards.
class JetDataPage {
public:
    struct Slot {
        JetBytes bytes;
        bool isMoved; ///< The bytes begin with a pointer to the row's present place.
        bool isDeleted; ///< Also set for the data of a row that was moved here.
    };

    /// Throws JetError if the page is of another kind or has more slots than fit.
    JetDataPage(const JetFile& file, std::uint32_t page);

    [[nodiscard]] std::uint32_t owner() const; ///< The page of the table's definition.
    [[nodiscard]] bool holdsLongValues() const;
    [[nodiscard]] int slotCount() const { return m_slotCount; }
    /// Throws JetError if the slot does not exist, or lies outside the page or inside another row.
    [[nodiscard]] Slot slot(int number) const;

private:
    [[nodiscard]] std::uint16_t packedSlot(int number) const;

    JetBytes m_page;
    int m_slotCount;
};

/// The bytes that a row pointer points to, whatever their flags.
[[nodiscard]] JetBytes bytesAt(const JetFile& file, JetRowPointer pointer);

} // namespace lorvan
