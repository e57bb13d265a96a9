#pragma once

namespace lorvan {

class BookFiles;
class KeyRing;
class UsageMarker;

/// Takes back what a program left that was killed: the marker, where a note of ours says so (UsageMarker::heal()), and
/// then an unfinished change, by claiming the free marker for as long as it takes. Does next to nothing where no
/// journal stands, and nothing to the files where another holds the marker or locks keep nobody out. What fails is left
/// to the opening that follows, which tells it; only a marker that cannot be released again throws MarkerError.
void recoverBook(const BookFiles& files, KeyRing& keys, UsageMarker& marker);

} // namespace lorvan
