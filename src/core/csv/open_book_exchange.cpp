#include "csv/open_book_exchange.h"

#include "backup/book_backup.h"
#include "book/lock_trust.h"
#include "csv/book_export.h"
#include "platform/authority.h"
#include "platform/files/new_folder.h"
#include "platform/stop_check.h"

#include <QDir>

namespace lorvan {

ExportedBook exportOpenBook(
    const BookFiles& book, KeyRing& keys, const QString& parent, const QDateTime& now, const StepProgress& progress)
{
    const QString place = QDir(parent).filePath(now.toString(QStringLiteral("'lorvan-'yyyy-MM-dd-HHmmss")));
    NewFolder folder(place);
    const QStringList files = exportBook(book, keys, folder, Passwords::LeaveOut, progress);
    continueOrGiveUp();
    return {place, folder.keep(files)};
}

CsvImportOutcome importIntoOpenBook(const BookFiles& book, KeyRing& keys, const Authority& authority,
    const QString& folder, TakenBefore takenBefore, const StepProgress& progress)
{
    authority.require(Right::ModifyCash);
    makeBackupByHand(book, keys, authority.now(), [](qint64, qint64) { return true; });
    Connection both = openBoth(book, keys);
    return importCsv(both, authority, folder, {ClosedDays::Refuse, takenBefore}, progress);
}

} // namespace lorvan
