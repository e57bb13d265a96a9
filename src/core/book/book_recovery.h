#pragma once

namespace lorvan {

class BookFiles;
class KeyRing;
class UsageMarker;

/// Cleans up after a program that was killed: releases the marker if a note of ours says so (UsageMarker::heal()), and
/// then rolls back an unfinished change, claiming the free marker for as long as that takes. Does next to nothing if
/// there is no journal, and does not touch the files if another program holds the marker or if locks keep nobody out. A
/// failure is left for the opening that follows, which reports it; only a marker that cannot be released again throws
/// MarkerError.
void recoverBook(const BookFiles& files, KeyRing& keys, UsageMarker& marker);

} // namespace lorvan
