#include "jet/jet_data_page.h"

namespace lorvan {
namespace {

constexpr std::uint64_t ownerOffset = 4;
constexpr std::uint64_t slotCountOffset = 12;
constexpr std::uint64_t slotsOffset = 14;
constexpr std::uint64_t slotSize = 2;

constexpr std::uint16_t startBits = 0x1FFF;
constexpr std::uint16_t movedFlag = 0x4000;
constexpr std::uint16_t deletedFlag = 0x8000;

constexpr QByteArrayView longValueOwner("LVAL", 4);

} // namespace

JetDataPage::JetDataPage(const JetFile& file, std::uint32_t page)
    : m_page(file.pageOfKind(page, JetFile::PageKind::Data))
    , m_slotCount(m_page.u16(slotCountOffset))
{
    if (slotsOffset + slotSize * static_cast<std::uint64_t>(m_slotCount) > JetFile::pageSize)
        throw JetError(
            QStringLiteral("η σελίδα λέει ότι έχει %1 γραμμές, περισσότερες από όσες χωρά").arg(m_slotCount));
}

std::uint32_t JetDataPage::owner() const
{
    return m_page.u32(ownerOffset);
}

bool JetDataPage::holdsLongValues() const
{
    return m_page.part(ownerOffset, 4).view() == longValueOwner;
}

std::uint16_t JetDataPage::packedSlot(int number) const
{
    return m_page.u16(slotsOffset + slotSize * static_cast<std::uint64_t>(number));
}

JetDataPage::Slot JetDataPage::slot(int number) const
{
    if (number < 0 || number >= m_slotCount)
        throw JetError(QStringLiteral("η γραμμή %1 δεν υπάρχει· η σελίδα έχει %2").arg(number).arg(m_slotCount));
    const std::uint16_t packed = packedSlot(number);
    const std::uint64_t least = slotsOffset + slotSize * static_cast<std::uint64_t>(m_slotCount);
    const std::uint64_t start = packed & startBits;
    const std::uint64_t end = number == 0 ? JetFile::pageSize : packedSlot(number - 1) & startBits;
    if (start < least || start > end || end > JetFile::pageSize)
        throw JetError(QStringLiteral("η γραμμή λέει ότι πιάνει τις θέσεις %1 ως %2 της σελίδας").arg(start).arg(end));
    return {m_page.part(start, end - start), (packed & movedFlag) != 0, (packed & deletedFlag) != 0};
}

JetBytes bytesAt(const JetFile& file, JetRowPointer pointer)
{
    return locating({file.name(), {}, pointer.page, pointer.row, {}},
        [&] { return JetDataPage(file, pointer.page).slot(pointer.row).bytes; });
}

} // namespace lorvan
