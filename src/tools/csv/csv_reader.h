#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

class QIODevice;

namespace lorvan {

/// One field of a CSV file, its quotes taken off.
struct CsvField {
    QByteArray bytes;
    bool isQuoted = false; ///< An empty field is an empty text when quoted, and nothing at all otherwise.
};

/// One row, and why it cannot be read where it cannot.
struct CsvRow {
    qint64 line = 0; ///< The line of the file on which it begins, from 1.
    std::vector<CsvField> fields;
    QString fault; ///< In Greek; empty for a row that is all right.
};

/// Reads CSV as of RFC 4180, row by row. Lines end in LF or CR LF, a mark of UTF-8 at the beginning is passed over, and
/// the first comma, semicolon or tab of the first line says what divides the fields. Empty lines are passed over.
class CsvReader {
public:
    /// A field that is longer is taken for one whose quotes are never closed.
    static constexpr qsizetype longestField = 1 << 20;
    static constexpr qsizetype longestRow = 16 << 20; ///< In all its fields; one more field may pass it.
    static constexpr std::size_t mostFields = 1000;

    /// The device must be open.
    explicit CsvReader(QIODevice& device);

    /// The next row; false when none is left. A fault inside a line costs that line alone; quotes that are never closed
    /// cost the rest of the file. Throws Refused when the file cannot be read.
    [[nodiscard]] bool read(CsvRow& row);

    [[nodiscard]] char separator() const { return m_separator; }
    [[nodiscard]] qint64 bytesRead() const { return m_bytesRead; }

private:
    static constexpr int end = -1;

    [[nodiscard]] int peek();
    int take();
    void fill();
    [[nodiscard]] bool atLineEnd();
    void takeLineEnd();
    void skipLine();
    [[nodiscard]] QString readField(CsvField& field);
    [[nodiscard]] QString readQuoted(CsvField& field);
    [[nodiscard]] QString readPlain(CsvField& field);

    QIODevice& m_device;
    QByteArray m_buffer;
    qsizetype m_next = 0;
    qint64 m_bytesRead = 0;
    qint64 m_line = 1;
    char m_separator = ',';
};

} // namespace lorvan
