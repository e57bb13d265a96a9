#pragma once

#include <cstdint>

namespace lorvan {

class Authority;
class Connection;

/// Records all faults in the journal as accepted, with what is there now, and seals days again that were altered or
/// have lost a seal; they are no faults any more. `book` has both databases. One transaction. Returns how many. Throws
/// NotPermitted without the right to change cash records, and SqlError.
std::int64_t acceptFaults(Connection& book, const Authority& authority);

} // namespace lorvan
