#pragma once

namespace lorvan {

class Connection;

/// Begins the journal of a book that has none yet: one row with the number of rows in each table, and one for each
/// user. Otherwise records users and closings that were changed without it: by a program that knows no journal, or
/// while the main database could not be written. Writes nothing, and begins no transaction, if there is nothing to
/// record. Throws SqlError.
void keepJournal(Connection& main, Connection& auxiliary);

/// The same inside the caller's transaction; makes the table of the journal, too.
void completeJournal(Connection& main, Connection& auxiliary);

} // namespace lorvan
