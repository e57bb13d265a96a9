#pragma once

#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

namespace lorvan {

/// The form of a column in the book's own files.
enum class LegacyForm { Counter, Number, Date, Amount, Boolean, Text };

struct LegacyColumn {
    QString name; ///< In the book's own tables; also in the older ones, unless `place` is given.
    LegacyForm form;
    std::optional<std::size_t> place = std::nullopt; ///< Older books may use any name for it.
    bool mayBeMissing = false;
};

/// One table of a book, and where its columns are found in books of the older format.
struct LegacyTable {
    enum class File { Main, Auxiliary };

    QString name;
    File file;
    std::vector<LegacyColumn> columns;

    /// The column must exist.
    [[nodiscard]] std::size_t columnIndex(const QString& column) const;
};

/// Tables that are named in the code; all of them are in legacyTables().
inline const QString legacyMovements = QStringLiteral("kinhseis");
inline const QString legacyVersion = QStringLiteral("taytothta");

/// All tables of both files, in the order of data-files.md.
[[nodiscard]] const std::vector<LegacyTable>& legacyTables();

} // namespace lorvan
