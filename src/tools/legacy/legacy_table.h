#pragma once

#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

namespace lorvan {

/// The form that a column has in the book's own files.
enum class LegacyForm { Counter, Number, Date, Amount, Boolean, Text };

struct LegacyColumn {
    QString name; ///< In the book's own tables; also in the older ones, unless a place is given.
    LegacyForm form;
    std::optional<std::size_t> place = std::nullopt; ///< Older books may call it anything.
    bool mayBeMissing = false;
};

/// One table of a book, and where its columns are found in books of the older format.
struct LegacyTable {
    enum class File { Main, Auxiliary };

    QString name;
    File file;
    std::vector<LegacyColumn> columns;

    /// The column must be there.
    [[nodiscard]] std::size_t columnIndex(const QString& column) const;
};

/// The tables that have a name of their own in the code; all are in legacyTables().
inline const QString legacyMovements = QStringLiteral("kinhseis");
inline const QString legacyVersion = QStringLiteral("taytothta");

/// All tables of both files, in the order of data-files.md.
[[nodiscard]] const std::vector<LegacyTable>& legacyTables();

} // namespace lorvan
