#pragma once

#include <QString>

namespace lorvan {

class Authority;
class BookFiles;

/// Adds a row to the journal of a restored book that is not in its place yet: the name of the copy and, if there is a
/// readable book that it will replace, the last hashes of that book's journal and seals and the check codes that the
/// copy does not know: of its seals, and of those that earlier restores have told of. A copy from before there was a
/// journal gets one that begins with this. One transaction. Throws SqlError.
void recordRestore(
    const BookFiles& restored, const BookFiles& replaced, const QString& copy, const Authority& authority);

} // namespace lorvan
