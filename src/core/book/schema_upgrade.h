#pragma once

#include "book/opening_steps.h"

#include <stdexcept>

namespace lorvan {

class Connection;

/// The main database has a schema version that this program does not know.
class UnknownSchemaVersion : public std::runtime_error {
public:
    explicit UnknownSchemaVersion(std::int64_t version);
    [[nodiscard]] std::int64_t version() const { return m_version; }

private:
    std::int64_t m_version;
};

/// True if the main database has to be upgraded, which needs an opening balance. Reads only. Throws
/// UnknownSchemaVersion.
[[nodiscard]] bool needsUpgrade(Connection& main);

/// Upgrades the main database from no version, 1 or 2 to the current one, all steps in one transaction. The version is
/// read again inside it, so that nothing is repeated that another computer has done in the meantime. A column that
/// exists already is not added again. The journal begins before anything is written into it; the auxiliary database is
/// only read. Throws UnknownSchemaVersion, SqlError, and CurrencyOverflow if a balance is out
/// of range; the book is then unchanged.
void upgradeSchema(Connection& main, Connection& auxiliary, const Authority& authority, const OpeningBalance& opening,
    const OpeningSteps& steps);

} // namespace lorvan
