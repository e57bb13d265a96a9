#pragma once

#include "marker/usage_marker.h"

namespace lorvan {

class BookFiles;

/// Claims the usage marker of a book for a command that writes, and releases it in the destructor: also after an
/// exception, and after a signal if there is an Interruption. A marker left by a killed program of this user on this
/// computer is released first, see UsageMarker::heal().
class ClaimedMarker {
public:
    /// Throws Refused with user and computer if the marker is in use, even by this user on this computer, and if it is
    /// missing or invalid. Throws MarkerError if the file cannot be written, and LocksUntrusted if locks keep nobody
    /// out.
    explicit ClaimedMarker(const BookFiles& files);
    ~ClaimedMarker();
    ClaimedMarker(const ClaimedMarker&) = delete;
    ClaimedMarker& operator=(const ClaimedMarker&) = delete;

private:
    void release() noexcept;

    UsageMarker m_marker;
};

/// True, once, if a marker could not be released; the caller tells the user so.
[[nodiscard]] bool takeMarkerLeftInUse() noexcept;

} // namespace lorvan
