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

/// True when the main database has to be upgraded, which takes an opening balance. Reads only.
/// Throws UnknownSchemaVersion.
[[nodiscard]] bool needsUpgrade(Connection& main);

/// Brings the main database from no version, 1 or 2 to the current one, all steps in one transaction. The version is
/// read again inside it: what another computer has done meanwhile is not done twice. A column that is there already is
/// not added again. Throws UnknownSchemaVersion, SqlError, and CurrencyOverflow when a balance leaves its range; the
/// book is then as it was.
void upgradeSchema(Connection& main, const OpeningBalance& opening, const OpeningSteps& steps);

} // namespace lorvan
