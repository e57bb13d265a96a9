#include "jet/jet_row.h"

namespace lorvan {
namespace {

constexpr std::uint64_t countSize = 2;

} // namespace

JetRow::JetRow(const JetBytes& bytes, const JetDefinition& definition)
    : m_bytes(bytes)
    , m_columnCount(bytes.u16(0))
{
    if (m_columnCount > definition.columnsEver)
        throw JetError(QStringLiteral("η γραμμή λέει ότι έχει %1 στήλες, ο πίνακας είχε ως %2")
                           .arg(m_columnCount)
                           .arg(definition.columnsEver));
    const std::uint64_t maskSize = (static_cast<std::uint64_t>(m_columnCount) + 7) / 8;
    if (m_bytes.size() < countSize + maskSize)
        throw JetError(QStringLiteral("η γραμμή έχει μόνο %1 byte").arg(m_bytes.size()));
    m_maskOffset = m_bytes.size() - maskSize;
}

bool JetRow::bit(int number) const
{
    if (number >= m_columnCount)
        return false;
    return (m_bytes.u8(m_maskOffset + static_cast<std::uint64_t>(number) / 8) >> (number % 8)) & 1;
}

bool JetRow::boolean(const JetColumn& column) const
{
    return bit(column.number);
}

std::optional<JetBytes> JetRow::bytesOf(const JetColumn& column) const
{
    if (!bit(column.number))
        return std::nullopt;
    return column.isFixed ? fixedBytes(column) : variableBytes(column);
}

JetBytes JetRow::fixedBytes(const JetColumn& column) const
{
    const std::uint64_t start = countSize + static_cast<std::uint64_t>(column.offset);
    const std::uint64_t end = start + static_cast<std::uint64_t>(column.size);
    if (end > m_maskOffset)
        throw JetError(QStringLiteral("η τιμή θα έπιανε τις θέσεις %1 ως %2 μιας γραμμής με %3 byte")
                           .arg(start)
                           .arg(end)
                           .arg(m_bytes.size()));
    return m_bytes.part(start, end - start);
}

JetBytes JetRow::variableBytes(const JetColumn& column) const
{
    const std::uint64_t q = m_maskOffset;
    const std::uint64_t count = q >= countSize + 2 ? m_bytes.u16(q - 2) : 0;
    const auto index = static_cast<std::uint64_t>(column.variableIndex);
    if (6 + 2 * count > q || index >= count)
        throw JetError(QStringLiteral("η γραμμή λέει ότι έχει %1 τιμές μεταβλητού μήκους· ζητείται η %2")
                           .arg(count)
                           .arg(index + 1));
    const std::uint64_t start = m_bytes.u16(q - 4 - 2 * index);
    const std::uint64_t end = m_bytes.u16(q - 6 - 2 * index);
    if (start < countSize || start > end || end > q - 4 - 2 * count)
        throw JetError(QStringLiteral("η τιμή λέει ότι πιάνει τις θέσεις %1 ως %2 μιας γραμμής με %3 byte")
                           .arg(start)
                           .arg(end)
                           .arg(m_bytes.size()));
    return m_bytes.part(start, end - start);
}

} // namespace lorvan
