#pragma once

#include <QDate>
#include <QJsonObject>

#include <cstdint>
#include <set>
#include <vector>

namespace lorvan {

class Authority;
class Connection;

/// What rows of the journal tell of seals, beside the changes themselves. All throw SqlError.

/// The state of a sealing of days that were closed earlier: their number, the first, the last and all of them.
[[nodiscard]] QJsonObject lateSealingState(const std::vector<QDate>& days);
/// The name of all of them in it, and of the days that an import has changed and sealed again in its state. Rows of
/// earlier releases do not have it.
inline constexpr auto daysSealedLate = "sealed";

/// Records that a sealed day was found not to hold what was sealed, and so is not sealed again by what follows: a new
/// seal would hide that. The seal's number stands under `alteredSeal`, 0 if the seal itself is gone. Inside the
/// caller's transaction.
void recordAltered(Connection& book, const Authority& authority, QDate day);
inline constexpr auto alteredSeal = "seal";

/// The days that were sealed since all data were last deleted, as the journal tells.
class JournalledSeals {
public:
    explicit JournalledSeals(Connection& book);
    /// False for all in a book without a journal. One index look-up.
    [[nodiscard]] bool tellOf(QDate day) const;

    [[nodiscard]] std::set<std::int64_t> days() const; ///< All of them.

private:
    Connection& m_book;
    std::int64_t m_cleared = 0; ///< The row of the deletion.
    std::set<std::int64_t> m_late;
};

/// The days that were sealed, as the seals or the journal tell; none in a book without a journal.
[[nodiscard]] std::set<std::int64_t> sealedDays(Connection& book);

} // namespace lorvan
