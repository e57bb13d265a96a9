#pragma once

#include "book/book_files.h"
#include "platform/engine/connection.h"
#include "platform/engine/key_ring.h"

namespace lorvan {

/// Throws Refused for a folder without a complete book and for a book in the older format.
void refuseIncompleteBook(const BookFiles& files);

/// Finishes a restore that was cut short, refuses as above, and takes back what a killed program left in the book (see
/// recoverBook()). Throws RestoreUnfinished and MarkerError too.
void readyBook(const BookFiles& files);

/// An existing book, opened for a command: one connection with the main database and, attached to it as `auxiliary`,
/// the other one; no table name occurs in both. Neither is upgraded or otherwise changed by that. Where the files may
/// only be read, so may the connection (Connection::isReadOnly()).
///
/// A command that only reads does so in one Transaction::Mode::Read, over both files: what it reads belongs together,
/// whoever writes meanwhile. A writer's commit waits for its end, for five seconds at most. A command that writes
/// claims the marker after readyBook() and opens then.
class OpenedBook {
public:
    /// Throws Refused for a folder without a complete book, for a book in the older format and for one of an older
    /// schema version; UnknownSchemaVersion; RestoreUnfinished; SqlError as Connection::open(), also on a read-only
    /// folder where a program that was killed left a journal.
    explicit OpenedBook(const QString& folder, Connection::Access access = Connection::Access::ReadOnly);

    [[nodiscard]] const BookFiles& files() const { return m_files; }
    [[nodiscard]] KeyRing& keys() { return m_keys; } ///< Holds the keys of both files.
    [[nodiscard]] Connection& connection() { return m_connection; }

private:
    Connection open(Connection::Access access);

    BookFiles m_files;
    KeyRing m_keys;
    Connection m_connection;
};

} // namespace lorvan
