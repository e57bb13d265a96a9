#pragma once

#include "book/book.h"
#include "book/schema_upgrade.h"
#include "book/usage_marker.h"

#include <functional>
#include <stdexcept>

namespace lorvan {

/// The book needs an upgrade, but another computer is working on it. what() is the marker's refusal text, in UTF-8.
class UpgradeMustWait : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Opens both databases of a book for its main window. A main database of an older schema version is upgraded first,
/// with the opening balance that `askOpeningBalance` returns; missing indexes are made. Neither happens while another
/// computer holds the marker: the book is then opened for reading alone, as it is where locks keep nobody out. Indexes
/// are left out where the folder is read-only. What a killed program left is taken back first, see recoverBook().
/// Throws SqlError, UnknownSchemaVersion, UpgradeMustWait, MarkerError, and whatever the question throws; the book is
/// then as it was.
[[nodiscard]] Book openBook(const BookFiles& files, KeyRing& keys, UsageMarker& marker,
    const std::function<OpeningBalance()>& askOpeningBalance, const OpeningSteps& steps);

} // namespace lorvan
