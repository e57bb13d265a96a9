#include "support/command.h"

#include "book/book_schema.h"
#include "book/claimed_marker.h"
#include "book/opened_book.h"
#include "csv/csv_import.h"
#include "csv/csv_source.h"
#include "csv/import_texts.h"
#include "platform/authority.h"
#include "platform/work.h"
#include "proof/opening_balance.h"
#include "support/progress_bar.h"

namespace lorvan {
namespace {

void printLines(const QStringList& lines, std::ostream& stream)
{
    for (const QString& line : lines)
        stream << line.toStdString() << '\n';
}

CsvImportOutcome import(OpenedBook& book, const QString& folder, ImportChoices choices, const ToolContext& context)
{
    if (book.connection().isReadOnly())
        throw Refused(QStringLiteral("Το βιβλίο είναι μόνο για ανάγνωση. Δεν έγινε τίποτα."));
    ensureMainSchema(book.connection(), book.connection(), openingSteps());
    const Authority authority = Authority::companion(context.clock);
    ProgressBar bar(context, QStringLiteral("Διαβάζονται και μπαίνουν οι γραμμές…"));
    return importCsv(
        book.connection(), authority, folder, choices, [&bar](qint64 done, qint64 whole) { bar.show(done, whole); });
}

ExitStatus importCsvFiles(Arguments& arguments, const ToolContext& context)
{
    ImportChoices choices;
    if (arguments.takeFlag(QStringLiteral("--closed-days")))
        choices.closedDays = ClosedDays::Accept;
    if (arguments.takeFlag(QStringLiteral("--again")))
        choices.takenBefore = TakenBefore::Accept;
    const QString bookFolder = arguments.takeBookFolder();
    const QString files = arguments.takeWord(QStringLiteral("ο φάκελος με τα αρχεία CSV"));
    arguments.finish();
    const CsvSource source(files);

    readyBook(BookFiles(bookFolder));
    const ClaimedMarker marker{BookFiles(bookFolder)};
    OpenedBook book(bookFolder, Connection::Access::ReadWrite);
    const CsvImportOutcome outcome = import(book, source.folder(), choices, context);
    if (outcome.badLineCount == 0) {
        printLines(importedLines(outcome), context.out);
        return ExitStatus::Done;
    }
    printLines(badLineTexts(outcome, CsvImportOutcome::mostBadLines), context.errors);
    throw Refused(QStringLiteral("Γραμμές με λάθη: %1. Δεν προστέθηκε τίποτα.").arg(outcome.badLineCount));
}

} // namespace

Command importCsvCommand()
{
    return {QStringLiteral("import-csv"), QStringLiteral("ΦΑΚΕΛΟΣ ΦΑΚΕΛΟΣ_CSV [--closed-days] [--again]"),
        QStringLiteral("Προσθέτει ομάδες, κωδικούς και κινήσεις από αρχεία CSV."),
        QStringLiteral(
            "\n  --closed-days   δέχεται και κινήσεις σε ημέρες που έχουν κλείσει\n"
            "  --again         εισάγει και δεύτερη φορά ό,τι το βιβλίο θυμάται ότι έχει πάρει\n\n"
            "Διαβάζει από τον ΦΑΚΕΛΟ_CSV όσα υπάρχουν από τα omades.csv, kvdikoi.csv και kinhseis.csv, όπως τα\n"
            "γράφει η εντολή export, και μαζί τους τα υπόλοιπα ανοίγματος του opening_difference.csv. Οι κινήσεις\n"
            "μπαίνουν σαν να πληκτρολογήθηκαν: αλλάζουν και τα υπόλοιπα των επόμενων ημερών. Αν έστω και μία\n"
            "γραμμή έχει λάθος, δεν προστέθηκε τίποτα και οι γραμμές με λάθη αναφέρονται μία προς μία. Το βιβλίο\n"
            "θυμάται τι πήρε: το ίδιο περιεχόμενο δεν μπαίνει δεύτερη φορά. Στη θέση του φακέλου μπορεί να δοθεί\n"
            "αρχείο ZIP με τα ίδια αρχεία, όπως το «Πακέτο μήνα» του προγράμματος.\n"
            "Το βιβλίο δεν πρέπει να χρησιμοποιείται από το πρόγραμμα.\n"),
        importCsvFiles};
}

} // namespace lorvan
