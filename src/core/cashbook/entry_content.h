#pragma once

#include "platform/currency.h"

#include <QString>

#include <optional>

namespace lorvan {

/// What stands in the entry fields of a movement, as typed. Amounts that were not retyped keep their four decimals.
struct EntryContent {
    struct Amount {
        QString text;
        Currency exact; ///< Of the text that was put there last, typed or not.

        /// True for an empty field and for any text that reads as zero.
        [[nodiscard]] bool isZero() const;
        friend bool operator==(const Amount&, const Amount&) = default;
    };

    QString chooser;
    qint32 code = 0; ///< The selected code; 0 for none.
    bool incomeCode = false; ///< Whether the selected code is an income code.
    bool incomeOpen = false; ///< Which of the two amount fields can be typed into.
    QString description;
    Amount income;
    Amount expense;
    Amount memorandum;
    bool cheque = false;

    /// True when neither code nor description nor one of the two amounts is given. What else there is may be left from
    /// the movement before.
    [[nodiscard]] bool isEmpty() const;
    /// True when there is nothing at all in it.
    [[nodiscard]] bool isBlank() const { return isEmpty() && memorandum.isZero() && !cheque; }

    friend bool operator==(const EntryContent&, const EntryContent&) = default;
};

/// Whether the memorandum amount is one that the next movement would take over unnoticed: it stands in an entry that is
/// empty otherwise, or was left by an insertion and not touched since.
[[nodiscard]] bool isMemorandumLeft(const EntryContent& now, bool untouchedSinceInsertion);

/// What would be lost if the program ended now.
enum class UnsavedEntry {
    None,
    Movement, ///< One that was typed and not inserted.
    Correction, ///< Of a loaded movement, and not stored.
};

/// `loaded` is what the fields held when a movement was loaded; empty when none is.
[[nodiscard]] UnsavedEntry unsavedEntry(const EntryContent& now, const std::optional<EntryContent>& loaded);

/// What the exit question adds in small print; empty where nothing would be lost.
[[nodiscard]] QString unsavedEntryText(UnsavedEntry unsaved);

} // namespace lorvan
