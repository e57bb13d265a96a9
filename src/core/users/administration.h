#pragma once

#include "book/book_files.h"

#include <QDateTime>
#include <QString>

#include <functional>

namespace lorvan {

class Connection;
class KeyRing;

/// Closes every day between the earliest and the latest closed day that is still open; does nothing with no closed day
/// or one. One transaction. `goOn` is asked now and then, so that a window stays alive over a range of centuries; when
/// it says no, nothing is closed.
void closeOpenDays(Connection& auxiliary, const std::function<bool()>& goOn);

/// Where the two databases were copied to.
struct CopiedBook {
    QString mainDatabase;
    QString auxiliaryDatabase;
};

/// Deletes all movements, codes, groups, cash days and closed days of a book, after copying both databases (see
/// BookCopy). Users and schema version remain, and counters go on where they stood. One transaction over both files,
/// under one lock with the copy: what is deleted is what was copied.
/// Throws BookCopyFailed or SqlError; nothing is deleted then.
[[nodiscard]] CopiedBook deleteAllData(const BookFiles& files, KeyRing& keys, const QDateTime& now);

} // namespace lorvan
