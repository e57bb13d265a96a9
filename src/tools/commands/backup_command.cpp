#include "support/command.h"

#include "backup/book_backup.h"
#include "backup/copy_writing.h"
#include "book/book_files.h"
#include "book/opened_book.h"
#include "platform/engine/key_ring.h"
#include "platform/stop_check.h"
#include "platform/work.h"
#include "support/progress_bar.h"

#include <QFileInfo>

namespace lorvan {
namespace {

Folder openParent(const QString& path)
{
    return asCopy([&] { return Folder(QFileInfo(path).path()); });
}

void write(const BookFiles& book, const Folder& folder, const QString& name, const ToolContext& context)
{
    KeyRing keys(bookPassword());
    ProgressBar bar(context, QStringLiteral("Αντίγραφο"));
    makeBackup(book, folder, name, keys, [&bar](qint64 done, qint64 whole) { bar.show(done, whole); });
}

ExitStatus backup(Arguments& arguments, const ToolContext& context)
{
    const BookFiles book(arguments.takeBookFolder());
    const auto file = arguments.takeOptionalWord();
    arguments.finish();

    readyBook(book);
    if (file && QFileInfo(*file).isDir())
        throw Refused(QStringLiteral("Το %1 είναι φάκελος. Δώστε το όνομα ενός αρχείου μέσα του.").arg(*file));
    if (file && QFileInfo::exists(*file))
        throw Refused(QStringLiteral("Το %1 υπάρχει ήδη. Ένα αρχείο που υπάρχει δεν αντικαθίσταται.").arg(*file));

    const QString path = file ? QFileInfo(*file).absoluteFilePath() : QString();
    const Folder folder = file ? openParent(path) : openBackupFolder(book);
    const QString name =
        file ? QFileInfo(path).fileName() : backupName(folder, BackupKind::ByHand, context.clock.now());
    write(book, folder, name, context);
    context.out << "Το αντίγραφο ασφαλείας γράφτηκε και ελέγχθηκε: "
                << (file ? path : folder.pathOf(name)).toStdString() << '\n';
    return ExitStatus::Done;
}

} // namespace

Command backupCommand()
{
    return {QStringLiteral("backup"), QStringLiteral("ΦΑΚΕΛΟΣ [ΑΡΧΕΙΟ]"),
        QStringLiteral("Γράφει ένα αντίγραφο ασφαλείας του βιβλίου, ενώ το πρόγραμμα δουλεύει."),
        QStringLiteral(
            "\nΤο αντίγραφο είναι ένα αρχείο με τις δύο βάσεις του βιβλίου, κρυπτογραφημένες όπως είναι, στην\n"
            "κατάσταση της ίδιας στιγμής. Αφού γραφτεί, ανοίγεται και διαβάζεται ολόκληρο. Χωρίς ΑΡΧΕΙΟ\n"
            "μπαίνει στον υποφάκελο backup του βιβλίου, με όνομα την ημερομηνία και την ώρα. Ένα αρχείο που\n"
            "υπάρχει δεν αντικαθίσταται. Επιστρέφει με την εντολή restore.\n"),
        backup};
}

} // namespace lorvan
