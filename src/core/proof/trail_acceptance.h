#pragma once

#include <QString>

#include <cstdint>

namespace lorvan {

class Authority;
class Connection;

struct Acceptance {
    std::int64_t faults = 0; ///< So many were accepted.
    bool madeJournal = false; ///< There was no such table.
    bool madeSeals = false;
};

/// Records all faults in the journal as accepted, with what is there now, and seals days again that were altered or
/// have lost a seal; they are no faults any more. The tables of the journal and of the seals are made where they are
/// missing; a new journal begins with what the book has now. `book` has both databases. One transaction. Throws
/// NotPermitted without the right to change cash records, and SqlError.
Acceptance acceptFaults(Connection& book, const Authority& authority);

/// Which tables were missing, in plain Greek; empty if none was.
[[nodiscard]] QString missingTablesText(const Acceptance& acceptance);

} // namespace lorvan
