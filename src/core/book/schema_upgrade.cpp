#include "book/schema_upgrade.h"

#include "book/book_schema.h"
#include "book/journal_beginning.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"

#include <optional>
#include <string>

namespace lorvan {
namespace {

constexpr std::int64_t firstVersion = 1;
constexpr std::int64_t versionWithMemorandum = 2;

std::optional<std::int64_t> recordedVersion(Connection& main)
{
    auto row = main.prepare("SELECT ariumos FROM taytothta LIMIT 1");
    return row.step() ? std::optional(row.integer(0)) : std::nullopt;
}

std::int64_t knownVersion(std::optional<std::int64_t> recorded)
{
    const std::int64_t version = recorded.value_or(firstVersion);
    if (version < firstVersion || version > currentSchemaVersion)
        throw UnknownSchemaVersion(version);
    return version;
}

bool hasMemorandumColumn(Connection& main)
{
    auto columns = main.prepare("PRAGMA table_info(kinhseis)");
    while (columns.step()) {
        if (columns.text(1).compare(QStringLiteral("L_tajeos"), Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

void addMemorandumColumn(Connection& main)
{
    if (!hasMemorandumColumn(main))
        main.execute("ALTER TABLE kinhseis ADD COLUMN L_tajeos INTEGER");
    main.execute("UPDATE kinhseis SET L_tajeos=0 WHERE L_tajeos IS NULL");
}

} // namespace

UnknownSchemaVersion::UnknownSchemaVersion(std::int64_t version)
    : std::runtime_error("unknown schema version " + std::to_string(version))
    , m_version(version)
{
}

bool needsUpgrade(Connection& main)
{
    const auto recorded = recordedVersion(main);
    return knownVersion(recorded) != currentSchemaVersion;
}

void upgradeSchema(Connection& main, Connection& auxiliary, const Authority& authority, const OpeningBalance& opening,
    const OpeningSteps& steps)
{
    Transaction transaction(main, authority);
    const auto recorded = recordedVersion(main);
    const std::int64_t version = knownVersion(recorded);
    if (version == currentSchemaVersion)
        return;
    if (version < versionWithMemorandum)
        addMemorandumColumn(main);
    beginJournal(main, auxiliary);
    steps.set(main, authority, opening);
    const char* const record =
        recorded ? "UPDATE taytothta SET ariumos=?" : "INSERT INTO taytothta (ariumos) VALUES (?)";
    main.prepare(record).bind(currentSchemaVersion).run();
    transaction.commit();
}

} // namespace lorvan
