#pragma once

#include "journal/journal.h"

#include <QString>

#include <vector>

namespace lorvan {

/// One value of what a row of the journal is about, in words for the user.
struct JournalLine {
    enum class Weight {
        Ordinary,
        Slight ///< Says nothing by itself: a number of a row, an amount of zero, a digest.
    };

    QString name; ///< "Έσοδα"; the column's own name if this version does not know it.
    QString before; ///< Empty if there was none.
    QString after;
    bool differs = false; ///< There was a state before and there is one after, and they are not the same in this.
    Weight weight = Weight::Ordinary;
};

/// The states before and after a change side by side, in the order in which a user reads them, then what this version
/// does not know, as it is stored. A state that cannot be read is one line with its whole text.
[[nodiscard]] std::vector<JournalLine> journalLines(const JournalRow& row);

} // namespace lorvan
