#include "search/search_window.h"

#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/key_binding.h"
#include "lists/table_list.h"
#include "look/focus_rules.h"
#include "look/remembered_size.h"
#include "look/themed_label.h"
#include "platform/date_text.h"
#include "search/recent_searches.h"
#include "search/search_model.h"
#include "search/search_readings.h"
#include "search/search_texts.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QShortcut>

namespace lorvan {
namespace {

constexpr QSize firstSize{860, 560};
constexpr int margin = 12;
constexpr int betweenRows = 6;
constexpr int betweenButtons = 8;
constexpr int besideAmount = 14; // pixels

const QString emptyText = QStringLiteral("Γράψτε τι ψάχνετε. Βρίσκεται σε όλες τις κινήσεις του βιβλίου.");
const QString nothingFound = QStringLiteral("Δεν βρέθηκε καμία κίνηση.");

} // namespace

SearchWindow::SearchWindow(BookFiles files, KeyRing& keys, Clock clock, Requests requests, QWidget* parent)
    : QDialog(parent)
    , m_clock(std::move(clock))
    , m_requests(std::move(requests))
    , m_gate(this)
    , m_field(new EntryField(TypingRule::Any, this))
    , m_recent(newCommand(
          "recent", {}, QStringLiteral("Τελευταίες"), QStringLiteral("Τι αναζητήθηκε τελευταία (Alt+κάτω βέλος)")))
    , m_readings(new SearchReadings(this))
    , m_model(new SearchModel(this))
    , m_list(new TableList(this))
    , m_state(new ThemedLabel({}, ColourRole::PageText, 1.0, QFont::DemiBold))
    , m_go(newCommand("go", {}, QStringLiteral("Στην ημέρα της"),
          QStringLiteral("Η κίνηση στην ημέρα της (Enter)· πίσω εδώ με Alt+αριστερό βέλος")))
    , m_again(newCommand("again", {}, QStringLiteral("Ανανέωση"), QStringLiteral("Και ό,τι άλλαξε στο μεταξύ (F5)")))
    , m_printing(newCommand("print", QStringLiteral("print"), QStringLiteral("Εκτύπωση"),
          QStringLiteral("Προεπισκόπηση όσων βρέθηκαν (Ctrl+P)")))
    , m_close(newCommand("close", QStringLiteral("exit"), QStringLiteral("Κλείσιμο"), {}))
    , m_reader(std::move(files), keys)
{
    setObjectName(QStringLiteral("search"));
    setWindowTitle(QStringLiteral("Αναζήτηση"));
    setUpList();
    layOut();
    connectCommands();
    connectReader();
    keepSize(this, firstSize);
    tellState();
}

SearchWindow::~SearchWindow() = default;

void SearchWindow::setUpList()
{
    m_list->setObjectName(QStringLiteral("found"));
    m_list->setAccessibleName(QStringLiteral("Κινήσεις που βρέθηκαν, οι νεότερες πρώτα"));
    m_list->setModel(m_model);
    QHeaderView& header = *m_list->header();
    header.setStretchLastSection(false);
    m_list->setColumnWidths({QStringLiteral("88-88-8888"), {}, {}, QStringLiteral("888.888,88"),
        QStringLiteral("888.888,88"), QStringLiteral("Επ.  ")});
    for (const int column : {SearchModel::Code, SearchModel::Description})
        header.setSectionResizeMode(column, QHeaderView::Stretch);
}

QLayout* SearchWindow::fieldRow()
{
    m_field->setObjectName(QStringLiteral("text"));
    m_field->setAccessibleName(QStringLiteral("Αναζήτηση σε όλες τις κινήσεις"));
    m_field->setPlaceholderText(QStringLiteral("Λέξεις, ποσά, κωδικοί, ημέρες"));
    m_field->setClearButtonEnabled(true);
    auto* const row = new QHBoxLayout;
    row->setSpacing(betweenButtons);
    row->addWidget(m_field, 1);
    row->addWidget(m_recent);
    return row;
}

QLayout* SearchWindow::commandRow()
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(betweenButtons);
    row->addWidget(m_go);
    row->addWidget(m_again);
    row->addStretch(1);
    row->addWidget(m_printing);
    row->addWidget(m_close);
    m_go->setLook(CommandButton::Look::Solid);
    m_close->setLook(CommandButton::Look::Quiet);
    return row;
}

