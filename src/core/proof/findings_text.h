#pragma once

#include "proof/book_check.h"

#include <QDate>
#include <QString>

#include <vector>

namespace lorvan {

/// One line of what a check tells in Greek, and the day that it is about: invalid if it is about none.
struct CheckLine {
    QString text;
    QDate day = {};
};

struct FindingsForm {
    QString repair; ///< What makes the repair there, with its article.
    std::size_t longest = BookFindings::listed; ///< So many findings of one kind are listed.
};

/// The findings, then the notices; of each kind the first ones and the total.
[[nodiscard]] std::vector<CheckLine> findingLines(const BookFindings& findings, const FindingsForm& form);

/// The figures of a book. They are the same for two equal books.
[[nodiscard]] std::vector<CheckLine> totalLines(const BookCheck& check);

/// A day as stored; its number if that is not a date.
[[nodiscard]] QString storedDayText(std::int64_t day);

/// With up to four decimals: 1.234,56 or 1.234,5678.
[[nodiscard]] QString exactAmountText(Currency amount);

} // namespace lorvan
