#pragma once

#include "book/book.h"
#include "book/schema_upgrade.h"
#include "marker/usage_marker.h"

#include <functional>
#include <stdexcept>

namespace lorvan {

/// The book needs an upgrade, but another computer is using it. what() is the marker's refusal text, in UTF-8.
class UpgradeMustWait : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Opens both databases of a book for its main window. Rolls back first what a killed program has left, see
/// recoverBook(). A main database of an older schema version is upgraded in the name of `authority`, with the opening
/// balance that `askOpeningBalance` returns; missing indexes are made, except in a read-only folder. Nothing is
/// upgraded or made while another computer holds the marker: the book is then opened read-only, as it also is if locks
/// keep nobody out. Throws SqlError, UnknownSchemaVersion, UpgradeMustWait, MarkerError, and whatever
/// `askOpeningBalance` throws; the book is then unchanged.
[[nodiscard]] Book openBook(const BookFiles& files, KeyRing& keys, UsageMarker& marker, const Authority& authority,
    const std::function<OpeningBalance()>& askOpeningBalance, const OpeningSteps& steps);

} // namespace lorvan
