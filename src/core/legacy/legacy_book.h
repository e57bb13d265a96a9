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
    /// Lock files beside the databases: if there are any, another program may have the book open.
    [[nodiscard]] QStringList lockFiles() const;

private:
    QString m_folder;
    QString m_mainDatabase;
    QString m_auxiliaryDatabase;
};

/// All rows of a book in the older format.
struct LegacyBook {
    LegacyBook(); ///< Without rows.

    std::vector<LegacyRows> tables; ///< One for each of legacyTables(), in the same order.

    [[nodiscard]] const LegacyRows& table(const QString& name) const;
    [[nodiscard]] LegacyRows& table(const QString& name);
    [[nodiscard]] std::uint64_t rowCount() const;
    /// The schema version stated in the book; no value if none is stated.
    [[nodiscard]] std::optional<std::int64_t> version() const;
    [[nodiscard]] bool asksForOpeningBalance() const;
};

/// Reads and checks the tables of one file and puts them into `book`; other tables in the file are only checked. Throws
/// JetError.
void readLegacyTables(const JetFile& file, LegacyTable::File which, LegacyBook& book, JetDamage& damage);

/// Reads and checks both files completely, and changes nothing. Throws NotAJetFile, JetError and UnknownSchemaVersion.
/// If damage is collected, only a main database whose header or catalogue cannot be read is refused; tables that cannot
/// be read are empty.
[[nodiscard]] LegacyBook readLegacyBook(const LegacyFiles& files, JetDamage& damage);

} // namespace lorvan
