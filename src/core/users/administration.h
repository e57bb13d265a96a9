#pragma once

#include "book/book_files.h"

#include <QString>

namespace lorvan {

class Authority;
class KeyRing;

/// The paths of the copies of the two databases.
struct CopiedBook {
    QString mainDatabase;
    QString auxiliaryDatabase;
};

/// Deletes all movements, codes, groups, cash days and closed days of a book, after copying both databases (see
/// BookCopy). Users, schema version and journal remain, and counters continue from where they were. One transaction
/// over both files, under the same lock as the copy: what is deleted is what was copied. Throws BookCopyFailed or
/// SqlError; nothing is deleted then.
[[nodiscard]] CopiedBook deleteAllData(const BookFiles& files, KeyRing& keys, const Authority& authority);

} // namespace lorvan
