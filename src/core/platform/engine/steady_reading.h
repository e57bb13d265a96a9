#pragma once

#include <functional>

namespace lorvan {

class Connection;

/// Runs `read`. Reads inside it that belong together must be in one Transaction. If the connection does not trust
/// locks, `read` is run again until no statement or transaction in it was disturbed by a change of somebody else's, for
/// at most twice the lock timeout; it must start from scratch each time.
///
/// Throws what `read` throws if the files did not change; SqlError of kind Busy if they keep changing, JournalStands if
/// a journal remains. Inside a transaction, or while a statement of the connection is running, nothing is repeated.
void readSteadily(Connection& connection, const std::function<void()>& read);

} // namespace lorvan
