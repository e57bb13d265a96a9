#include "preview/ektypvsh.h"

#include "look/busy_pointer.h"
#include "look/focus_rules.h"
#include "look/message_window.h"
#include "look/opening_placement.h"
#include "look/remembered_size.h"
#include "look/window_placement.h"
#include "preview/carry_choice.h"
#include "preview/held_key.h"
#include "preview/omission_strip.h"
#include "preview/preview_area.h"
#include "preview/preview_tools.h"
#include "preview/printer_choice.h"
#include "preview/report_printing.h"
#include "preview/report_saver.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>

namespace lorvan {
namespace {

using namespace std::chrono_literals;

constexpr QSize firstSize{1200, 760}; // a landscape page at its own size
constexpr QPoint firstPlace{1, 0}; // ten twips
constexpr auto patienceForPrinters = 200ms;

} // namespace

Ektypvsh::Ektypvsh(Printers& printers, ReportSaver& saver)
    : m_printers(printers)
    , m_saver(saver)
    , m_actions(this)
    , m_gate(this)
    , m_tools(new PreviewTools(m_actions, this))
    , m_omissions(new OmissionStrip(this))
    , m_area(new PreviewArea(this))
{
    setObjectName(QStringLiteral("Ektypvsh"));
    layOut();
    addMenu();
    connectActions();
    connectView();
    connectSearch();
    guardPrintKey();
    connect(&m_printers, &Printers::answered, this, &Ektypvsh::showPrinterState);
    m_printers.ask();
}

Ektypvsh::~Ektypvsh()
{
    hide(); // while the size can still be remembered
}

void Ektypvsh::layOut()
{
    auto* const central = new QWidget(this);
    auto* const rows = new QVBoxLayout(central);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    rows->addWidget(m_tools);
    rows->addWidget(m_omissions);
    rows->addWidget(m_area, 1);
    setCentralWidget(central);
    keepSize(this, firstSize);
    move(firstPlace);
    OpeningPlacement::of(this).setCentred();

    QWidget* before = &m_area->view();
    for (QWidget* const next : m_tools->tabOrder()) {
        setTabOrder(before, next);
        before = next;
    }
}

void Ektypvsh::addMenu()
{
    QMenu* const menu = menuBar()->addMenu(QStringLiteral("Εκτυπώσεις"));
    menu->addActions({m_actions.choosePrinter, m_actions.printPage, m_actions.print, m_actions.back});
}

void Ektypvsh::connectActions()
{
    const auto connectTo = [this](QAction* action, const ActionGate::Step& step) {
        connect(action, &QAction::triggered, this, [this, step] {
            if (m_area->view().pages())
                m_gate.run(step);
        });
    };
    PageView& view = m_area->view();
    connectTo(m_actions.choosePrinter, [this] { choosePrinter(); });
    connectTo(m_actions.printPage, [this, &view] { print(view.currentPage()); });
    connectTo(m_actions.print, [this] { print(std::nullopt); });
    connectTo(m_actions.back, [this] { unload(); });
    connectTo(m_actions.firstPage, [&view] { view.goToPage(0); });
    connectTo(m_actions.previousPage, [&view] { view.goToPage(view.currentPage() - 1); });
    connectTo(m_actions.nextPage, [&view] { view.goToPage(view.currentPage() + 1); });
    connectTo(m_actions.lastPage, [&view] { view.goToLastPage(); });
    connectTo(m_actions.zoomOut, [&view] { view.zoomOut(); });
    connectTo(m_actions.zoomIn, [&view] { view.zoomIn(); });
    connectTo(m_actions.zoomNormal, [&view] { view.setZoom(1); });
    connectTo(m_actions.fitWidth, [&view] { view.setFit(PageView::Fit::Width); });
    connectTo(m_actions.fitPage, [&view] { view.setFit(PageView::Fit::Page); });
    connectTo(m_actions.savePdf, [this] { save(&ReportSaver::savePdf); });
    connectTo(m_actions.saveTable, [this] { save(&ReportSaver::saveTable); });
    connectTo(m_actions.carrySums, [this] { carrySums(); });
    connectTo(m_actions.goToSearch, [this] { m_tools->goToSearch(); });
    connectTo(m_actions.findNext, [this] { m_search.findNext(PageSearch::Direction::Forward); });
    connectTo(m_actions.findPrevious, [this] { m_search.findNext(PageSearch::Direction::Backward); });
}

void Ektypvsh::connectView()
{
    PageView& view = m_area->view();
    connect(&view, &PageView::pagesGrown, this, &Ektypvsh::showPages);
    connect(&view, &PageView::currentPageChanged, this, &Ektypvsh::showPages);
    connect(&view, &PageView::zoomChanged, m_tools, &PreviewTools::setZoom);
    connect(m_tools, &PreviewTools::pageEntered, &view, &PageView::goToPage);
    connect(m_tools, &PreviewTools::left, &view, [&view] { view.setFocus(Qt::OtherFocusReason); });
    connect(&view, &PageView::followed, this, &Ektypvsh::followed);
    connect(&view, &PageView::leadsNowhere, this,
        [this] { m_area->say(QStringLiteral("Η γραμμή αυτή δεν ανήκει σε κίνηση, ημέρα ή κωδικό.")); });
    m_tools->setZoom(view.zoom());
}

void Ektypvsh::guardPrintKey()
{
    m_actions.print->setAutoRepeat(false);
    m_actions.print->installEventFilter(this);
    m_area->view().viewport()->installEventFilter(this);
    connect(&HeldKey::instance(), &HeldKey::released, this, &Ektypvsh::noteKeyIsFree);
}

bool Ektypvsh::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_actions.print)
        return event->type() == QEvent::Shortcut && !m_takesPrintKey;
    if (event->type() == QEvent::Paint && m_area->view().pages() && !m_isPageShown) {
        m_isPageShown = true;
        noteKeyIsFree();
    }
    return false;
}

