#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

class QIODevice;

namespace lorvan {

/// One field of a CSV file, without its quotes.
struct CsvField {
    QByteArray bytes;
    bool isQuoted = false; ///< An empty field is an empty text if quoted, otherwise no value.
};

/// One row or, if it cannot be read, the reason.
struct CsvRow {
    qint64 line = 0; ///< The line of the file where it begins, from 1.
    std::vector<CsvField> fields;
    QString fault; ///< In Greek; empty if the row is in order.
};

/// Reads CSV according to RFC 4180, row by row. Lines end in LF or CR LF, a UTF-8 byte order mark at the beginning is
/// skipped, and the first comma, semicolon or tab in the first line is the separator. Empty lines are skipped.
class CsvReader {
public:
    /// A longer field is assumed to be one whose closing quote is missing.
    static constexpr qsizetype longestField = 1 << 20;
    static constexpr qsizetype longestRow = 16 << 20; ///< In all its fields; the last field may exceed it.
    static constexpr std::size_t mostFields = 1000;

    /// The device must be open.
    explicit CsvReader(QIODevice& device);

    /// Reads the next row; returns false if there are no more. After a fault within a line, only that line is lost;
    /// after a missing closing quote, the rest of the file. Throws Refused if the file cannot be read.
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
    [[nodiscard]] QString readRow(CsvRow& row);
    [[nodiscard]] qsizetype plainBytesAhead() const;
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
