#include "export/workbook_proof.h"

#include "export/table_export.h"
#include "platform/stop_check.h"

#include <QFile>
#include <QXmlStreamReader>

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <map>
#include <memory>

namespace lorvan {
namespace {

constexpr std::size_t readAtOnce = 1 << 16;

TableExportError incomplete()
{
    return TableExportError(QStringLiteral("Το αρχείο XLSX δεν γράφτηκε ολόκληρο. Ίσως ο δίσκος είναι γεμάτος."));
}

/// Counts the row ends in a text that is read in pieces, and keeps the end of the text.
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

/// Reads an archive part by part. It is an error if a length or a checksum differs from the one in the archive.
class PartReader {
public:
    explicit PartReader(const QString& path)
        : m_archive(archive_read_new())
    {
        archive_read_support_format_zip_seekable(m_archive.get()); // reads the directory at the end of the archive
        if (archive_read_open_filename(m_archive.get(), QFile::encodeName(path).constData(), readAtOnce) != ARCHIVE_OK)
            throw incomplete();
    }

    /// Goes to the next part and returns its name; an empty text after the last.
    [[nodiscard]] QByteArray next()
    {
        archive_entry* entry = nullptr;
        const int code = archive_read_next_header(m_archive.get(), &entry);
        if (code == ARCHIVE_EOF)
            return {};
        const char* const name = code == ARCHIVE_OK ? archive_entry_pathname(entry) : nullptr;
        if (!name || *name == 0)
            throw incomplete();
        return name;
    }

    /// The next bytes of the part; none at its end.
    [[nodiscard]] QByteArray read()
    {
        QByteArray piece(readAtOnce, Qt::Uninitialized);
        const auto length = archive_read_data(m_archive.get(), piece.data(), readAtOnce);
        if (length < 0 || !StopCheck::goesOn())
            throw incomplete();
        piece.truncate(length);
        return piece;
    }

private:
    struct Free {
        void operator()(archive* handle) const { archive_read_free(handle); }
    };
    std::unique_ptr<archive, Free> m_archive;
};

void proveSheet(PartReader& parts, qint64 expectedRows)
{
    RowCount rows;
    for (QByteArray piece = parts.read(); !piece.isEmpty(); piece = parts.read())
        rows.take(piece);
    if (!rows.isWhole() || rows.rows() != expectedRows)
        throw incomplete();
}

/// Parts other than sheets must be complete XML documents.
void proveDocument(PartReader& parts)
{
    QXmlStreamReader document;
    const auto readOn = [&document] {
        while (!document.atEnd())
            document.readNext();
    };
    for (QByteArray piece = parts.read(); !piece.isEmpty(); piece = parts.read()) {
        document.addData(piece);
        readOn();
    }
    readOn();
    if (document.hasError())
        throw incomplete();
}

} // namespace

void proveWorkbook(const QString& path, const std::vector<qint64>& rows)
{
    std::map<QByteArray, qint64> sheets;
    for (std::size_t sheet = 0; sheet < rows.size(); ++sheet)
        sheets["xl/worksheets/sheet" + QByteArray::number(sheet + 1) + ".xml"] = rows[sheet];
    PartReader parts(path);
    for (QByteArray name = parts.next(); !name.isEmpty(); name = parts.next()) {
        const auto sheet = sheets.find(name);
        if (sheet == sheets.end()) {
            proveDocument(parts);
            continue;
        }
        proveSheet(parts, sheet->second);
        sheets.erase(sheet);
    }
    if (!sheets.empty())
        throw incomplete();
}

} // namespace lorvan
