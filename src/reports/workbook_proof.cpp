#include "reports/workbook_proof.h"

#include "reports/table_export.h"

#include <QFile>
#include <QtEndian>

#include <zlib.h>

#include <algorithm>
#include <map>
#include <new>

namespace lorvan {
namespace {

constexpr qsizetype endLength = 22; ///< Of the archive's last record, which has no comment.
constexpr qsizetype entryLength = 46;
constexpr qsizetype localLength = 30;
constexpr quint16 deflated = 8;
constexpr qint64 readAtOnce = 1 << 16;

template <typename Number> Number numberAt(const QByteArray& bytes, qsizetype place)
{
    return qFromLittleEndian<Number>(bytes.constData() + place);
}

TableExportError incomplete()
{
    return TableExportError(QStringLiteral("Το αρχείο XLSX δεν γράφτηκε ολόκληρο. Ίσως ο δίσκος είναι γεμάτος."));
}

/// An entry of the archive's directory.
struct Part {
    quint16 method = 0;
    quint32 checksum = 0;
    qint64 length = 0; ///< Compressed.
    qint64 place = 0; ///< Of its local header.
};

QByteArray readAt(QFile& file, qint64 place, qint64 length)
{
    QByteArray bytes;
    if (place >= 0 && file.seek(place))
        bytes = file.read(length);
    if (bytes.size() != length)
        throw incomplete();
    return bytes;
}

std::map<QByteArray, Part> readDirectory(QFile& file)
{
    const QByteArray end = readAt(file, file.size() - endLength, endLength);
    if (!end.startsWith("PK\5\6"))
        throw incomplete();
    const QByteArray directory = readAt(file, numberAt<quint32>(end, 16), numberAt<quint32>(end, 12));
    std::map<QByteArray, Part> parts;
    for (qsizetype at = 0; at + entryLength <= directory.size();) {
        const qsizetype nameLength = numberAt<quint16>(directory, at + 28);
        parts[directory.mid(at + entryLength, nameLength)] = {numberAt<quint16>(directory, at + 10),
            numberAt<quint32>(directory, at + 16), numberAt<quint32>(directory, at + 20),
            numberAt<quint32>(directory, at + 42)};
        at += entryLength + nameLength + numberAt<quint16>(directory, at + 30) + numberAt<quint16>(directory, at + 32);
    }
    return parts;
}

/// Counts the ends of rows in a text that comes in pieces, and remembers how the text ends.
class RowCount {
public:
    void take(const QByteArray& piece)
    {
        const qsizetype overlap = std::min<qsizetype>(m_tail.size(), rowEnd.size() - 1);
        m_rows += (m_tail.right(overlap) + piece).count(rowEnd);
        m_tail = (m_tail + piece).right(sheetEnd.size());
    }
    [[nodiscard]] qint64 rows() const { return m_rows; }
    [[nodiscard]] bool isWhole() const { return m_tail == sheetEnd; }

private:
    const QByteArray rowEnd = QByteArrayLiteral("</row>");
    const QByteArray sheetEnd = QByteArrayLiteral("</worksheet>");
    QByteArray m_tail;
    qint64 m_rows = 0;
};

class Inflation {
public:
    Inflation()
    {
        if (inflateInit2(&m_stream, -MAX_WBITS) != Z_OK)
            throw std::bad_alloc();
    }
    ~Inflation() { inflateEnd(&m_stream); }
    Inflation(const Inflation&) = delete;
    Inflation& operator=(const Inflation&) = delete;

    void take(QByteArray compressed, RowCount& rows)
    {
        m_stream.next_in = reinterpret_cast<Bytef*>(compressed.data());
        m_stream.avail_in = static_cast<uInt>(compressed.size());
        do {
            QByteArray piece(readAtOnce, Qt::Uninitialized);
            m_stream.next_out = reinterpret_cast<Bytef*>(piece.data());
            m_stream.avail_out = static_cast<uInt>(piece.size());
            const int outcome = inflate(&m_stream, Z_NO_FLUSH);
            if (outcome != Z_OK && outcome != Z_STREAM_END && outcome != Z_BUF_ERROR)
                throw incomplete();
            piece.truncate(piece.size() - static_cast<qsizetype>(m_stream.avail_out));
            m_checksum =
                crc32(m_checksum, reinterpret_cast<const Bytef*>(piece.constData()), static_cast<uInt>(piece.size()));
            rows.take(piece);
        } while (m_stream.avail_out == 0);
    }
    [[nodiscard]] uLong checksum() const { return m_checksum; }

private:
    z_stream m_stream{};
    uLong m_checksum = crc32(0, nullptr, 0);
};

void proveSheet(QFile& file, const Part& part, qint64 expectedRows)
{
    const QByteArray header = readAt(file, part.place, localLength);
    if (part.method != deflated || !header.startsWith("PK\3\4"))
        throw incomplete();
    qint64 place = part.place + localLength + numberAt<quint16>(header, 26) + numberAt<quint16>(header, 28);
    Inflation inflation;
    RowCount rows;
    for (qint64 left = part.length; left > 0;) {
        const qint64 length = std::min(left, readAtOnce);
        inflation.take(readAt(file, place, length), rows);
        place += length;
        left -= length;
    }
    if (inflation.checksum() != part.checksum || !rows.isWhole() || rows.rows() != expectedRows)
        throw incomplete();
}

} // namespace

void proveWorkbook(const QString& path, const std::vector<qint64>& rows)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw TableExportError(file.errorString());
    const auto parts = readDirectory(file);
    for (std::size_t sheet = 0; sheet < rows.size(); ++sheet) {
        const auto part = parts.find("xl/worksheets/sheet" + QByteArray::number(sheet + 1) + ".xml");
        if (part == parts.end())
            throw incomplete();
        proveSheet(file, part->second, rows[sheet]);
    }
}

} // namespace lorvan
