#include "main/kentrikh.h"

#include "book/version.h"
#include "cashbook/movement_entry_page.h"
#include "codes/code_catalogue.h"
#include "codes/codes_page.h"
#include "codes/omada_kvdikvn.h"
#include "controls/command_button.h"
#include "controls/guarded_window.h"
#include "controls/main_controls.h"
#include "controls/notice_line.h"
#include "figures/card_window.h"
#include "figures/picture_window.h"
#include "help/help_window.h"
#include "journal/journal_window.h"
#include "look/message_window.h"
#include "look/remembered_size.h"
#include "look/window_placement.h"
#include "main/tab_band.h"
#include "main/tools_button.h"
#include "main/totals_bar.h"
#include "platform/amount_text.h"
#include "printing/printing_page.h"
#include "proof/opening_balance.h"
#include "search/search_window.h"

#include <QScopeGuard>
#include <QScrollArea>
#include <QShortcut>
#include <QShowEvent>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

namespace lorvan {
namespace {

constexpr QSize firstSize{788, 541};
constexpr QSize leastSize{720, 500};

} // namespace

Kentrikh::Kentrikh(
    Book book, UsageMarker marker, Authority authority, DataFolderSettings settings, Clock clock, KeyRing& keys)
    : m_book(std::move(book))
    , m_marker(std::move(marker))
    , m_authority(std::move(authority))
    , m_settings(std::move(settings))
    , m_keys(keys)
    , m_clock(std::move(clock))
    , m_locks(lockReachOf(BookFiles(m_settings.dataFolder)))
    , m_undoList(m_book, m_authority)
    , m_band(new TabBand(this))
    , m_pages(new QStackedWidget(this))
    , m_entryPage(new MovementEntryPage(m_book, m_marker, m_authority, m_clock, this))
    , m_codesPage(new CodesPage(m_book, m_authority, this))
    , m_printingPage(new PrintingPage(m_clock, this))
    , m_totals(new TotalsBar(this))
    , m_notices(m_settings.dataFolder, m_marker, m_clock, this)
    , m_openDays(m_book, m_clock)
    , m_balances(BookFiles(m_settings.dataFolder), keys, m_clock)
    , m_sealing(BookFiles(m_settings.dataFolder), keys, m_clock)
    , m_gate(
          this, ActionGate::Opened::OnItsOwn, [this] { m_notices.actionBegins(); }, [this] { tellUnconfirmed(this); })
    , m_reports(BookFiles(m_settings.dataFolder), keys)
    , m_sheets(BookFiles(m_settings.dataFolder), keys)
    , m_backup(BookFiles(m_settings.dataFolder), keys, m_clock)
    , m_session(this)
    , m_away(this, m_clock)
{
    setObjectName(QStringLiteral("kentrikh"));
    m_entryPage->suggestDescriptions(BookFiles(m_settings.dataFolder), m_keys);
    layOut();
    addTabKeys();
    addHistoryKey();
    addSearchKey();
    addBackKey();
    m_reports.setFollow([this](const RowSubject& subject, QWidget* preview) { followLine(subject, preview); });
    connectPages();
    connectButtons();
    connectTools();
    connectUndo();
    connectFigures();
    m_band->tools()->beginGroup();
    connectBackup();
    connectExchange();
    m_band->tools()->beginGroup();
    connectHelp();
    addReportKeys();
    connectAbout();
}

Kentrikh::~Kentrikh() = default;

void Kentrikh::layOut()
{
    m_band->addTab(
        QStringLiteral("daybook"), QStringLiteral("Ημερήσια κίνηση "), QStringLiteral("Εισαγωγή εσόδων και εξόδων"));
    m_band->addTab(QStringLiteral("codes"), QStringLiteral("Κωδικοί κινήσεων "),
        QStringLiteral("Εισαγωγή και μεταβολή κωδικών - ομάδων"));
    m_band->addTab(
        QStringLiteral("print"), QStringLiteral("Εκτυπώσεις "), QStringLiteral("Εκτύπωση ταμείου και καρτελών"));
    m_band->addTab(QStringLiteral("exit"), QStringLiteral("Εξοδος "), QStringLiteral("Εξοδος από το πρόγραμμα"));

    for (QWidget* const page : std::initializer_list<QWidget*>{m_entryPage, m_codesPage, m_printingPage})
        m_pages->addWidget(scrolling(page));

    auto* const central = new QWidget(this);
    auto* const rows = new QVBoxLayout(central);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    rows->addWidget(m_band);
    rows->addLayout(m_notices.row());
    rows->addWidget(m_pages, 1);
    rows->addWidget(m_totals);
    setCentralWidget(central);
    setMinimumSize(leastSize.boundedTo(roomFor(this)));
    keepSize(this, firstSize);
    centreOnWorkArea(this);
}

QWidget* Kentrikh::scrolling(QWidget* page)
{
    auto* const area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(page);
    return area;
}

void Kentrikh::addTabKeys()
{
    const auto turn = [this](int step) {
        const int target = m_band->tabs()->currentIndex() + step;
        if (target >= tab::cashBook && target < tab::exit)
            m_band->tabs()->setCurrentIndex(target);
    };
    const auto add = [this, turn](Qt::Key key, int step) {
        auto* const shortcut = new QShortcut(QKeySequence(Qt::CTRL | key), this);
        connect(shortcut, &QShortcut::activated, this, [turn, step] { turn(step); });
    };
    add(Qt::Key_PageUp, -1);
    add(Qt::Key_PageDown, 1);
}

void Kentrikh::connectPages()
{
    connect(m_entryPage, &MovementEntryPage::figuresChanged, this, [this](const CashDayFigures& figures) {
        m_totals->setFigures(amountOrZeroText(figures.income), amountOrZeroText(figures.expense),
            amountOrZeroText(figures.closingBalance));
    });
    connect(
        m_codesPage, &CodesPage::codesChanged, this, [this] { guarded(this, [this] { m_entryPage->refillCodes(); }); });
    connect(m_entryPage, &MovementEntryPage::figuresUnknown, this, [this] { m_totals->setFigures({}, {}, {}); });
    connect(m_band->tabs(), &QTabBar::currentChanged, this, &Kentrikh::selectTab);
    connect(m_entryPage, &MovementEntryPage::dayClosed, &m_notices, &MainNotices::dayClosed);
    connect(&m_away, &AwayWatch::returned, this, m_gate.quick(this, &Kentrikh::lookAgain));
    m_notices.followBackup(m_backup);
}

void Kentrikh::initialise()
{
    m_entryPage->start();
    m_band->setVersion(QStringLiteral("Έκδοση  ") + programVersion());
    if (m_locks != LockReach::Nobody)
        m_marker.claim();
    backUpIfHeld();
    refreshCaption();
    m_notices.tellLocks(m_locks, m_book.main().isReadOnly());
    m_band->setHeading(m_settings.heading);
    m_openDays.look();
}

void Kentrikh::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (!event->spontaneous())
        m_entryPage->focusEntry();
}

