#pragma once

#include "audit/movement_audit.h"

#include <QString>

namespace lorvan {

class Authority;
class BookFiles;
class Connection;
class KeyRing;

/// What a repair has changed.
struct BookRepair {
    std::int64_t mergedDays = 0; ///< Dates that had several rows.
    std::int64_t removedRows = 0;
    std::int64_t addedDays = 0;
    std::int64_t correctedDays = 0; ///< Rows whose sums or balance were changed.
    std::int64_t keptDifferences = 0; ///< Opening differences that previously showed only in the balances.
    QString mainCopy; ///< The copies of both files, made before the repair.
    QString auxiliaryCopy;
};

/// Makes the cash days agree with the movements, in one transaction: several rows with one date are merged, missing
/// rows are added, sums and balances are corrected. An opening difference stays; it is recorded if previously it showed
/// only in the balances. Nothing else is changed. Both files are copied first, beside the originals, under the same
/// lock as the repair itself. `book` has the auxiliary database attached as `auxiliary`, `keys` holds the keys of both
/// files. The caller must keep other computers out. One row
/// in the journal tells the counts, with a digest of all rows that were changed; the first hundred of these have rows
/// of their own, with what they held before and after. Throws NotPermitted, SqlError and BookCopyFailed; the book is
/// then unchanged, and a copy remains only if the last step failed for another reason than a full disk.
[[nodiscard]] BookRepair repairBook(
    Connection& book, const BookFiles& files, KeyRing& keys, const Authority& authority, const CheckProgress& progress);

} // namespace lorvan
