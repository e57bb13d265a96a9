#include "csv/open_book_exchange.h"

#include "backup/book_backup.h"
#include "book/book_schema.h"
#include "book/claimed_marker.h"
#include "book/lock_trust.h"
#include "book/opened_book.h"
#include "csv/book_export.h"
#include "csv/csv_source.h"
#include "platform/authority.h"
#include "platform/files/new_folder.h"
#include "platform/work_watch.h"
#include "proof/opening_balance.h"

#include <QDir>

namespace lorvan {
namespace {

const QString importing = QStringLiteral("Διαβάζονται και μπαίνουν οι γραμμές…");

void backUp(const BookFiles& book, KeyRing& keys, const Authority& authority, const StepProgress& progress)
{
    const PartOfWork part(QStringLiteral("Γίνεται αντίγραφο ασφαλείας…"));
    (void)makeBackupByHand(book, keys, authority.now(), progress);
}

} // namespace

ExportedBook exportOpenBook(
    const BookFiles& book, KeyRing& keys, const QString& parent, const QDateTime& now, const StepProgress& progress)
{
    const QString place = QDir(parent).filePath(now.toString(QStringLiteral("'lorvan-'yyyy-MM-dd-HHmmss")));
    NewFolder folder(place);
    const QStringList files = exportBook(book, keys, folder, Passwords::LeaveOut, progress);
    decideOrGiveUp();
    return {place, folder.keep(files)};
}

CsvImportOutcome importIntoOpenBook(const BookFiles& book, KeyRing& keys, const Authority& authority,
    const QString& files, TakenBefore takenBefore, const StepProgress& progress)
{
    authority.require(Right::ModifyCash);
    const CsvSource source(files);
    backUp(book, keys, authority, progress);
    Connection both = openBoth(book, keys);
    beginStep(importing);
    return importCsv(both, authority, source.folder(), {ClosedDays::Refuse, takenBefore}, progress);
}

CsvImportOutcome importAsAdministrator(const BookFiles& book, const Clock& clock, const QString& files,
    TakenBefore takenBefore, const StepProgress& progress)
{
    const Authority authority = Authority::administrator(clock);
    readyBook(book);
    const ClaimedMarker marker(book);
    OpenedBook opened(book.dataFolder(), Connection::Access::ReadWrite);
    if (opened.connection().isReadOnly())
        throw Refused(QStringLiteral("Το βιβλίο είναι μόνο για ανάγνωση. Δεν έγινε τίποτα."));
    const CsvSource source(files);
    backUp(book, opened.keys(), authority, progress);
    ensureMainSchema(opened.connection(), opened.connection(), openingSteps());
    beginStep(importing);
    return importCsv(opened.connection(), authority, source.folder(), {ClosedDays::Accept, takenBefore}, progress);
}

} // namespace lorvan
