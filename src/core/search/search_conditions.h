#pragma once

#include "search/search_query.h"

#include <optional>

namespace lorvan {

/// What a part of a query was understood as.
struct MeaningRead {
    SearchMeaning meaning;
    QString text; ///< In plain Greek.
};

/// Whether a text begins with ">", "<" and the like, in that many characters; 0 if not.
[[nodiscard]] qsizetype comparisonSize(QStringView text);
[[nodiscard]] inline bool isComparison(QStringView text)
{
    return comparisonSize(text) > 0;
}
/// ">500" and the like; no value if no amount follows.
[[nodiscard]] std::optional<MeaningRead> readComparison(QStringView text);

/// Whether a text has ".." and begins as a number or with that.
[[nodiscard]] bool isRange(QStringView text);
/// Of amounts, days or months, in any order; one end may be missing. No value if an end is none of these.
[[nodiscard]] std::optional<MeaningRead> readRange(QStringView text, QDate today);

/// An amount, a day, a month, or a range of amounts with "-" between; no value if it is none of these.
[[nodiscard]] std::optional<MeaningRead> readDayOrAmount(QStringView text, QDate today);

} // namespace lorvan