void Ektypvsh::noteKeyIsFree()
{
    m_takesPrintKey = m_takesPrintKey || (m_isPageShown && !HeldKey::instance().isHeld());
}

void Ektypvsh::connectSearch()
{
    PageView& view = m_area->view();
    connect(m_tools, &PreviewTools::soughtChanged, this, [this, &view](const QString& text) {
        const SearchText sought(text);
        m_tools->setSearchFailed(false);
        m_area->say({});
        view.setSought(sought);
        m_search.find(sought, view.currentPage());
    });
    connect(m_tools, &PreviewTools::findAsked, &m_search, &PageSearch::findNext);
    connect(&m_search, &PageSearch::found, this, [this, &view](int page, const QRectF& area, bool wentRound) {
        view.showFound(page, area);
        m_area->say(wentRound ? QStringLiteral("Η εύρεση συνέχισε από την άλλη άκρη της εκτύπωσης.") : QString());
    });
    connect(&m_search, &PageSearch::notFound, this, [this] {
        m_tools->setSearchFailed(true);
        m_area->say(QStringLiteral("Το κείμενο δεν υπάρχει στην εκτύπωση."));
    });
    connect(&m_search, &PageSearch::searching, this,
        [this](int page) { m_area->say(QStringLiteral("Εύρεση… σελίδα %1").arg(page + 1)); });
}

// Life

void Ektypvsh::begin(ReportDocument beginning, const QString& titleText)
{
    m_titleText = titleText;
    setPages(std::move(beginning), carriesSums());
    showPrinterState();
}

void Ektypvsh::open(ReportDocument document, const QString& titleText, const QString& fileName)
{
    m_isWhole = true;
    m_titleText = titleText;
    m_fileName = fileName;
    const bool carries = carriesSums();
    m_actions.carrySums->setChecked(carries);
    m_actions.carrySums->setEnabled(!document.carried().isEmpty());
    setPages(std::move(document), carries);
    showPrinterState();
}

void Ektypvsh::setPages(ReportDocument document, bool carries)
{
    auto pages = std::make_shared<ReportPages>(std::move(document), carries ? CarryLines::Yes : CarryLines::No);
    m_search.setPages(pages.get());
    m_area->view().setPages(std::move(pages));
    showPages();
}

/// The choice holds for all reports to come.
void Ektypvsh::carrySums()
{
    m_area->say({});
    const std::shared_ptr<const ReportPages> pages = m_area->view().pages();
    const bool carries = pages->carries() == CarryLines::No;
    m_actions.carrySums->setChecked(carries);
    rememberCarriesSums(carries);
    setPages(pages->document(), carries);
}

