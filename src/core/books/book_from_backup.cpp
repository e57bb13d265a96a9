#include "books/book_from_backup.h"

#include "backup/book_restore.h"
#include "book/book_files.h"
#include "book/claimed_marker.h"
#include "book/opened_book.h"
#include "book/pending_restore.h"
#include "platform/stop_check.h"
#include "platform/work_watch.h"

#include <QFileInfo>

namespace lorvan {

std::unique_ptr<RestoredBook> unpackBackup(const QString& backup, const BookFiles& book, const StepProgress& progress)
{
    beginStep(QStringLiteral("Ξεπακετάρεται και ελέγχεται το αντίγραφο…"));
    constexpr qint64 megabyte = 1 << 20;
    constexpr qint64 passes = 2; // unpacking and, roughly, the proof
    const qint64 whole = (QFileInfo(backup).size() / megabyte + 1) * passes;
    qint64 done = 0;
    const StopCheck showing([&] {
        progress(++done, whole);
        return true;
    });
    return std::make_unique<RestoredBook>(backup, book);
}

std::optional<BookCheck> checkRestored(
    const RestoredBook& restored, const StepProgress& progress, const std::function<void(Connection& book)>& look)
{
    const PartOfWork part(QStringLiteral("Ελέγχονται οι κινήσεις του αντιγράφου…"));
    try {
        OpenedBook book(restored.staged().dataFolder());
        auto check =
            checkContent(book.connection(), [&](std::int64_t done, std::int64_t whole) { progress(done, whole); });
        if (look)
            look(book.connection());
        return check;
    } catch (const Refused&) {
        return std::nullopt;
    }
}

bool holdsBook(const BookFiles& book)
{
    return QFileInfo::exists(book.mainDatabase()) || QFileInfo::exists(book.auxiliaryDatabase());
}

BookFromBackup restoreBook(
    const QString& backup, const BookFiles& book, const Authority& authority, const StepProgress& progress)
{
    finishRestore(book);
    std::optional<ClaimedMarker> marker;
    if (BookFiles::exists(book.usageMarker())) // a book that lacks it is not refused
        marker.emplace(book);
    const auto restored = unpackBackup(backup, book, progress);
    BookFromBackup result{checkRestored(*restored, progress)};
    decideOrGiveUp();
    result.aside = restored->replace(authority);
    return result;
}

} // namespace lorvan
