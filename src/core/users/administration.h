#pragma once

#include "book/book_files.h"

#include <QString>

#include <functional>

namespace lorvan {

class Authority;
class Connection;
class KeyRing;

/// Closes every open day between the earliest and the latest closed day; does nothing if there is at most one closed
/// day. One transaction over `book`, which holds both databases (see openUnguarded()), with one row in the journal.
/// `goOn` is called now and then, so that a window stays responsive over a range of centuries; if it returns false,
/// nothing is closed. Throws NotPermitted and SqlError.
void closeOpenDays(Connection& book, const Authority& authority, const std::function<bool()>& goOn);

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
