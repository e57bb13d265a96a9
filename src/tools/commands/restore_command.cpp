#include "support/command.h"

#include "backup/book_restore.h"
#include "book/book_files.h"
#include "book/claimed_marker.h"
#include "book/failure_text.h"
#include "book/opened_book.h"
#include "book/pending_restore.h"
#include "commands/findings_text.h"
#include "platform/authority.h"
#include "platform/stop_check.h"
#include "platform/work.h"
#include "support/interruption.h"
#include "support/progress_bar.h"

#include <QFileInfo>

#include <memory>
#include <optional>

namespace lorvan {
namespace {

bool holdsBook(const BookFiles& book)
{
    return QFileInfo::exists(book.mainDatabase()) || QFileInfo::exists(book.auxiliaryDatabase());
}

/// What is wrong in a book that can be opened. Nothing for one of an older schema version, which is not checked.
BookFindings findingsIn(const BookFiles& staged, const ToolContext& context)
{
    try {
        OpenedBook book(staged.dataFolder());
        ProgressBar bar(context, QStringLiteral("Έλεγχος κινήσεων"));
        return checkContent(book.connection(), [&](std::int64_t done, std::int64_t whole) {
            bar.show(done, whole);
        }).findings;
    } catch (const Refused&) {
        Interruption::throwIfCome();
        return {};
    }
}

std::unique_ptr<RestoredBook> unpack(const QString& backup, const BookFiles& book, const ToolContext& context)
{
    constexpr qint64 megabyte = 1 << 20;
    constexpr qint64 passes = 2; // unpacking and, roughly, the proof
    const QFileInfo file(backup);
    qint64 done = 0;
    ProgressBar bar(context, QStringLiteral("Έλεγχος αντιγράφου"));
    const StopCheck showing([&] {
        bar.show(++done, (file.size() / megabyte + 1) * passes);
        return true;
    });
    return std::make_unique<RestoredBook>(file.absoluteFilePath(), book);
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
    if (BookFiles::exists(book.usageMarker())) // a book that lacks it is not refused
        marker.emplace(book);
    const auto restored = unpack(backup, book, context);
    const BookFindings findings = findingsIn(restored->staged(), context);
    Interruption::throwIfCome();
    std::optional<QString> aside;
    try {
        aside = restored->replace(Authority::companion(context.clock));
    } catch (const RestoreUnfinished& unfinished) {
        context.errors << "lorvan-data: " << failureText(unfinished).toStdString() << '\n';
        return ExitStatus::Found;
    }
    context.out << "Το βιβλίο επανήλθε στον φάκελο " << book.dataFolder().toStdString() << '\n';
    if (aside)
        context.out << "Τα αρχεία που ήταν εκεί φυλάσσονται στον φάκελο " << aside->toStdString() << '\n';
    if (findings.isInOrder())
        return ExitStatus::Done;
    context.out << "\nΣτο αντίγραφο υπήρχαν λάθη, και υπάρχουν τώρα και στο βιβλίο:\n\n";
    printFindings(findings, context.out);
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
