#pragma once

namespace lorvan {

class Connection;
struct JournalEntry;

/// To be called before a change of a movement, a code or a group is recorded: if what stood there before it is not what
/// the subject's last row tells, somebody has changed it around the program, and a row of the program itself says so,
/// which the change would hide otherwise. Of a subject without a row nothing is claimed, nor of a code or a group
/// without one since the last import. Inside the caller's transaction. One index look-up for a movement. Throws
/// SqlError.
void recordFoundState(Connection& book, const JournalEntry& change);

} // namespace lorvan
