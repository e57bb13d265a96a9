#pragma once

#include "csv/csv_reader.h"
#include "csv/csv_values.h"

#include <QFile>

#include <optional>
#include <vector>

namespace lorvan {

/// A column that a table's CSV file must or may have.
struct CsvColumn {
    enum class Need {
        Required,
        Optional,
        Ignored ///< May be there, but is not read.
    };

    QByteArray name;
    Need need = Need::Required;
};

/// A row, or the row of titles, that cannot be accepted. what() says why, in Greek, and begins with the column if only
/// one is concerned.
class BadRow : public std::runtime_error {
public:
    enum class Reach {
        Row,
        File ///< Nothing after it can be accepted either.
    };
    explicit BadRow(const QString& reason, Reach reach = Reach::Row);
    [[nodiscard]] Reach reach() const { return m_reach; }

private:
    Reach m_reach;
};

/// A table in a CSV file with a row of titles. Columns are identified by their names, in any order and letter case.
/// Reading values throws BadRow; a column missing from the file is read as an empty field.
class CsvTable {
public:
    /// Throws Refused when the file cannot be read.
    explicit CsvTable(const QString& path);

    /// Reads the titles. Throws BadRow for a column that is missing, unknown or repeated.
    void readTitles(const std::vector<CsvColumn>& columns);

    /// Moves to the next row; returns false if there are no more. Throws BadRow for one that cannot be read.
    [[nodiscard]] bool next();

    [[nodiscard]] qint64 line() const { return m_row.line; }
    [[nodiscard]] qint64 bytesRead() const { return m_reader.bytesRead(); }
    [[nodiscard]] qint64 size() const { return m_file.size(); }

    /// The field without its quotes; no value if the column is missing or the field is empty without quotes.
    [[nodiscard]] std::optional<QByteArray> field(QByteArrayView column) const;
    [[nodiscard]] bool has(QByteArrayView column) const { return placeOf(column).has_value(); }
    /// No value if the field is empty without quotes.
    [[nodiscard]] std::optional<QString> text(QByteArrayView column) const;
    [[nodiscard]] qint32 number(QByteArrayView column) const;
    [[nodiscard]] qint32 number(QByteArrayView column, qint32 whereEmpty) const;
    [[nodiscard]] qint64 longNumber(QByteArrayView column, qint64 whereEmpty) const;
    [[nodiscard]] QDate date(QByteArrayView column) const;
    [[nodiscard]] Currency amount(QByteArrayView column) const; ///< Zero if empty.
    [[nodiscard]] bool flag(QByteArrayView column, bool whereEmpty) const;

private:
    [[nodiscard]] std::optional<std::size_t> placeOf(QByteArrayView column) const;
    [[nodiscard]] QByteArray bytes(QByteArrayView column) const;
    template <typename Read> [[nodiscard]] auto value(QByteArrayView column, Read read) const;

    QFile m_file;
    CsvReader m_reader;
    CsvRow m_row;
    std::vector<QByteArray> m_titles; ///< Of the columns, in the order of the file.
};

} // namespace lorvan