// Buttons

void Kentrikh::connectButtons()
{
    const auto settled = [this] { return settle() && m_printingPage->settle() && !m_closed; };
    const ActionGate::Conditions change{settled, [this] { return !refusedByMarker(this); }};
    m_gate.connect(m_entryPage->button(command::insertMovement), change, [this] { m_entryPage->insertMovement(); });
    m_gate.connect(m_entryPage->button(command::modifyMovement), change, [this] { m_entryPage->modifyMovement(); });
    m_gate.connect(m_entryPage->button(command::removeMovement), change, [this] { m_entryPage->removeMovement(); });
    m_gate.connect(m_entryPage->button(command::closeCash), change, [this] { m_entryPage->closeCash(); });
    m_gate.connect(m_codesPage->button(command::modifyCode), change, [this] { m_codesPage->modifyCode(); });
    m_gate.connect(m_codesPage->button(command::removeCode), change, [this] { m_codesPage->removeCode(); });
    m_gate.connectWindow(m_codesPage->button(command::editGroups), change, [this] { editGroups(); });
    m_gate.connect(m_codesPage->button(command::insertCode), {settled}, [this] { insertCode(); });
    m_gate.connect(m_printingPage->button(), {[this] { return settle(); }}, [this] { printReport(); });
    m_gate.connect(m_entryPage->button(command::exitFromCashPage), {}, [this] { leave(); });
    m_gate.connect(m_codesPage->button(command::exitFromCodesPage), {}, [this] { leave(); });
}

/// The period is not checked here: a report checks it itself, with its own message.
bool Kentrikh::settle()
{
    m_book.refuseReplaced();
    return m_entryPage->settle() && !m_closed;
}

bool Kentrikh::refusedByMarker(QWidget* asking)
{
    if (m_locks == LockReach::Nobody)
        throw LocksUntrusted();
    const auto holder = m_marker.guardChange();
    backUpIfHeld();
    follow(holder);
    if (holder)
        showMessage(asking, QMessageBox::Information, QStringLiteral("Αδύνατη η πρόσβαση"), markerRefusal(*holder));
    else
        m_book.setAccess(Connection::Access::ReadWrite); // also where the marker cannot be claimed and refuses nobody
    return holder.has_value();
}

