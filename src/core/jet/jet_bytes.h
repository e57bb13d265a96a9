#pragma once

#include "jet/jet_error.h"

#include <QByteArrayView>
#include <QtEndian>

#include <bit>
#include <cstdint>
#include <cstring>

namespace lorvan {

/// A section of a file that is held in memory elsewhere. Numbers are little-endian; reading outside the section throws
/// JetError.
class JetBytes {
public:
    JetBytes() = default;
    explicit JetBytes(QByteArrayView bytes)
        : m_data(bytes.data())
        , m_size(static_cast<std::uint64_t>(bytes.size()))
    {
    }

    [[nodiscard]] std::uint64_t size() const { return m_size; }

    [[nodiscard]] std::uint8_t u8(std::uint64_t offset) const { return read<std::uint8_t>(offset); }
    [[nodiscard]] std::uint16_t u16(std::uint64_t offset) const { return read<std::uint16_t>(offset); }
    [[nodiscard]] std::uint32_t u32(std::uint64_t offset) const { return read<std::uint32_t>(offset); }
    [[nodiscard]] std::int16_t i16(std::uint64_t offset) const { return read<std::int16_t>(offset); }
    [[nodiscard]] std::int32_t i32(std::uint64_t offset) const { return read<std::int32_t>(offset); }
    [[nodiscard]] std::int64_t i64(std::uint64_t offset) const { return read<std::int64_t>(offset); }
    [[nodiscard]] float f32(std::uint64_t offset) const { return std::bit_cast<float>(u32(offset)); }
    [[nodiscard]] double f64(std::uint64_t offset) const { return std::bit_cast<double>(read<std::uint64_t>(offset)); }

    [[nodiscard]] JetBytes part(std::uint64_t offset, std::uint64_t length) const
    {
        require(offset, length);
        return JetBytes(QByteArrayView(m_data + offset, static_cast<qsizetype>(length)));
    }
    [[nodiscard]] JetBytes from(std::uint64_t offset) const
    {
        require(offset, 0);
        return part(offset, m_size - offset);
    }
    [[nodiscard]] QByteArrayView view() const { return {m_data, static_cast<qsizetype>(m_size)}; }

private:
    void require(std::uint64_t offset, std::uint64_t width) const
    {
        if (offset > m_size || width > m_size - offset)
            throw JetError(QStringLiteral("χρειάζονται %1 byte από τη θέση %2, αλλά υπάρχουν μόνο %3")
                               .arg(width)
                               .arg(offset)
                               .arg(m_size));
    }
    template <typename Number> [[nodiscard]] Number read(std::uint64_t offset) const
    {
        require(offset, sizeof(Number));
        Number number;
        std::memcpy(&number, m_data + offset, sizeof(Number));
        return qFromLittleEndian(number);
    }

    const char* m_data = nullptr;
    std::uint64_t m_size = 0;
};

/// The location of a row: four bytes in the file.
struct JetRowPointer {
    std::uint32_t page;
    int row;

    static JetRowPointer at(const JetBytes& bytes, std::uint64_t offset)
    {
        const std::uint32_t packed = bytes.u32(offset);
        return {packed >> 8, static_cast<int>(packed & 0xFF)};
    }
};

} // namespace lorvan
