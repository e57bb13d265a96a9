#pragma once

#include "journal/hash_text.h"
#include "platform/currency.h"

#include <QDate>
#include <QString>

#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace lorvan {

class Authority;
class Connection;
struct Movement;

/// A row of the table `seals` in the auxiliary database: what a closed day held when it was closed, or was changed
/// afterwards by somebody who may. Seals make a chain, and each names the row of the journal that it belongs to.
struct DaySeal {
    std::int64_t id = 0;
    std::int64_t at = 0; ///< UTC milliseconds since 1970.
    QString user;
    QString computer;
    std::int64_t day = 0; ///< yyyymmdd.
    std::int64_t version = 1; ///< Counts the seals of the day.
    bool isLate = false; ///< The day had been closed without a seal.
    Currency income;
    Currency expense;
    std::int64_t movements = 0; ///< Their number.
    QString content; ///< The digest of the movements, see contentDigest().
    QString previous; ///< The hash of the seal with the next lower id; empty in the first.
    QString journal; ///< The hash of the row in the journal that closed or changed the day.
    QString hash; ///< Of all of the above, see sealHash().
    Currency carried; ///< As printed; may differ later, when an earlier day is changed.
    Currency balance;
    QString balanceHash; ///< Of `hash` and the two above, see balanceHash().
    std::optional<QString> counted; ///< The cash that was counted, see CountedCash.
};

/// The hashes that a seal should carry, and the digest of a day's movements, in the order of their keys: SHA-256 in
/// hexadecimal digits of the texts described in docs/data-files.md.
[[nodiscard]] QString sealHash(const DaySeal& seal);
[[nodiscard]] QString balanceHash(const DaySeal& seal);
[[nodiscard]] QString contentDigest(const std::vector<Movement>& movements);

/// contentDigest() of movements that come one by one.
class ContentDigest {
public:
    void add(const Movement& movement);
    /// Of all that were added; no more can follow.
    [[nodiscard]] QString hash() { return m_all.hash(); }

private:
    Sha256 m_all;
    HashText m_text;
};

/// All of these read or write `book`, which has both databases, and throw SqlError. A book without the table has no
/// seals and gets none. Those that write run inside the caller's transaction.

[[nodiscard]] bool keepsSeals(const Connection& book);

/// Also for the auxiliary database alone.
[[nodiscard]] bool isSealed(Connection& auxiliary, QDate day);

/// All seals, in the order of their ids.
[[nodiscard]] std::vector<DaySeal> allSeals(Connection& auxiliary);

/// The day's last seal.
[[nodiscard]] std::optional<DaySeal> lastSealOf(Connection& auxiliary, QDate day);

/// Whether nothing was changed in the seal itself.
[[nodiscard]] bool isWhole(const DaySeal& seal);
/// Whether the seal is whole, and its day closed and with the movements that were sealed, apart from those with a key
/// after `lastKey`.
[[nodiscard]] bool holdsSeal(
    Connection& book, const DaySeal& seal, std::int64_t lastKey = std::numeric_limits<std::int64_t>::max());

/// The seal that carries this check code.
[[nodiscard]] std::optional<DaySeal> sealWithCode(Connection& auxiliary, const QString& code);

/// Seals the day as it is now, as the next version after all its seals and after `formerVersions`, which may be more if
/// seals are missing. `journal` is the hash of the row in the journal that closed or changed it.
DaySeal sealDay(
    Connection& book, const Authority& authority, QDate day, const QString& journal, std::int64_t formerVersions = 0);

/// Seals up to `most` closed days that were never sealed, oldest first, in one transaction of its own with one row in
/// the journal. The movements are read in slices before it, again if somebody changes something meanwhile, so that
/// others wait only while the seals themselves are written. Returns how many. Throws NotPermitted without the right to
/// close, and SqlError of kind Interrupted if a StopCheck says no.
int sealOlderDays(Connection& book, const Authority& authority, int most);

} // namespace lorvan