/// The marker does not guard it.
void Kentrikh::insertCode()
{
    if (!m_marker.owns())
        admitUnguarded(BookFiles(m_settings.dataFolder));
    m_book.setAccess(Connection::Access::ReadWrite);
    const auto backToReading = qScopeGuard([this] { guarded(this, [this] { refreshCaption(); }); });
    m_codesPage->insertCode();
}

void Kentrikh::editGroups()
{
    OmadaKvdikvn groups(
        m_book.main(), m_authority, [this](QWidget* asking) { return !refusedByMarker(asking); }, this);
    connect(&groups, &OmadaKvdikvn::stored, this, &Kentrikh::takeUp);
    groups.exec();
    m_codesPage->refreshGroups();
}

void Kentrikh::printReport()
{
    auto request = m_printingPage->request();
    if (!request)
        return;
    request->inputs.heading = m_settings.heading;
    m_reports.print(std::move(*request), this);
}

// Tabs

void Kentrikh::selectTab(int tab)
{
    if (tab != tab::exit && !(m_entryPage->leaveAll() && m_printingPage->leaveAll() && !m_closed)) {
        keepTab(); // the refused field stays visible
        return;
    }
    m_notices.actionBegins();
    guarded(this, [this] { refreshCaption(); });
    if (tab != tab::exit && !guarded(this, [this] { m_book.refuseReplaced(); }))
        keepTab();
    else if (tab != tab::exit)
        showTab(tab);
    else if (confirmExit())
        end();
    else
        keepTab();
}

void Kentrikh::keepTab()
{
    const QSignalBlocker selectionAsItWas(m_band->tabs());
    m_band->tabs()->setCurrentIndex(m_tab);
}

void Kentrikh::showTab(int tab)
{
    const int earlier = std::exchange(m_tab, tab);
    m_pages->setCurrentIndex(tab);
    guarded(this, [this, tab] { followMarker(tab); });
    guarded(this, [this, tab, earlier] { fillPage(tab, earlier); });
}

void Kentrikh::refreshCaption()
{
    follow(m_marker.heldByAnother());
}

/// The book is read-only while somebody else holds the marker, and if locks keep nobody out. If locks do not reach
/// other computers, it is read-only unless this program holds the marker: another computer could write as soon as it is
/// free.
void Kentrikh::follow(const std::optional<MachineIdentity>& holder)
{
    setWindowTitle(markerCaption(holder));
    if (!m_marker.owns())
        m_sealing.stop();
    const bool mayWrite = m_marker.owns() || (!holder && m_locks == LockReach::Everybody);
    const bool isNew = m_book.setAccess(mayWrite ? Connection::Access::ReadWrite : Connection::Access::ReadOnly);
    m_notices.followMarker(holder.has_value());
    if (isNew)
        m_book.ensureSchema(openingSteps());
    if (mayWrite)
        m_balances.bookIsWritable();
}

/// Another computer may have changed the shown day meanwhile.
void Kentrikh::lookAgain()
{
    if (m_tab != tab::cashBook || m_closed)
        return;
    guarded(this, [this] { refreshCaption(); });
    m_entryPage->lookAgain();
}

void Kentrikh::followMarker(int tab)
{
    if (tab == tab::printing) {
        m_sealing.stop();
        m_marker.release();
        m_book.setAccess(Connection::Access::ReadOnly);
        m_notices.forgetUndo();
        return;
    }
    if (m_locks != LockReach::Nobody)
        m_marker.claim();
    backUpIfHeld();
    refreshCaption(); // another may have been quicker
}

void Kentrikh::backUpIfHeld()
{
    if (m_marker.owns())
        m_backup.markerHeld();
}

void Kentrikh::fillPage(int tab, int earlierTab)
{
    switch (tab) {
    case tab::cashBook:
        m_entryPage->refillCodes();
        m_entryPage->lookAgain();
        m_entryPage->focusEntry();
        break;
    case tab::codes:
        m_codesPage->start();
        break;
    case tab::printing:
        m_printingPage->fill(
            listCodes(m_book.main(), earlierTab == tab::cashBook ? CodeSelection::Active : CodeSelection::All),
            listGroups(m_book.main()));
        break;
    default:
        break;
    }
}

} // namespace lorvan
