#pragma once

#include "movements/movement.h"

#include <functional>
#include <optional>
#include <vector>

namespace lorvan {

class Connection;
class Statement;

/// The rows of `kinhseis`. Functions that write run inside the caller's transaction and do not touch the cash days. All
/// throw SqlError.

/// The columns of a statement that selects a movement, first of all others, and the movement in its row.
inline constexpr auto movementColumns = "aa, kvdikos, hmeromhnia, perigrafh, esoda, ejoda, epitagh, L_tajeos";
[[nodiscard]] Movement movementIn(const Statement& row);

/// The movements of a day in the order of entry, found through the date index.
[[nodiscard]] std::vector<Movement> movementsOf(Connection& main, QDate day);

/// The movements of a code from one day to another, by day, then in the order of entry; found through the index of
/// codes.
[[nodiscard]] std::vector<Movement> movementsOfCode(Connection& main, qint32 code, QDate from, QDate to);

[[nodiscard]] std::optional<Movement> findMovement(Connection& main, qint64 key);

/// Passes all movements to `take`, one at a time, in the order of their keys.
void forEachMovement(Connection& main, const std::function<void(const Movement&)>& take);

/// Stores the description trimmed, and the display line with it; `group` is the group number of the movement's code.
/// Without a key, which must be free, it gets the next one. Returns the row's key.
qint64 addMovement(
    Connection& main, const MovementDraft& movement, qint32 group, std::optional<qint64> key = std::nullopt);

/// Like addMovement(), but overwrites an existing row; key and day are kept.
void overwriteMovement(Connection& main, qint64 key, const MovementDraft& movement, qint32 group);

void removeMovement(Connection& main, qint64 key);

} // namespace lorvan
