#pragma once

#include "cashbook/movement_audit.h"

#include <QDateTime>
#include <QString>

namespace lorvan {

class BookFiles;
class Connection;
class KeyRing;

/// What a repair has written.
struct BookRepair {
    std::int64_t mergedDays = 0; ///< Dates that had several rows.
    std::int64_t removedRows = 0;
    std::int64_t addedDays = 0;
    std::int64_t correctedDays = 0; ///< Rows that got other sums or another balance.
    std::int64_t keptDifferences = 0; ///< Opening differences that only the balances showed before.
    QString mainCopy; ///< The copies of both files as they were before.
    QString auxiliaryCopy;
};

/// Brings the cash days in line with the movements, in one transaction: rows of one date become one, missing rows are
/// added, sums and balances set right; an opening difference stays, and is kept where only the balances showed it.
/// Nothing else is touched. Both files are copied first, beside the originals, under the lock under which the repair is
/// written. `book` has the auxiliary database attached as `auxiliary`, `keys` holds the keys of both files. Other
/// computers are the caller's affair. Throws SqlError and BookCopyFailed; the book is then as it was, and a copy
/// remains only where something else than a full disk stopped the last step.
[[nodiscard]] BookRepair repairBook(
    Connection& book, const BookFiles& files, KeyRing& keys, const QDateTime& now, const CheckProgress& progress);

} // namespace lorvan
