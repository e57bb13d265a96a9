#include "book/book_files.h"
#include "codes/codes_page.h"
#include "controls/main_controls.h"
#include "csv/import_texts.h"
#include "csv/open_book_exchange.h"
#include "csv/taken_imports.h"
#include "look/message_window.h"
#include "main/kentrikh.h"
#include "main/month_window.h"
#include "main/tab_band.h"
#include "main/tools_button.h"
#include "preview/folder_dialog.h"

#include <QAction>

namespace lorvan {
namespace {

constexpr std::size_t mostBadLines = 10;
const QString exportTitle = QStringLiteral("Εξαγωγή");
const QString importTitle = QStringLiteral("Εισαγωγή CSV");

} // namespace

void Kentrikh::connectExchange()
{
    const QAction* const out = m_band->tools()->add(QStringLiteral("export"), QStringLiteral("Εξαγωγή…"));
    connect(out, &QAction::triggered, this, [this] { openTool([this] { exportTables(); }); });
    const QAction* const month = m_band->tools()->add(QStringLiteral("monthPackage"), QStringLiteral("Πακέτο μήνα…"));
    connect(month, &QAction::triggered, this, [this] { openTool([this] { packMonth(); }); });
    if (!m_authority.has(Right::ModifyCash))
        return;
    const QAction* const in = m_band->tools()->add(QStringLiteral("importCsv"), QStringLiteral("Εισαγωγή CSV…"));
    connect(in, &QAction::triggered, this, [this] { openTool([this] { importTables(); }); });
}

void Kentrikh::exportTables()
{
    const QString parent = askFolder(this, QStringLiteral("Πού θα γραφτεί ο φάκελος με τα αρχεία;"));
    if (parent.isEmpty() || m_closed)
        return;
    ExportedBook made;
    const ProgressTexts texts{
        exportTitle, QStringLiteral("Γράφονται τα αρχεία CSV και XLSX…"), QStringLiteral("Γραμμές")};
    const auto work = stoppable([&](const StepProgress& progress) {
        made = exportOpenBook(BookFiles(m_settings.dataFolder), m_keys, parent, m_clock.now(), progress);
    });
    if (!m_toolRun.run(this, texts, work) || m_closed)
        return;
    QString details = made.folder;
    if (!made.staying.isEmpty())
        details += QStringLiteral("\rΈμειναν και βοηθητικά αρχεία, που δεν σβήνονται: ")
            + made.staying.join(QStringLiteral(", ")) + QStringLiteral(". Δεν είναι του βιβλίου· σβήστε τα.");
    showMessage(this, QMessageBox::Information, exportTitle,
        QStringLiteral("Το βιβλίο γράφτηκε σε αρχεία CSV και XLSX. Δεν είναι κρυπτογραφημένα."), details);
}

void Kentrikh::packMonth()
{
    MonthWindow(BookFiles(m_settings.dataFolder), m_keys, m_settings.heading, m_clock, this).exec();
}

void Kentrikh::importTables()
{
    const QString folder = askFolder(this, QStringLiteral("Ο φάκελος με τα αρχεία CSV"));
    if (folder.isEmpty() || m_closed || refusedByMarker(this))
        return;
    try {
        importFrom(folder, TakenBefore::Refuse);
    } catch (const AlreadyTaken& taken) {
        const QString question =
            QStringLiteral("Το ίδιο περιεχόμενο έχει ήδη εισαχθεί στις %1. Να εισαχθεί και δεύτερη φορά;")
                .arg(taken.at().toString(QStringLiteral("dd-MM-yyyy HH:mm")));
        if (!m_closed && askYesNo(this, QMessageBox::Warning, importTitle, question, DefaultAnswer::No) && !m_closed)
            importFrom(folder, TakenBefore::Accept);
    }
}

void Kentrikh::importFrom(const QString& folder, TakenBefore takenBefore)
{
    CsvImportOutcome outcome;
    const ProgressTexts texts{
        importTitle, QStringLiteral("Γίνεται αντίγραφο και εισαγωγή…"), QStringLiteral("Γραμμές")};
    const bool isDone = runStoppable(m_toolRun, this, texts, [&](const StepProgress& progress) {
        outcome =
            importIntoOpenBook(BookFiles(m_settings.dataFolder), m_keys, m_authority, folder, takenBefore, progress);
    });
    if (!isDone || m_closed)
        return;
    if (outcome.badLineCount > 0) {
        showMessage(this, QMessageBox::Warning, importTitle,
            QStringLiteral("Γραμμές με λάθη: %1. Δεν προστέθηκε τίποτα.").arg(outcome.badLineCount),
            badLineTexts(outcome, mostBadLines).join(u'\r'));
        return;
    }
    if (m_tab == tab::codes)
        m_codesPage->lookAgain(); // what was typed there stays
    else
        fillPage(m_tab, m_tab);
    m_balances.proveNow();
    showMessage(this, QMessageBox::Information, importTitle, QStringLiteral("Η εισαγωγή έγινε."),
        importedLines(outcome).join(u'\r'));
}

} // namespace lorvan
