#pragma once

#include "platform/currency.h"

#include <QString>

#include <optional>

namespace lorvan {

/// The content of a movement's entry fields, as typed. Amounts that were not retyped keep their four decimals.
struct EntryContent {
    struct Amount {
        QString text;
        Currency exact; ///< The amount of the text that was last put there, typed or not.

        /// True for an empty field and for any text that is read as zero.
        [[nodiscard]] bool isZero() const;
        friend bool operator==(const Amount&, const Amount&) = default;
    };

    QString chooser;
    qint32 code = 0; ///< The selected code; 0 for none.
    bool incomeCode = false; ///< Whether the selected code is an income code.
    bool incomeOpen = false; ///< Which of the two amount fields is enabled.
    QString description;
    Amount income;
    Amount expense;
    Amount memorandum;
    bool cheque = false;

    /// True if there is no code, no description and neither of the two amounts. The other fields may be left over from
    /// the previous movement.
    [[nodiscard]] bool isEmpty() const;
    /// True if all fields are empty.
    [[nodiscard]] bool isBlank() const { return isEmpty() && memorandum.isZero() && !cheque; }

    friend bool operator==(const EntryContent&, const EntryContent&) = default;
};

/// Whether the memorandum amount could be taken over by the next movement without being noticed: all other fields are
/// empty, or it was left by an insertion and not changed since.
[[nodiscard]] bool isMemorandumLeft(const EntryContent& now, bool untouchedSinceInsertion);

/// What would be lost if the program ended now.
enum class UnsavedEntry {
    None,
    Movement, ///< A movement that was typed but not inserted.
    Correction, ///< Changes to a loaded movement that were not stored.
};

/// `loaded` is what the fields contained when a movement was loaded; no value if none is loaded.
[[nodiscard]] UnsavedEntry unsavedEntry(const EntryContent& now, const std::optional<EntryContent>& loaded);

/// What the exit question adds in small print; empty if nothing would be lost.
[[nodiscard]] QString unsavedEntryText(UnsavedEntry unsaved);

} // namespace lorvan
