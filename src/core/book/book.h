#pragma once

#include "book/book_files.h"
#include "book/opening_steps.h"
#include "platform/engine/connection.h"
#include "platform/engine/key_ring.h"

#include <optional>
#include <stdexcept>

namespace lorvan {

/// The two open databases of a book, for the life of the program's main window.
class Book {
public:
    /// Throws SqlError.
    Book(const BookFiles& files, KeyRing& keys, Connection::Access access);

    /// Keeps the access that the connections have.
    Book(Connection main, Connection auxiliary);

    /// Opens both databases anew where they have another access; between two actions, as no statement may be alive.
    /// References to the connections stay good. A book that was replaced meanwhile stays as it is: see
    /// refuseReplaced(). Returns true where the access has changed. Throws SqlError; the book then stays open as it
    /// was.
    bool setAccess(Connection::Access access);

    /// Makes the tables and indexes that a writable database lacks, see ensureMainSchema(). For a book that no other
    /// computer holds. Throws SqlError.
    void ensureSchema(const OpeningSteps& steps);

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

/// Makes an empty book at the current schema version with a free usage marker in an existing or new folder.
/// Throws BookExists when any of the three files is there already, SqlError or std::runtime_error when one cannot be
/// written; files made until then are removed again.
void createBook(const BookFiles& files);

/// A file that creating a book would have to overwrite. what() is its path.
class BookExists : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace lorvan
