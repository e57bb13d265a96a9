#pragma once

#include "journal/journal.h"

#include <QString>

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

namespace lorvan {

class Connection;

/// A digest of what the journal tells of a subject; all zero where nothing is left of it.
using StateDigest = std::array<std::uint64_t, 2>;
/// By the number after the subject's slash.
using StatesByKey = std::unordered_map<std::int64_t, StateDigest>;

/// What the journal says of the present.
struct JournalAudit {
    std::int64_t rows = 0;
    /// The rows that are not those that were written after the row before them, the first ones only.
    std::vector<std::int64_t> broken;
    std::int64_t accepted = 0; ///< How many findings were accepted.
    std::set<std::int64_t> acceptedSeals; ///< Seals whose faults were.
    StatesByKey movements; ///< As the last row about each tells; of all others the journal claims nothing.
    StatesByKey codes;
    StatesByKey groups;
    std::set<QString> missing; ///< Hashes that were looked for and are not there.
};

/// Takes the rows of a journal one by one, in the order of their ids, and recalculates their hashes.
class JournalAuditing {
public:
    enum class Claims { All, ChainAlone }; ///< Whether movements, codes and groups are wanted.

    explicit JournalAuditing(std::set<QString> wanted, Claims claims = Claims::All);

    void take(JournalRow row);
    [[nodiscard]] const JournalAudit& audit() const { return m_audit; }
    [[nodiscard]] JournalAudit result() && { return std::move(m_audit); }

private:
    [[nodiscard]] bool isBroken(const JournalRow& row) const;
    void noteAccepted(const JournalRow& row);
    void noteState(const JournalRow& row);
    void clear();
    [[nodiscard]] StatesByKey* statesOf(const QString& kind);

    const Claims m_claims;
    JournalAudit m_audit;
    std::optional<JournalRow> m_before;
};

/// Reads the whole journal and recalculates its hashes, looking for the hashes `wanted`; a book without one has an
/// empty audit. A break that was accepted is none. Inside the caller's transaction. Throws SqlError.
[[nodiscard]] JournalAudit auditJournal(Connection& book, std::set<QString> wanted);

/// The digest of a state in the form in which the journal stores it, of the columns that say what the subject is: a
/// code's group may change with the group, without a row of its own.
[[nodiscard]] StateDigest stateDigest(const QString& json);

} // namespace lorvan
