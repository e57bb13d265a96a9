#pragma once

#include "book/usage_marker.h"

namespace lorvan {

class BookFiles;

/// The usage marker of a book, claimed for a command that writes, for as long as the object lives.
///
/// However the command ends, the marker is free afterwards: with an exception, and also after a signal, where an
/// Interruption lives meanwhile. What a killed program of this user left on this computer is taken back first
/// (UsageMarker::heal()).
class ClaimedMarker {
public:
    /// Throws Refused, naming user and computer, when the marker is in use: by anybody, since a program of this very
    /// user on this very computer would be surprised no less. Refuses a missing and an invalid marker too. Throws
    /// MarkerError when the file cannot be written, LocksUntrusted where locks keep nobody out.
    explicit ClaimedMarker(const BookFiles& files);
    ~ClaimedMarker();
    ClaimedMarker(const ClaimedMarker&) = delete;
    ClaimedMarker& operator=(const ClaimedMarker&) = delete;

private:
    void release() noexcept;

    UsageMarker m_marker;
};

/// True once after a marker could not be written free again: whoever tells how the command ended says so too.
[[nodiscard]] bool takeMarkerLeftInUse() noexcept;

} // namespace lorvan
