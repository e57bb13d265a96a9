#include "support/command.h"

#include "book/book_files.h"
#include "book/failure_text.h"
#include "book/pending_restore.h"
#include "books/book_from_backup.h"
#include "commands/findings_text.h"
#include "platform/authority.h"
#include "platform/work.h"
#include "support/progress_bar.h"

#include <QFileInfo>

namespace lorvan {
namespace {

ExitStatus restore(Arguments& arguments, const ToolContext& context)
{
    const bool mayReplace = arguments.takeFlag(QStringLiteral("--replace"));
    const QString backup = arguments.takeWord(QStringLiteral("το αρχείο του αντιγράφου"));
    const BookFiles book(arguments.takeBookFolder());
    arguments.finish();

    if (!QFileInfo::exists(backup))
        throw Refused(QStringLiteral("Δεν υπάρχει αρχείο %1. Δεν έγινε τίποτα.").arg(backup));
    finishRestore(book);
    if (holdsBook(book) && !mayReplace)
        throw Refused(
            QStringLiteral("Στον φάκελο %1 υπάρχει ήδη βιβλίο. Με το --replace μπαίνει στη θέση του το αντίγραφο,"
                           " και το παλιό φυλάσσεται σε υποφάκελο.")
                .arg(book.dataFolder()));
    BookFromBackup made;
    try {
        ProgressBar bar(context, QStringLiteral("Επαναφορά"));
        made = restoreBook(QFileInfo(backup).absoluteFilePath(), book, Authority::companion(context.clock),
            [&bar](qint64 done, qint64 whole) { bar.show(done, whole); });
    } catch (const RestoreUnfinished& unfinished) {
        context.errors << "lorvan-data: " << failureText(unfinished).toStdString() << '\n';
        return ExitStatus::Found;
    }
    context.out << "Το βιβλίο επανήλθε στον φάκελο " << book.dataFolder().toStdString() << '\n';
    if (made.aside)
        context.out << "Τα αρχεία που ήταν εκεί φυλάσσονται στον φάκελο " << made.aside->toStdString() << '\n';
    if (!made.check || made.check->findings.isInOrder())
        return ExitStatus::Done;
    context.out << "\nΣτο αντίγραφο υπήρχαν λάθη, και υπάρχουν τώρα και στο βιβλίο:\n\n";
    printFindings(made.check->findings, context.out);
    return ExitStatus::Found;
}

} // namespace

Command restoreCommand()
{
    return {QStringLiteral("restore"), QStringLiteral("ΑΡΧΕΙΟ ΦΑΚΕΛΟΣ [--replace]"),
        QStringLiteral("Επαναφέρει ένα βιβλίο από το αντίγραφο ασφαλείας του."),
        QStringLiteral(
            "\n  --replace   και στη θέση ενός βιβλίου που υπάρχει. Εκείνο δεν χάνεται: φυλάσσεται στον\n"
            "              υποφάκελο replaced-ΗΜΕΡΟΜΗΝΙΑ-ΩΡΑ.\n\n"
            "Το αντίγραφο ελέγχεται πρώτα ολόκληρο. Ένα βιβλίο που χρησιμοποιείται δεν αντικαθίσταται. Αν η\n"
            "επαναφορά διακοπεί, το πρόγραμμα βρίσκει στο επόμενο ξεκίνημα ή το παλιό ή το νέο βιβλίο,\n"
            "ολόκληρο.\n"),
        restore};
}

} // namespace lorvan
