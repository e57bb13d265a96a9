#include "legacy/legacy_book.h"

#include "book/book_files.h"
#include "book/book_schema.h"
#include "book/schema_upgrade.h"
#include "jet/jet_table.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <numeric>
#include <utility>

namespace lorvan {
namespace {

const QString memorandumColumn = QStringLiteral("L_tajeos");
constexpr std::int64_t firstVersion = 1;
constexpr std::int64_t versionWithMemorandum = 2;

QStringList entriesNamed(const QString& folder, const QString& name)
{
    QStringList found = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
    found.removeIf([&](const QString& entry) { return entry.compare(name, Qt::CaseInsensitive) != 0; });
    return found;
}

/// The entry with that name; if there is none, one that differs only in letter case.
QString pathIn(const QString& folder, const QString& name)
{
    const QStringList found = entriesNamed(folder, name);
    return QDir(folder).filePath(found.isEmpty() || found.contains(name) ? name : found.first());
}

void checkVersion(const LegacyBook& book)
{
    const std::int64_t version = book.version().value_or(firstVersion);
    if (version < firstVersion || version > currentSchemaVersion)
        throw UnknownSchemaVersion(version);
    const LegacyRows& movements = book.table(legacyMovements);
    if (version < versionWithMemorandum || !movements.missingColumns.contains(memorandumColumn))
        return;
    JetError missing(QStringLiteral("η στήλη λείπει από τον πίνακα, ενώ το βιβλίο είναι στην έκδοση %1").arg(version));
    missing.locate({{}, legacyMovements, {}, {}, memorandumColumn});
    throw missing;
}

/// Replaces a version number lost with its page: the memorandum column distinguishes the first version from the others,
/// and of those the current one asks for no opening balance, which would overwrite the existing balances.
void supplyLostVersion(LegacyBook& book, const JetDamage& damage)
{
    const bool isLost = std::any_of(damage.listed().begin(), damage.listed().end(),
        [](const JetError& error) { return error.place().table == legacyVersion; });
    if (isLost && book.table(legacyVersion).rows.empty()
        && !book.table(legacyMovements).missingColumns.contains(memorandumColumn))
        book.table(legacyVersion).rows.push_back({std::int64_t(currentSchemaVersion)});
}

} // namespace

LegacyFiles::LegacyFiles(const QString& folder)
    : m_folder(folder)
    , m_mainDatabase(pathIn(folder, QStringLiteral("lorvan.mdb")))
    , m_auxiliaryDatabase(pathIn(folder, QStringLiteral("mapcodes.mdb")))
{
}

QStringList LegacyFiles::lockFiles() const
{
    return entriesNamed(m_folder, QStringLiteral("lorvan.ldb"))
        + entriesNamed(m_folder, QStringLiteral("mapcodes.ldb"));
}

LegacyBook::LegacyBook()
{
    for (const LegacyTable& table : legacyTables())
        tables.push_back({&table, {}, {}});
}

const LegacyRows& LegacyBook::table(const QString& name) const
{
    return *std::find_if(
        tables.begin(), tables.end(), [&](const LegacyRows& rows) { return rows.table->name == name; });
}

LegacyRows& LegacyBook::table(const QString& name)
{
    return const_cast<LegacyRows&>(std::as_const(*this).table(name));
}

std::uint64_t LegacyBook::rowCount() const
{
    return std::accumulate(tables.begin(), tables.end(), std::uint64_t(0),
        [](std::uint64_t count, const LegacyRows& rows) { return count + rows.rows.size(); });
}

std::optional<std::int64_t> LegacyBook::version() const
{
    const auto& rows = table(legacyVersion).rows;
    if (rows.empty())
        return std::nullopt;
    const auto* const version = std::get_if<std::int64_t>(&rows.front().front());
    return version ? *version : 0;
}

bool LegacyBook::asksForOpeningBalance() const
{
    return version() != currentSchemaVersion;
}

void readLegacyTables(const JetFile& file, LegacyTable::File which, LegacyBook& book, JetDamage& damage)
{
    const JetCatalogue catalogue(file, damage);
    QStringList others = catalogue.tableNames();
    for (LegacyRows& rows : book.tables) {
        if (rows.table->file != which)
            continue;
        damage.attempt({}, [&] { rows = readLegacyRows(file, catalogue, *rows.table, damage); });
        others.removeIf([&](const QString& name) { return name.compare(rows.table->name, Qt::CaseInsensitive) == 0; });
    }
    for (const QString& other : others) {
        damage.attempt({}, [&] { readRows(file, catalogue.definitionOf(other), other, damage, [](const JetRow&) {}); });
    }
}

LegacyBook readLegacyBook(const LegacyFiles& files, JetDamage& damage)
{
    LegacyBook book;
    readLegacyTables(JetFile::load(files.mainDatabase(), damage), LegacyTable::File::Main, book, damage);
    damage.attempt({}, [&] {
        const JetFile auxiliary = JetFile::load(files.auxiliaryDatabase(), damage);
        readLegacyTables(auxiliary, LegacyTable::File::Auxiliary, book, damage);
    });
    supplyLostVersion(book, damage);
    damage.attempt({}, [&] { checkVersion(book); });
    return book;
}

} // namespace lorvan
