#include "book/book_files.h"
#include "cashbook/cash_closing.h"
#include "cashbook/count_window.h"
#include "cashbook/counted_cash.h"
#include "cashbook/day_seal.h"
#include "cashbook/movement_entry_page.h"
#include "controls/main_controls.h"
#include "look/message_window.h"
#include "main/check_window.h"
#include "main/kentrikh.h"
#include "main/open_days_list.h"
#include "main/proof_mark.h"
#include "main/tab_band.h"
#include "main/tools_button.h"
#include "platform/date_text.h"
#include "proof/proof_texts.h"
#include "reports/closing_sheet.h"

#include <QAction>
#include <QTabBar>

namespace lorvan {
namespace {

const QString sheetTitle = QStringLiteral("Φύλλο κλεισίματος");

} // namespace

void Kentrikh::connectTools()
{
    ToolsButton* const tools = m_band->tools();
    const QAction* const check = tools->add(QStringLiteral("check"), QStringLiteral("Έλεγχος του βιβλίου"));
    connect(check, &QAction::triggered, this, [this] { openTool([this] { checkBook(false); }); });
    if (m_authority.has(Right::ModifyCash)) {
        const QAction* const repair = tools->add(QStringLiteral("repairBook"), QStringLiteral("Διόρθωση…"));
        connect(repair, &QAction::triggered, this, [this] { openTool([this] { repairBook(); }); });
    }
    const QAction* const openDays = tools->add(QStringLiteral("openDays"), QStringLiteral("Ανοικτές ημέρες"));
    connect(openDays, &QAction::triggered, this, [this] { openTool([this] { listOpenDays(); }); });
    const QAction* const history = tools->add(QStringLiteral("history"), QStringLiteral("Ιστορικό\tCtrl+H"));
    connect(history, &QAction::triggered, this, m_gate.quick(this, &Kentrikh::openHistory));
    const QAction* const sheet = tools->add(QStringLiteral("closingSheet"), sheetTitle);
    connect(sheet, &QAction::triggered, this, &Kentrikh::openClosingSheet);
    const QAction* const search = tools->add(QStringLiteral("search"), QStringLiteral("Αναζήτηση…\tCtrl+F"));
    connect(search, &QAction::triggered, this, m_gate.quick(this, &Kentrikh::openSearch));
    connect(&m_notices, &MainNotices::followed, this, &Kentrikh::followNotice);
    connect(m_entryPage, &MovementEntryPage::dayClosed, this,
        [this](const ClosedDay& closed) { m_closedDay = closed.day; });
    connect(&m_notices, &MainNotices::sheetWanted, this,
        [this] { m_gate.runWindow([this] { return settle(); }, [this] { printClosingSheet(m_closedDay); }); });

    connect(m_entryPage, &MovementEntryPage::dayClosed, &m_openDays, &OpenDaysWatch::look);
    connect(m_entryPage, &MovementEntryPage::dayCorrected, &m_notices, &MainNotices::tellCorrection);
    connect(m_entryPage, &MovementEntryPage::dayCorrected, &m_balances, &BalanceWatch::proveSoon);
    connect(&m_openDays, &OpenDaysWatch::counted, &m_notices, &MainNotices::tellOpenDays);
    connect(&m_openDays, &OpenDaysWatch::counted, this, [this] { // at the start, after a closing and after midnight
        if (!m_book.main().isReadOnly())
            m_balances.proveSoon();
    });
    connect(&m_balances, &BalanceWatch::advanced, m_band->proof(), &ProofMark::showProving);
    connect(&m_balances, &BalanceWatch::proved, this, &Kentrikh::tellProved);
    connect(&m_balances, &BalanceWatch::provedNow, this, &Kentrikh::sealOlder);
    connect(&m_sealing, &LateSealing::ended, this, [this](int days) {
        if (days > 0)
            m_balances.proveSoon();
    });
    connect(&m_balances, &BalanceWatch::found, this, &Kentrikh::tellFound);
    connect(&m_balances, &BalanceWatch::failed, m_band->proof(), &ProofMark::showFailed);
}

/// Only what was just proved is worth a seal, and only whoever holds the marker writes.
void Kentrikh::sealOlder()
{
    try {
        const auto seen = UsageMarker::look(BookFiles(m_settings.dataFolder).usageMarker());
        if (seen && m_marker.isOwn(*seen))
            m_sealing.start(seen->identity);
    } catch (const MarkerError&) {
        // The next proof comes soon enough.
    }
}

void Kentrikh::tellProved(const LastProof& proof)
{
    m_found.reset();
    m_notices.tellBalances(std::nullopt);
    m_band->proof()->showProved(proof, m_clock.today());
}

void Kentrikh::tellFound(const BalanceProof& proof)
{
    m_found = proof;
    m_notices.tellBalances(proofNotice(proof));
    m_band->proof()->showNothing();
}

void Kentrikh::followNotice(NoticeKind kind)
{
    if (kind == NoticeKind::BalancesWrong)
        openTool([this] { checkBook(true); });
    else if (kind == NoticeKind::OpenDays)
        openTool([this] { listOpenDays(); });
    else if (kind == NoticeKind::DayCorrected)
        m_notices.forgetCorrections();
    else if (kind == NoticeKind::BackupIsOld)
        openTool([this] { backUpNow(); });
}

void Kentrikh::openTool(const std::function<void()>& open)
{
    m_gate.runWindow([this] { return settle(); }, open);
}

void Kentrikh::listOpenDays()
{
    OpenDaysList list(listOpenDaysBefore(m_book.main(), m_book.auxiliary(), m_clock.today()), this);
    list.exec();
    if (const auto day = list.chosen(); day && mayLeaveDay(this))
        goToDay(*day);
}

void Kentrikh::checkBook(bool showsFound)
{
    openCheck([this, showsFound](CheckWindow& window) {
        if (showsFound && m_found)
            window.showFound(*m_found);
        else
            connect(&window, &CheckWindow::opened, &window, &CheckWindow::check);
    });
}

/// The window of the check, which leads to its button for the repair.
void Kentrikh::repairBook()
{
    openCheck(
        [](CheckWindow& window) { connect(&window, &CheckWindow::opened, &window, &CheckWindow::checkForRepair); });
}

void Kentrikh::openCheck(const std::function<void(CheckWindow&)>& prepare)
{
    const auto mayChange = [this](QWidget* asking) { return !refusedByMarker(asking); };
    CheckWindow window(BookFiles(m_settings.dataFolder), m_keys, m_authority, mayChange, this);
    connect(&window, &CheckWindow::repaired, this, [this] {
        m_entryPage->lookAgain();
        m_balances.proveNow();
    });
    prepare(window);
    connect(&window, &CheckWindow::checked, &m_balances, &BalanceWatch::proveNow);
    window.exec();
    if (const auto day = window.chosen(); day && mayLeaveDay(this))
        goToDay(*day);
}

/// On another page the tab is changed first, with the checks of that page.
void Kentrikh::goToDay(QDate day)
{
    m_band->tabs()->setCurrentIndex(tab::cashBook);
    if (m_tab == tab::cashBook && !m_closed && m_entryPage->leaveAll() && !m_closed)
        m_entryPage->goTo(day);
}

/// From another page the tab is changed first: what is counted is kept under the marker, as on the cash page.
void Kentrikh::openClosingSheet()
{
    const auto open = [this] {
        m_band->tabs()->setCurrentIndex(tab::cashBook);
        const QDate day = m_entryPage->day();
        if (m_tab != tab::cashBook || m_closed)
            return;
        if (lorvan::isClosed(m_book.auxiliary(), day))
            printClosingSheet(day);
        else
            showMessage(this, QMessageBox::Information, sheetTitle,
                QStringLiteral("Η ημέρα %1 δεν έχει κλείσει.").arg(dateText(day)));
    };
    m_gate.runWindow([this] { return settle(); }, open);
}

void Kentrikh::printClosingSheet(QDate day)
{
    if (!askForCount(day))
        return;
    m_gate.run([this, day] {
        const auto build = [day, heading = m_settings.heading](
                               const BookFiles& files, KeyRing& keys, const ReportProgress& progress) {
            return buildClosingSheet(day, heading, files, keys, progress);
        };
        m_reports.print({sheetTitle, closingSheetFileName(day), build}, this);
    });
}

bool Kentrikh::askForCount(QDate day)
{
    const auto seal = lastSealOf(m_book.auxiliary(), day);
    if (!seal || !m_authority.has(Right::CloseCash) || m_locks == LockReach::Nobody || m_marker.heldByAnother())
        return true;
    CountWindow window(day, seal->balance, countedCashOf(m_book.auxiliary(), day).value_or(CountedCash()), this);
    window.setKeeping([this, day, &window](const CountedCash& counted) {
        return !refusedByMarker(&window) && CashBook(m_book, m_authority).keepCount(day, counted);
    });
    return window.exec() == QDialog::Accepted && !m_closed;
}

} // namespace lorvan
