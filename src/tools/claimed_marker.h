#pragma once

#include "app/usage_marker.h"

#include <memory>

namespace lorvan {

class BookFiles;

/// The usage marker of a book, claimed for a command that writes, for as long as the object lives.
///
/// However the command ends, the marker is free afterwards: with an exception, and also by a signal that asks the
/// process to end (SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE), which then ends it as usual; a signal that is ignored
/// stays ignored. What a transaction has not committed by then is undone by the next opening of the book. One object
/// at a time.
class ClaimedMarker {
public:
    /// Throws Refused, naming user and computer, when the marker is in use: by anybody, since a program of this very
    /// user on this very computer would be surprised no less. Refuses a missing and an invalid marker too. Throws
    /// MarkerError when the file cannot be written.
    explicit ClaimedMarker(const BookFiles& files);
    ~ClaimedMarker();
    ClaimedMarker(const ClaimedMarker&) = delete;
    ClaimedMarker& operator=(const ClaimedMarker&) = delete;

private:
    class SignalWatch;

    UsageMarker m_marker;
    std::unique_ptr<SignalWatch> m_watch;
};

} // namespace lorvan
