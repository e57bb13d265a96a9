#include "support/command.h"

#include "book/opened_book.h"
#include "csv/book_export.h"
#include "platform/files/new_folder.h"
#include "platform/work_watch.h"
#include "support/progress_bar.h"

namespace lorvan {
namespace {

ExitStatus exportTables(Arguments& arguments, const ToolContext& context)
{
    const Passwords passwords =
        arguments.takeFlag(QStringLiteral("--passwords")) ? Passwords::Export : Passwords::LeaveOut;
    const QString bookFolder = arguments.takeBookFolder();
    const QString target = arguments.takeWord(QStringLiteral("ο φάκελος για τα αρχεία CSV"));
    arguments.finish();

    OpenedBook book(bookFolder);
    NewFolder folder(target);
    const QStringList staying = [&] {
        ProgressBar bar(context, QStringLiteral("Εξαγωγή"));
        const QStringList files = exportBook(
            book.files(), book.keys(), folder, passwords, [&](qint64 done, qint64 whole) { bar.show(done, whole); });
        decideOrGiveUp();
        return folder.keep(files);
    }();
    context.out << "Το βιβλίο γράφτηκε σε αρχεία CSV και XLSX στον φάκελο " << target.toStdString() << '\n';
    if (staying.isEmpty())
        return ExitStatus::Done;
    context.errors << "lorvan-data: Στον φάκελο έμειναν και βοηθητικά αρχεία, που δεν σβήνονται: "
                   << staying.join(QStringLiteral(", ")).toStdString() << ". Δεν είναι του βιβλίου· σβήστε τα.\n";
    return ExitStatus::Found;
}

} // namespace

Command exportCommand()
{
    return {QStringLiteral("export"), QStringLiteral("ΦΑΚΕΛΟΣ ΝΕΟΣ_ΦΑΚΕΛΟΣ [--passwords]"),
        QStringLiteral("Γράφει όλους τους πίνακες ενός βιβλίου σε αρχεία CSV, και τις κινήσεις σε XLSX."),
        QStringLiteral(
            "\n  --passwords   γράφει και τους κωδικούς των χρηστών, που αλλιώς παραλείπονται\n\n"
            "Το βιβλίο μόνο διαβάζεται, και ενώ εργάζεται το πρόγραμμα. Τα αρχεία δείχνουν μία στιγμή του\n"
            "βιβλίου. Ο νέος φάκελος εμφανίζεται όταν είναι ολόκληρος· ένας φάκελος που υπάρχει πρέπει να\n"
            "είναι κενός. Τον ανοίγει μόνο ο χρήστης που τον έφτιαξε. Τα αρχεία δεν είναι κρυπτογραφημένα.\n"),
        exportTables};
}

} // namespace lorvan
