#include "tools/command.h"

#include "app/book_files.h"
#include "app/book_restore.h"
#include "app/pending_restore.h"
#include "tools/claimed_marker.h"
#include "tools/refused.h"

#include <QFileInfo>

#include <optional>

namespace lorvan {
namespace {

bool holdsBook(const BookFiles& book)
{
    return QFileInfo::exists(book.mainDatabase()) || QFileInfo::exists(book.auxiliaryDatabase());
}

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
    std::optional<ClaimedMarker> marker;
    if (BookFiles::exists(book.usageMarker())) // a book that has lost it is not refused
        marker.emplace(book);
    RestoredBook restored(QFileInfo(backup).absoluteFilePath(), book);
    const auto aside = restored.replace(context.clock.now());
    context.out << "Το βιβλίο επανήλθε στον φάκελο " << book.dataFolder().toStdString() << '\n';
    if (aside)
        context.out << "Τα αρχεία που ήταν εκεί φυλάσσονται στον φάκελο " << aside->toStdString() << '\n';
    return ExitStatus::Done;
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
