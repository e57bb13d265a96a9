#pragma once

namespace lorvan {

class Connection;

/// Makes the table of the journal if there is none, and its first row if it is empty: the number of rows in each table,
/// and the key of the last closing, up to which none is looked for in the journal. Of opening differences it says
/// nothing in a book that keeps none yet: they may still show in its balances. Comes before whatever else is written
/// into the journal of a book from before there was one. `auxiliary` may be the same
/// connection. Inside the caller's transaction on the main database. Throws SqlError.
void beginJournal(Connection& main, Connection& auxiliary);

/// The key under which the first row tells how many opening differences there were.
inline constexpr auto openingRows = "opening_difference";

} // namespace lorvan
