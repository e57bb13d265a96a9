#include "book/book_files.h"
#include "codes/codes_page.h"
#include "controls/main_controls.h"
#include "csv/open_book_exchange.h"
#include "exchange/csv_taking.h"
#include "look/message_window.h"
#include "main/kentrikh.h"
#include "main/month_window.h"
#include "main/tab_band.h"
#include "main/tools_button.h"
#include "preview/folder_dialog.h"

#include <QAction>

namespace lorvan {
namespace {

const QString exportTitle = QStringLiteral("Εξαγωγή");

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
    connect(in, &QAction::triggered, this, [this] { openTool([this] { importTables(CsvPlace::Folder); }); });
    const QAction* const zip = m_band->tools()->add(QStringLiteral("importZip"), QStringLiteral("Εισαγωγή ZIP…"));
    connect(zip, &QAction::triggered, this, [this] { openTool([this] { importTables(CsvPlace::Zip); }); });
}

void Kentrikh::exportTables()
{
    const QString parent = askFolder(this, QStringLiteral("Πού θα γραφτεί ο φάκελος με τα αρχεία;"));
    if (parent.isEmpty() || m_closed)
        return;
    ExportedBook made;
    const ProgressTexts texts{exportTitle, QStringLiteral("Γράφονται τα αρχεία CSV και XLSX…"), {}};
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

void Kentrikh::importTables(CsvPlace place)
{
    const QString files = askCsvFiles(this, place);
    if (files.isEmpty() || m_closed || refusedByMarker(this))
        return;
    const auto take = [&](TakenBefore takenBefore, const StepProgress& progress) {
        return importIntoOpenBook(BookFiles(m_settings.dataFolder), m_keys, m_authority, files, takenBefore, progress);
    };
    const auto showAgain = [this] {
        if (m_tab == tab::codes)
            m_codesPage->lookAgain(); // what was typed there stays
        else
            fillPage(m_tab, m_tab);
        m_balances.proveNow();
    };
    takeCsvFiles(this, m_toolRun, {take, [this] { return !m_closed; }, showAgain});
}

} // namespace lorvan
