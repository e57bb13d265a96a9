#pragma once

#include "legacy/legacy_rows.h"

#include <QString>

#include <optional>

namespace lorvan {

/// The files of a book in the older format. Their names are matched without regard to letter case.
class LegacyFiles {
public:
    explicit LegacyFiles(const QString& folder);

    [[nodiscard]] const QString& mainDatabase() const { return m_mainDatabase; }
    [[nodiscard]] const QString& auxiliaryDatabase() const { return m_auxiliaryDatabase; }
    /// Lock files beside the databases: another program may have the book open.
    [[nodiscard]] QStringList lockFiles() const;

private:
    QString m_folder;
    QString m_mainDatabase;
    QString m_auxiliaryDatabase;
};

/// All rows of a book of the older format.
struct LegacyBook {
    LegacyBook(); ///< Without rows.

    std::vector<LegacyRows> tables; ///< One for each of legacyTables(), in its order.

    [[nodiscard]] const LegacyRows& table(const QString& name) const;
    [[nodiscard]] LegacyRows& table(const QString& name);
    [[nodiscard]] std::uint64_t rowCount() const;
    /// The schema version that the book names; none where it names none.
    [[nodiscard]] std::optional<std::int64_t> version() const;
    [[nodiscard]] bool asksForOpeningBalance() const;
};

/// Reads and checks the tables of one file into their places of `book`; others that the file has are
/// checked alone. Throws JetError.
void readLegacyTables(const JetFile& file, LegacyTable::File which, LegacyBook& book, JetDamage& damage);

/// Reads and checks both files whole, and changes nothing. Throws NotAJetFile and JetError, also UnknownSchemaVersion.
/// Where damage is collected, only a main database without readable beginnings is refused; tables that cannot be read
/// are empty.
[[nodiscard]] LegacyBook readLegacyBook(const LegacyFiles& files, JetDamage& damage);

} // namespace lorvan
