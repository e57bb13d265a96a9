#pragma once

#include "book/book_files.h"
#include "platform/engine/connection.h"
#include "platform/engine/key_ring.h"

namespace lorvan {

/// Throws Refused if the folder has no complete book or the book is in the older format.
void refuseIncompleteBook(const BookFiles& files);

/// Finishes an interrupted restore, refuses as above, and cleans up what a killed program left in the book (see
/// recoverBook()). Also throws RestoreUnfinished and MarkerError.
void readyBook(const BookFiles& files);

/// An existing book, opened for a command: one connection with the main database and the other one attached to it as
/// `auxiliary`; no table name occurs in both. Opening upgrades or changes neither. If the files may only be read, the
/// connection is read-only (Connection::isReadOnly()).
///
/// A command that only reads does so in one Transaction::View::Steady over both files, so that everything it reads
/// belongs together, whoever is writing. A writer's commit waits until it ends, five seconds at most. A command that
/// writes claims the marker after readyBook() and then opens the book.
class OpenedBook {
public:
    /// Throws Refused if the folder has no complete book, or the book is in the older format or of an older schema
    /// version; UnknownSchemaVersion; RestoreUnfinished; SqlError like Connection::open(), also in a read-only folder
    /// where a killed program left a journal.
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
