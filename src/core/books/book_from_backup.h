#pragma once

#include "platform/work.h"
#include "proof/book_check.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace lorvan {

class Authority;
class BookFiles;
class Connection;
class RestoredBook;

/// Whether one of a book's two databases is in its folder.
[[nodiscard]] bool holdsBook(const BookFiles& book);

/// Unpacks and proves a backup in the place where its book will go. Counts megabytes, roughly twice the size of the
/// backup. Throws like RestoredBook.
[[nodiscard]] std::unique_ptr<RestoredBook> unpackBackup(
    const QString& backup, const BookFiles& book, const StepProgress& progress);

/// Checks the unpacked book; `look`, if there is one, then reads what else is wanted of it, both databases on one
/// connection. No value, and no look, for a book of an older schema version. Throws SqlError.
[[nodiscard]] std::optional<BookCheck> checkRestored(
    const RestoredBook& restored, const StepProgress& progress, const std::function<void(Connection& book)>& look = {});

struct BookFromBackup {
    std::optional<BookCheck> check; ///< Of the book in the backup; no value if it is of an older schema version.
    std::optional<QString> aside = {}; ///< The folder with the files that were in the way, if there were any.
};

/// Unpacks, proves and checks a backup and puts it into the folder; a book that is there is put aside, while its usage
/// marker is held. A StopCheck may end it until then. The path of the backup is absolute, and the caller has asked
/// whether a book may be replaced. Throws Refused, also if somebody works with that book, and like RestoredBook.
[[nodiscard]] BookFromBackup restoreBook(
    const QString& backup, const BookFiles& book, const Authority& authority, const StepProgress& progress);

} // namespace lorvan
