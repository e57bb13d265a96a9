#pragma once

#include "journal/journal.h"

#include <QString>

namespace lorvan {

/// What was done, in plain Greek: "Εισαγωγή κίνησης". The stored word if it is one of a newer version.
[[nodiscard]] QString journalActionText(const JournalRow& row);

/// What a subject is: "Κίνηση 17", "Ημέρα 23-11-2026", "Χρήστης ΜΑΡΙΑ"; as it is stored if this version does not know
/// it.
[[nodiscard]] QString journalSubjectText(const QString& subject);

/// The change in one line: its subject, then what differs ("Κίνηση 17 (ΔΕΗ): Έξοδα 214,67 → 241,67"), or what was added
/// or removed ("Κίνηση 17: Κωδικός 5, Έξοδα 214,67, ΔΕΗ, 23-11-2026").
[[nodiscard]] QString journalSummary(const JournalRow& row);

/// When it was done, in local time: "23-11-2026 10:15:30".
[[nodiscard]] QString journalTimeText(const JournalRow& row);

} // namespace lorvan