void Ektypvsh::tell(const std::vector<ReportOmission>& omissions)
{
    m_omissions->tell(omissions, &m_area->view());
}

bool Ektypvsh::isOpen() const
{
    return m_area->view().pages() != nullptr;
}

void Ektypvsh::unload()
{
    m_run.cancel();
    m_search.setPages(nullptr);
    m_area->view().setPages(nullptr);
    hide();
    Q_EMIT unloaded();
}

void Ektypvsh::closeEvent(QCloseEvent* event)
{
    unload();
    event->accept();
}

void Ektypvsh::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (event->spontaneous())
        return;
    m_area->view().setFocus(Qt::OtherFocusReason);
}

void Ektypvsh::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        activate();
}

void Ektypvsh::activate()
{
    centreOnWorkArea(this);
    m_printers.ask();
    if (!m_printers.isKnown() && !m_hasWaited) {
        QTimer::singleShot(patienceForPrinters, this, [this] {
            m_hasWaited = true;
            showPrinterState();
        });
    }
    showPrinterState();
}

void Ektypvsh::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    showPrinterState();
}

void Ektypvsh::showPrinterState()
{
    const QString printer = m_printers.currentName();
    for (QAction* const action : {m_actions.choosePrinter, m_actions.print})
        action->setEnabled(!printer.isEmpty());
    if (!printer.isEmpty())
        setWindowTitle(m_titleText + QStringLiteral("  στον  ") + printer);
    else if (m_printers.isKnown() || m_hasWaited)
        setWindowTitle(m_titleText + QStringLiteral(" Προσοχή δεν υπάρχει ορισμένος εκτυπωστής)"));
    else
        setWindowTitle(m_titleText);
}

void Ektypvsh::showPages()
{
    const PageView& view = m_area->view();
    const int current = view.currentPage();
    const bool isComplete = m_isWhole && view.pages() && view.pages()->isComplete();
    m_tools->setPages(current, view.pageCount(), isComplete);
    for (QAction* const action : {m_actions.firstPage, m_actions.previousPage})
        action->setEnabled(current > 0);
    for (QAction* const action : {m_actions.nextPage, m_actions.lastPage})
        action->setEnabled(current < view.pageCount() - 1);
}

// Actions

void Ektypvsh::choosePrinter()
{
    {
        const OrdinaryPointer pointer;
        PrinterChoice(m_printers, this).exec();
    }
    showPrinterState();
}

bool Ektypvsh::hasPrinter()
{
    if (!m_printers.currentName().isEmpty())
        return true;
    const QString text = m_printers.isKnown()
        ? QStringLiteral("Δεν υπάρχει εκτυπωτής. Εγκαταστήστε έναν στο σύστημα ή αποθηκεύστε την εκτύπωση ως PDF.")
        : QStringLiteral("Το σύστημα δεν έχει πει ακόμη ποιους εκτυπωτές έχει. Δοκιμάστε ξανά σε λίγο.");
    showMessage(this, QMessageBox::Information, QStringLiteral("Προσοχή"), text);
    return false;
}

void Ektypvsh::print(std::optional<int> page)
{
    m_area->say({}); // removes the result of the previous job
    if (!hasPrinter())
        return;
    const std::shared_ptr<const ReportPages> pages = m_area->view().pages(); // the frame may be closed meanwhile
    const PrintJob job{m_printers.currentName(), m_titleText, page};
    try {
        if (printReport(this, m_run, *pages, job))
            m_area->say(QStringLiteral("Στάλθηκε στον εκτυπωτή %1.").arg(job.printer));
    } catch (const std::exception& failure) {
        showMessage(this, QMessageBox::Warning, QStringLiteral("Προσοχή"),
            QStringLiteral("Η εκτύπωση στον %1 απέτυχε.\n\n%2").arg(job.printer, QString::fromUtf8(failure.what())));
    }
}

void Ektypvsh::save(
    std::optional<QString> (ReportSaver::*how)(QWidget*, BackgroundRun&, const ReportPages&, const QString&))
{
    m_area->say({});
    const std::shared_ptr<const ReportPages> pages = m_area->view().pages(); // the frame may be closed meanwhile
    if (const auto path = (m_saver.*how)(this, m_run, *pages, m_fileName))
        m_area->say(QStringLiteral("Αποθηκεύτηκε: %1").arg(*path));
}

} // namespace lorvan
