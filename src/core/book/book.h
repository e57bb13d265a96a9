#pragma once

#include "book/book_files.h"
#include "book/opening_steps.h"
#include "platform/engine/connection.h"
#include "platform/engine/key_ring.h"

#include <optional>
#include <stdexcept>

namespace lorvan {

/// The two open databases of a book, for as long as the program's main window exists.
class Book {
public:
    /// Throws SqlError.
    Book(const BookFiles& files, KeyRing& keys, Connection::Access access);

    /// The access of the book is that of the connections.
    Book(Connection main, Connection auxiliary);

    /// Closes and reopens both databases if their access differs; to be called between two actions, since no statement
    /// may exist. References to the connections remain valid. If the book was replaced in the meantime, nothing is
    /// done: see refuseReplaced(). Returns true if the access has changed. Throws SqlError; the book then stays open as
    /// it was.
    bool setAccess(Connection::Access access);

    /// Makes the tables and indexes that a writable database lacks, see ensureMainSchema(), and has the journal record
    /// what was changed without it. Only for a book that no other computer holds. Throws SqlError.
    void ensureSchema(const OpeningSteps& steps);

    /// A further connection, with both databases; see openBoth(). Only for a book that was opened by its files.
    [[nodiscard]] Connection openBoth() const;

    [[nodiscard]] Connection& main() { return m_main; }
    [[nodiscard]] Connection& auxiliary() { return m_auxiliary; }

    /// See Connection::refuseReplaced(): a book may be restored from a backup while it is open here.
    void refuseReplaced() const;

private:
    [[nodiscard]] bool isReplaced() const;

    struct Source {
        BookFiles files;
        KeyRing* keys;
        Connection::Access access;
    };

    std::optional<Source> m_source;
    Connection m_main;
    Connection m_auxiliary;
};

/// Makes an empty book at the current schema version, with a free usage marker, in an existing or new folder. Throws
/// BookExists if any of the three files already exists, SqlError or std::runtime_error if one cannot be written; files
/// made up to that point are removed again.
void createBook(const BookFiles& files);

/// Creating a book would overwrite an existing file. what() is its path.
class BookExists : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace lorvan
