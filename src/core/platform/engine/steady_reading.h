#pragma once

#include <functional>

namespace lorvan {

class Connection;

/// Runs `read`; what belongs together in it is one Transaction. Where the connection does not trust in locks, it is run
/// again, for up to twice a lock's patience, until nobody has changed meanwhile what a statement or a transaction in it
/// was reading; it must begin anew each time.
///
/// Throws what `read` throws while the files stay as they are, SqlError of kind Busy where they do not, JournalStands
/// where a journal stays. Inside a transaction, or while a statement of the connection runs, it does not repeat.
void readSteadily(Connection& connection, const std::function<void()>& read);

} // namespace lorvan
