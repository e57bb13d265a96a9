#pragma once

#include "journal/journal.h"

#include <QString>

#include <vector>

namespace lorvan {

/// One value of what a row of the journal is about, in words for the user.
struct JournalLine {
    /// How it stands in a summary of the change.
    enum class Weight {
        Ordinary,
        Clear, ///< Its value needs no name: a date, a description.
        Slight ///< Not at all: a number of a row, an amount of zero, a digest.
    };

    QString name; ///< "Έσοδα"; the column's own name if this version does not know it.
    QString before; ///< Empty if there was none.
    QString after;
    bool differs = false; ///< There was a state before and there is one after, and they are not the same in this.
    Weight weight = Weight::Ordinary;
    bool isOfChange = false; ///< About the change itself, so that it never differs.
};

/// The states before and after a change side by side, in the order in which a user reads them, then what this version
/// does not know, as it is stored. A state that cannot be read is one line with its whole text.
[[nodiscard]] std::vector<JournalLine> journalLines(const JournalRow& row);

} // namespace lorvan
