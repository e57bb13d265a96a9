#include "exchange/csv_taking.h"

#include "csv/import_texts.h"
#include "csv/taken_imports.h"
#include "look/message_window.h"
#include "preview/folder_dialog.h"

namespace lorvan {
namespace {

constexpr std::size_t mostBadLines = 10;
const QString title = QStringLiteral("Εισαγωγή CSV");

void takeOnce(QWidget* parent, BackgroundRun& run, const CsvTaking& taking, TakenBefore takenBefore)
{
    CsvImportOutcome outcome;
    const ProgressTexts texts{title, QStringLiteral("Γίνεται αντίγραφο και εισαγωγή…"), {}};
    const bool isDone = runStoppable(
        run, parent, texts, [&](const StepProgress& progress) { outcome = taking.take(takenBefore, progress); });
    if (!isDone || !taking.isWanted())
        return;
    if (outcome.badLineCount > 0) {
        showMessage(parent, QMessageBox::Warning, title,
            QStringLiteral("Γραμμές με λάθη: %1. Δεν προστέθηκε τίποτα.").arg(outcome.badLineCount),
            badLineTexts(outcome, mostBadLines).join(u'\r'));
        return;
    }
    taking.taken();
    showMessage(parent, QMessageBox::Information, title, QStringLiteral("Η εισαγωγή έγινε."),
        importedLines(outcome).join(u'\r'));
}

} // namespace

QString askCsvFiles(QWidget* parent, CsvPlace place)
{
    if (place == CsvPlace::Folder)
        return askFolder(parent, QStringLiteral("Ο φάκελος με τα αρχεία CSV"));
    return askFile(parent, QStringLiteral("Το αρχείο ZIP με τα αρχεία CSV"), QStringLiteral("Αρχεία ZIP (*.zip)"),
        QStringLiteral("zip"));
}

void takeCsvFiles(QWidget* parent, BackgroundRun& run, const CsvTaking& taking)
{
    try {
        takeOnce(parent, run, taking, TakenBefore::Refuse);
    } catch (const AlreadyTaken& taken) {
        const QString question =
            QStringLiteral("Το ίδιο περιεχόμενο έχει ήδη εισαχθεί στις %1. Να εισαχθεί και δεύτερη φορά;")
                .arg(taken.at().toString(QStringLiteral("dd-MM-yyyy HH:mm")));
        if (taking.isWanted() && askYesNo(parent, QMessageBox::Warning, title, question, DefaultAnswer::No)
            && taking.isWanted())
            takeOnce(parent, run, taking, TakenBefore::Accept);
    }
}

} // namespace lorvan
