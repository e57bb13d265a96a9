#pragma once

#include "platform/engine/connection.h"
#include "platform/files/lock_reach.h"

#include <stdexcept>

namespace lorvan {

class BookFiles;
class KeyRing;
class UsageMarker;

/// Whom the locks on a book's files keep out; tested on its usage marker.
[[nodiscard]] LockReach lockReachOf(const BookFiles& files);

/// Opens a database of a book. If it is opened read-only and locks do not keep everybody out, the connection watches
/// the file instead. Throws like Connection::open().
[[nodiscard]] Connection openBookFile(
    const QString& path, KeyRing& keys, Connection::Access access = Connection::Access::ReadOnly);

/// A change is refused because no lock would keep others out. what() explains this to the user.
class LocksUntrusted : public std::runtime_error {
public:
    LocksUntrusted();
};

/// For an action that consists of one transaction and is not guarded by the usage marker. Waits up to twice the lock
/// timeout while there is a journal, then throws SqlError of kind JournalStands. Throws LocksUntrusted if locks keep
/// nobody out, or if they do not reach other computers and one of these holds the marker. Throws MarkerError.
void admitUnguarded(const BookFiles& files);

/// Opens both databases of a book in one connection, the auxiliary one as `auxiliary`, so that they are changed in one
/// transaction. Throws like Connection::open().
[[nodiscard]] Connection openBoth(
    const BookFiles& files, KeyRing& keys, Connection::Access access = Connection::Access::ReadWrite);

/// For such an action on the auxiliary database, which the main one's journal should record: openBoth(), or the
/// auxiliary database alone if the main one cannot be opened or not be written. Throws the errors of admitUnguarded(),
/// and like Connection::open().
[[nodiscard]] Connection openUnguarded(const BookFiles& files, KeyRing& keys);

} // namespace lorvan