void SearchWindow::layOut()
{
    m_state->setObjectName(QStringLiteral("state"));
    m_state->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin / 2);
    rows->setSpacing(betweenRows);
    rows->addLayout(fieldRow());
    rows->addWidget(m_readings);
    rows->addWidget(m_list, 1);
    rows->addWidget(m_state);
    rows->addLayout(commandRow());
    setTabOrders();
}

void SearchWindow::setTabOrders()
{
    chainTabOrder(QWidgetList{m_field, m_recent} + m_readings->tabOrder()
        + QWidgetList{m_list, m_go, m_again, m_printing, m_close});
}

void SearchWindow::connectCommands()
{
    m_field->installEventFilter(this);
    m_list->installEventFilter(this);
    connect(m_field, &QLineEdit::textChanged, this, &SearchWindow::search);
    connect(m_readings, &SearchReadings::chosen, this, &SearchWindow::choose);
    connect(m_list, &QAbstractItemView::doubleClicked, m_go, &CommandButton::click);
    connect(m_recent, &CommandButton::clicked, this, &SearchWindow::offerRecent);
    connect(m_go, &CommandButton::clicked, this, &SearchWindow::goToMovement); // the main window has the gate
    m_gate.connect(m_again, {}, [this] { searchAgain(); });
    m_gate.connect(m_printing, {}, [this] { print(); });
    m_gate.connect(m_close, {}, [this] { hide(); });
    const auto add = [this](const QKeySequence& keys, QAbstractButton* button) {
        connect(new QShortcut(keys, this), &QShortcut::activated, button, &QAbstractButton::click);
    };
    add(QKeySequence::Refresh, m_again);
    add(QKeySequence::Print, m_printing);
    add(QKeySequence(Qt::ALT | Qt::Key_Down), m_recent);
    bindKeys(KeyUse::Copy, m_list, Qt::WidgetShortcut, [this] { copyMovement(false); });
    bindKeys(KeyUse::Card, this, Qt::WindowShortcut, [this] { showCard(); });
    bindKeys(KeyUse::Picture, this, Qt::WindowShortcut, m_requests.picture);
    bindKeys(KeyUse::CopyToToday, m_list, Qt::WidgetShortcut, [this] { copyMovement(true); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, &SearchWindow::present);
}

void SearchWindow::connectReader()
{
    connect(&m_reader, &SearchReader::began, m_model, &SearchModel::setCodeNames);
    connect(&m_reader, &SearchReader::advanced, this,
        [this](qint64 done, qint64 whole) { m_pace.note(done, whole, std::chrono::steady_clock::now()); });
    connect(&m_reader, &SearchReader::found, this, [this](const auto& batch, const auto& counts) {
        m_readings->tell(counts);
        take(std::move(*batch));
    });
    connect(&m_reader, &SearchReader::ended, this, &SearchWindow::end);
    connect(&m_reader, &SearchReader::failed, this, [this](const QString& reason) {
        m_failure = reason;
        end();
    });
    connect(m_list->verticalScrollBar(), &QScrollBar::valueChanged, this, &SearchWindow::readOnAtEnd);
}

void SearchWindow::present()
{
    show();
    raise();
    activateWindow();
    m_field->setFocus(Qt::OtherFocusReason);
    m_field->selectAll();
}

// Searching

void SearchWindow::search()
{
    m_anew.reset();
    m_model->clear();
    begin();
}

/// The rows stay until the end: most of them will be the same.
void SearchWindow::searchAgain()
{
    m_anew.emplace();
    begin();
}

void SearchWindow::begin()
{
    m_failure.clear();
    m_query = readSearch(m_field->text(), m_clock.today());
    QHash<QString, SearchReading> stillChosen;
    for (SearchTerm& term : m_query.terms) {
        if (const auto chosen = m_chosen.constFind(term.text); chosen != m_chosen.cend()) {
            term.reading = *chosen;
            stillChosen.insert(term.text, *chosen);
        }
    }
    m_chosen = stillChosen;
    m_readings->show(m_query);
    setTabOrders();
    m_pace = {};
    if (m_query.isEmpty())
        m_reader.cancel();
    else
        m_reader.begin(m_query);
    tellState();
}

void SearchWindow::choose(std::size_t term, SearchReading reading)
{
    m_chosen.insert(m_query.terms.at(term).text, reading);
    search();
}

void SearchWindow::take(SearchBatch batch)
{
    if (m_anew) {
        m_anew->add(std::move(batch));
        return;
    }
    m_model->add(std::move(batch), lastRowInUse());
    if (lastRowInUse() == 0)
        m_list->setCurrentIndex(m_model->index(0, 0));
    widenAmounts();
    tellState();
}

/// Until the user goes into the list or scrolls it, that is the first.
int SearchWindow::lastRowInUse() const
{
    const int selected = focusWidget() == m_list ? m_list->currentIndex().row() : 0;
    if (m_list->verticalScrollBar()->value() == 0)
        return std::max(selected, 0);
    const QModelIndex lowest = m_list->indexAt(m_list->viewport()->rect().bottomLeft());
    return std::max(selected, lowest.isValid() ? lowest.row() : m_model->rowCount() - 1);
}

void SearchWindow::end()
{
    if (m_anew)
        showAnew();
    tellState();
}

/// The selected movement stays selected, at its place in the view.
void SearchWindow::showAnew()
{
    const QModelIndex current = m_list->currentIndex();
    const qint64 key = current.isValid() ? m_model->hit(current.row()).key : 0;
    const int scrolled = m_list->verticalScrollBar()->value();
    m_model->replace(std::move(*m_anew));
    m_anew.reset();
    m_list->doItemsLayout();
    const int row = m_model->rowOf(key).value_or(std::min(std::max(current.row(), 0), m_model->rowCount() - 1));
    m_list->setCurrentIndex(m_model->index(row, 0));
    m_list->verticalScrollBar()->setValue(scrolled);
    widenAmounts();
}

void SearchWindow::readOnAtEnd()
{
    const QScrollBar& bar = *m_list->verticalScrollBar();
    if (bar.value() + bar.pageStep() >= bar.maximum() && m_model->rowCount() < m_model->totals().count)
        m_model->showMore();
}

void SearchWindow::widenAmounts()
{
    for (const auto column : {SearchModel::Income, SearchModel::Expense}) {
        const int needed = m_list->fontMetrics().horizontalAdvance(m_model->widestAmount(column)) + besideAmount;
        if (needed > m_list->columnWidth(column))
            m_list->setColumnWidth(column, needed);
    }
}

void SearchWindow::tellState()
{
    QString text = m_query.isEmpty() ? QString() : searchTotalsText(m_model->totals());
    const bool knowsAll = !m_reader.isReading() && m_failure.isEmpty();
    if (!m_failure.isEmpty())
        text += QStringLiteral(" – δεν διαβάστηκαν όλες: ") + m_failure;
    else if (m_reader.isReading() && m_model->totals().count == 0)
        text = QStringLiteral("Ψάχνει… ") + m_pace.advance();
    else if (m_reader.isReading())
        text += QStringLiteral(" – ψάχνει ακόμη… ") + m_pace.advance();
    m_state->setText(text);
    m_state->setToolTip(text.toHtmlEscaped());
    m_state->setRole(m_failure.isEmpty() ? ColourRole::PageText : ColourRole::PageWarning);
    m_list->setEmptyText(m_query.isTooLong ? notUnderstoodText(m_query)
            : m_query.isEmpty()            ? emptyText
            : knowsAll                     ? nothingFound
                                           : QString());
    m_go->setEnabled(m_model->rowCount() > 0);
    m_printing->setEnabled(m_model->rowCount() > 0);
}

} // namespace lorvan
