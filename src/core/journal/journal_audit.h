#pragma once

#include "journal/journal.h"

#include <QString>

#include <array>
#include <cstdint>
#include <map>
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

/// The name under which the acceptance of a broken row or seal keeps the hash of what was found.
inline constexpr auto acceptedFind = "found";

/// Rows, one behind the other, none of which is the one that was written after the row before it.
struct BrokenRows {
    std::int64_t id = 0; ///< Of the first.
    std::int64_t rows = 1;
    QString found; ///< A hash of them as they stand now, each after the row before it as that stands.
};

/// What the journal says of the present.
struct JournalAudit {
    std::int64_t rows = 0;
    std::vector<BrokenRows> broken; ///< The first ones only.
    std::int64_t accepted = 0; ///< How many findings were accepted, but for those that a deletion of all data ended.
    std::set<std::int64_t> acceptedRows; ///< Broken ones that were, each the first of those behind it.
    std::map<std::int64_t, QString> acceptedSeals; ///< Seals whose faults were, and what was found then.
    StatesByKey movements; ///< As the last row about each tells; of all others the journal claims nothing.
    StatesByKey codes; ///< The same, of the time after their last import, which does not tell what it brought.
    StatesByKey groups;
    std::set<QString> missing; ///< Hashes that were looked for and are not there.
};

/// Takes the rows of a journal one by one, in the order of their ids, and recalculates their hashes.
class JournalAuditing {
public:
    enum class Claims { All, ChainAlone }; ///< Whether movements, codes and groups are wanted.

    explicit JournalAuditing(std::set<QString> wanted, Claims claims = Claims::All);

    /// Returns whether the row is the one that was written there.
    bool take(const JournalRow& row);
    [[nodiscard]] const JournalAudit& audit() const { return m_audit; }
    [[nodiscard]] JournalAudit result() && { return std::move(m_audit); }

private:
    [[nodiscard]] bool isBroken(const JournalRow& row) const;
    [[nodiscard]] QString foundIn(const JournalRow& row) const;
    void noteBroken(const JournalRow& row);
    void noteAccepted(const JournalRow& row);
    void noteState(const JournalRow& row);
    void forgetImported(const QString& file);
    void clear();
    [[nodiscard]] StatesByKey* statesOf(const QString& kind);

    const Claims m_claims;
    JournalAudit m_audit;
    std::optional<JournalRow> m_before;
    std::int64_t m_acceptedOfJournal = 0;
    std::map<std::int64_t, QString> m_acceptedStray; ///< Rows behind the acceptance, with what was found then.
    bool m_isBreakOpen = false; ///< The row before is the last of `broken`.
};

/// Reads the whole journal and recalculates its hashes, looking for the hashes `wanted`; a book without one has an
/// empty audit. A break that was accepted is none, as long as the row stays as it was found then. Inside the caller's
/// transaction. Throws SqlError.
[[nodiscard]] JournalAudit auditJournal(Connection& book, std::set<QString> wanted);

/// A hash that tells of one thing behind another, both told by their hashes.
[[nodiscard]] QString foundAfter(const QString& before, const QString& found);

/// The digest of a state in the form in which the journal stores it, of the columns that say what the subject is: a
/// code's group may change with the group, without a row of its own.
[[nodiscard]] StateDigest stateDigest(const QString& json);

} // namespace lorvan
