#pragma once

#include "cashbook/day_seal.h"

#include <optional>

namespace lorvan {

/// What a book says of a check code that somebody reads from paper.
struct CodeAnswer {
    enum class Verdict {
        NoCode, ///< It is not written like one.
        Holds, ///< The day is as it was printed.
        Resealed, ///< The day was changed by somebody who may, and sealed again.
        Accepted, ///< It was changed by another program, which the administrator accepted.
        Altered, ///< The day does not hold what was sealed, or the seal itself was changed.
        JournalAltered, ///< The day does, but the journal up to its closing is not as it was written.
        NewerThanCopy, ///< It was given after the backup from which the book was restored.
        Unknown
    };
    Verdict verdict = Verdict::Unknown;
    QString code; ///< As printed.
    DaySeal seal = {}; ///< Unless the code is unknown.
    std::int64_t lastVersion = 0; ///< Of the day's seals.
    std::optional<Currency> balanceNow = {}; ///< Where the closing balance is not the printed one any more.
};

/// `book` has both databases. Inside the caller's transaction. Throws SqlError.
[[nodiscard]] CodeAnswer answerForCode(Connection& book, const QString& typed);

/// In plain Greek.
[[nodiscard]] QString answerText(const CodeAnswer& answer);

} // namespace lorvan
