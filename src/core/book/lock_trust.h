#pragma once

#include "platform/engine/connection.h"
#include "platform/files/lock_reach.h"

#include <stdexcept>

namespace lorvan {

class BookFiles;
class KeyRing;
class UsageMarker;

/// Whom the locks on a book's files keep out, tried on its usage marker.
[[nodiscard]] LockReach lockReachOf(const BookFiles& files);

/// A database of a book. Where locks do not keep everybody out, it watches the file when it is opened for reading
/// alone. Throws as Connection::open().
[[nodiscard]] Connection openBookFile(
    const QString& path, KeyRing& keys, Connection::Access access = Connection::Access::ReadOnly);

/// A change is refused because no lock would keep others out. what() says so to the user.
class LocksUntrusted : public std::runtime_error {
public:
    LocksUntrusted();
};

/// For the single transaction of an action that the usage marker does not guard: waits up to twice a lock's patience
/// while a journal stands, then throws SqlError of kind JournalStands. Throws LocksUntrusted where locks keep nobody
/// out, and where they keep other computers in and one of these holds the marker; MarkerError.
void admitUnguarded(const BookFiles& files);

/// The connection for such an action. Throws the same, and as Connection::open().
[[nodiscard]] Connection openUnguarded(const QString& path, KeyRing& keys);

} // namespace lorvan
