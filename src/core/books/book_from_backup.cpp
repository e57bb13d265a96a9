#include "books/book_from_backup.h"

#include "backup/book_restore.h"
#include "book/book_files.h"
#include "book/claimed_marker.h"
#include "book/opened_book.h"
#include "book/pending_restore.h"
#include "platform/stop_check.h"

#include <QFileInfo>

#include <memory>

namespace lorvan {
namespace {

std::unique_ptr<RestoredBook> unpack(const QString& backup, const BookFiles& book, const RestoreProgress& progress)
{
    constexpr qint64 megabyte = 1 << 20;
    constexpr qint64 passes = 2; // unpacking and, roughly, the proof
    const qint64 whole = (QFileInfo(backup).size() / megabyte + 1) * passes;
    qint64 done = 0;
    const StopCheck showing([&] {
        progress(RestoreStep::Unpacking, ++done, whole);
        return true;
    });
    return std::make_unique<RestoredBook>(backup, book);
}

/// What is in a book that can be opened. Nothing for one of an older schema version, which is not checked.
std::optional<BookCheck> checkStaged(const BookFiles& staged, const RestoreProgress& progress)
{
    try {
        OpenedBook book(staged.dataFolder());
        return checkContent(book.connection(),
            [&](std::int64_t done, std::int64_t whole) { progress(RestoreStep::Checking, done, whole); });
    } catch (const Refused&) {
        return std::nullopt;
    }
}

} // namespace

bool holdsBook(const BookFiles& book)
{
    return QFileInfo::exists(book.mainDatabase()) || QFileInfo::exists(book.auxiliaryDatabase());
}

BookFromBackup restoreBook(
    const QString& backup, const BookFiles& book, const Authority& authority, const RestoreProgress& progress)
{
    finishRestore(book);
    std::optional<ClaimedMarker> marker;
    if (BookFiles::exists(book.usageMarker())) // a book that lacks it is not refused
        marker.emplace(book);
    const auto restored = unpack(backup, book, progress);
    BookFromBackup result{checkStaged(restored->staged(), progress)};
    continueOrGiveUp();
    result.aside = restored->replace(authority);
    return result;
}

} // namespace lorvan
