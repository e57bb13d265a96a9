#pragma once

#include <QDateTime>
#include <QString>

namespace lorvan {

class KeyRing;

enum class BookCondition {
    Ready,
    Missing, ///< There is no main database.
    OlderFormat, ///< The main database is in the older format and must be imported.
    Damaged, ///< A database is missing or cannot be read as one.
    Unreadable, ///< It cannot be read at the moment: locked, no permission, an unfinished change of another computer.
};

/// What can be told of a book from outside.
struct BookLook {
    BookCondition condition = BookCondition::Missing;
    qint64 size = 0; ///< Bytes of both databases.
    QDateTime lastUse = {}; ///< When one of its three files was last written; invalid if none is there.
    bool hasUsers = true; ///< False only if it is known to have none.
    QString trouble = {}; ///< Why it is damaged or cannot be read, in plain Greek.
};

/// Opens the book read-only and changes nothing. Waits for locks as long as any reader, so not for the interface's
/// thread. Does not throw.
[[nodiscard]] BookLook lookAtBook(const QString& folder);

/// What to do about a book that cannot be opened, in plain Greek; empty for one that can.
[[nodiscard]] QString adviceOn(const BookLook& look, const QString& folder);

/// Throws Refused with that advice if the book's files are missing, damaged or of the older format.
void refuseUnopenable(const QString& folder);

/// In a word or two why it cannot be opened; empty for a book that is ready.
[[nodiscard]] QString conditionText(BookCondition condition);

/// "1,2 MB": a size for people, with a decimal only below ten.
[[nodiscard]] QString sizeText(qint64 bytes);

} // namespace lorvan
