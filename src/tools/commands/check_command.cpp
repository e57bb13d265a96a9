#include "support/command.h"

#include "book/claimed_marker.h"
#include "book/failure_text.h"
#include "book/opened_book.h"
#include "book/schema_guard.h"
#include "commands/findings_text.h"
#include "platform/authority.h"
#include "platform/engine/steady_reading.h"
#include "platform/engine/transaction.h"
#include "proof/book_check.h"
#include "proof/book_repair.h"
#include "proof/code_answer.h"
#include "proof/trail_acceptance.h"
#include "support/progress_bar.h"

namespace lorvan {
namespace {

template <typename Work> auto withProgress(const ToolContext& context, const QString& label, Work work)
{
    ProgressBar bar(context, label);
    return work([&bar](std::int64_t done, std::int64_t whole) { bar.show(done, whole); });
}

/// The engine's check of the files and, only if that finds nothing, the check of their content.
BookCheck examine(OpenedBook& book, const ToolContext& context)
{
    BookCheck check;
    check.findings = withProgress(context, QStringLiteral("Έλεγχος αρχείων"),
        [&](const CheckProgress& progress) { return checkFiles(book.connection(), progress); });
    if (!isReadable(check.findings))
        return check;
    BookCheck content = withProgress(context, QStringLiteral("Έλεγχος κινήσεων"),
        [&](const CheckProgress& progress) { return checkContent(book.connection(), progress); });
    content.findings.merge(check.findings);
    return content;
}

void print(const BookCheck& check, std::ostream& out)
{
    printFindings(check.findings, out);
    out << '\n';
    if (!isReadable(check.findings))
        out << "Το περιεχόμενο δεν ελέγχθηκε. Επαναφέρετε το βιβλίο από ένα αντίγραφο ασφαλείας.\n";
    else
        printTotals(check, out);
}

void printRepair(const BookRepair& repair, std::ostream& out)
{
    out << "\nΔιορθώθηκαν οι ημέρες ταμείου\n\n"
        << "Ημέρες που έμειναν με μία γραμμή: " << repair.mergedDays
        << " (γραμμές που αφαιρέθηκαν: " << repair.removedRows << ")\nΗμέρες που προστέθηκαν: " << repair.addedDays
        << "\nΗμέρες με σύνολα ή υπόλοιπο που διορθώθηκαν: " << repair.correctedDays
        << "\nΥπόλοιπα ανοίγματος που καταχωρίστηκαν: " << repair.keptDifferences
        << "\nΑντίγραφο πριν τη διόρθωση: " << repair.mainCopy.toStdString() << "\n                            "
        << repair.auxiliaryCopy.toStdString() << "\n\n"
        << "Νέος έλεγχος\n\n";
}

/// The repair has been made, whatever happens here.
std::optional<BookCheck> examineAgain(OpenedBook& book, const ToolContext& context)
{
    try {
        return examine(book, context);
    } catch (const std::exception& failure) {
        context.errors << "lorvan-data: Η διόρθωση έγινε, αλλά ο νέος έλεγχος δεν ολοκληρώθηκε. "
                       << failureText(failure).toStdString() << '\n';
        return std::nullopt;
    }
}

ExitStatus checkBook(const QString& folder, bool wantsRepair, const ToolContext& context)
{
    std::optional<ClaimedMarker> marker;
    if (wantsRepair) {
        readyBook(BookFiles(folder));
        marker.emplace(BookFiles(folder));
    }
    OpenedBook book(folder, wantsRepair ? Connection::Access::ReadWrite : Connection::Access::ReadOnly);
    std::optional<BookCheck> found = examine(book, context);
    if (wantsRepair && found->findings.anythingRepairable()) {
        printFindings(found->findings, context.out);
        const BookRepair repair = withProgress(context, QStringLiteral("Διόρθωση"), [&](const CheckProgress& progress) {
            return repairBook(
                book.connection(), book.files(), book.keys(), Authority::companion(context.clock), progress);
        });
        printRepair(repair, context.out);
        found = examineAgain(book, context);
    }
    if (!found)
        return ExitStatus::Found;
    print(*found, context.out);
    return found->findings.isInOrder() ? ExitStatus::Done : ExitStatus::Found;
}

ExitStatus checkCodeFromPaper(const QString& folder, const QString& code, const ToolContext& context)
{
    OpenedBook book(folder, Connection::Access::ReadOnly);
    CodeAnswer answer;
    readSteadily(book.connection(), [&] {
        const Transaction reading(book.connection(), Transaction::View::Steady);
        answer = answerForCode(book.connection(), code);
    });
    context.out << answerText(answer).toStdString() << '\n';
    return answer.verdict == CodeAnswer::Verdict::Holds || answer.verdict == CodeAnswer::Verdict::Resealed
        ? ExitStatus::Done
        : ExitStatus::Found;
}

/// Otherwise the check that follows says what is wrong with the tables.
bool areTablesWhole(Connection& book)
{
    return inspectSchema(book, QStringLiteral("main"), BookDatabase::Main).unreadable.isEmpty()
        && inspectSchema(book, QStringLiteral("auxiliary"), BookDatabase::Auxiliary).unreadable.isEmpty();
}

void accept(const QString& folder, const ToolContext& context)
{
    readyBook(BookFiles(folder));
    const ClaimedMarker marker{BookFiles(folder)};
    OpenedBook book(folder, Connection::Access::ReadWrite);
    if (!areTablesWhole(book.connection())) {
        context.out << "Δεν έγινε αποδεκτό τίποτα: οι πίνακες του βιβλίου δεν είναι όπως πρέπει.\n\n";
        return;
    }
    const Acceptance accepted = acceptFaults(book.connection(), Authority::companion(context.clock));
    if (const QString missing = missingTablesText(accepted); !missing.isEmpty())
        context.out << missing.toStdString() << "\n\n";
    context.out << "Ευρήματα ημερολογίου και σφραγίδων που έγιναν αποδεκτά: " << accepted.faults << "\n\n";
}

ExitStatus check(Arguments& arguments, const ToolContext& context)
{
    const bool wantsRepair = arguments.takeFlag(QStringLiteral("--repair"));
    const bool accepts = arguments.takeFlag(QStringLiteral("--accept"));
    const auto code = arguments.takeOption(QStringLiteral("--code"));
    const QString folder = arguments.takeBookFolder();
    arguments.finish();
    if (code)
        return checkCodeFromPaper(folder, *code, context);
    if (accepts)
        accept(folder, context);
    try {
        return checkBook(folder, wantsRepair, context);
    } catch (const ForeignObjects& foreign) {
        BookCheck found;
        Finding finding{FindingKind::SchemaUnreadable};
        finding.text = QString::fromUtf8(foreign.what());
        found.findings.add(std::move(finding));
        print(found, context.out);
        return ExitStatus::Found;
    }
}

} // namespace

Command checkCommand()
{
    return {QStringLiteral("check"), QStringLiteral("ΦΑΚΕΛΟΣ [--repair] [--accept] | ΦΑΚΕΛΟΣ --code ΚΩΔΙΚΟΣ"),
        QStringLiteral("Ελέγχει ένα βιβλίο και δείχνει τα σύνολά του."),
        QStringLiteral(
            "\n  --repair   διορθώνει όσα έχουν μία μόνο σωστή απάντηση: σύνολα και υπόλοιπα ημερών, ημέρες\n"
            "             που λείπουν, ημέρες γραμμένες δύο φορές. Ένα υπόλοιπο ανοίγματος που φαίνεται μόνο στα\n"
            "             υπόλοιπα το καταχωρίζει. Πριν γράφει αντίγραφο δίπλα στο βιβλίο.\n"
            "  --accept   δέχεται ό,τι άλλαξε έξω από το πρόγραμμα σε κινήσεις, κωδικούς, ημερολόγιο και\n"
            "             σφραγίδες: το γράφει στο ημερολόγιο και σφραγίζει ξανά τις ημέρες.\n"
            "  --code ΚΩΔΙΚΟΣ   λέει αν η ημέρα είναι όπως στο χαρτί που έχει αυτόν τον κωδικό ελέγχου.\n\n"
            "Χωρίς αυτά δεν αλλάζει τίποτα και δουλεύει και όσο το πρόγραμμα είναι ανοικτό. Δύο ίδια\n"
            "βιβλία δίνουν τα ίδια «Σύνολα».\n"
            "Κωδικός εξόδου: 0 κανένα λάθος, 1 βρέθηκαν (ή έμειναν) λάθη, 2 δεν έγινε ο έλεγχος.\n"),
        check};
}

} // namespace lorvan
