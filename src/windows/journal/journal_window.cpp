#include "journal/journal_window.h"

#include "controls/command_button.h"
#include "journal/journal_details.h"
#include "journal/journal_filters.h"
#include "journal/journal_model.h"
#include "journal/journal_texts.h"
#include "lists/table_list.h"
#include "look/focus_rules.h"
#include "look/remembered_size.h"
#include "look/themed_label.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>

namespace lorvan {
namespace {

constexpr QSize firstSize{900, 600};
constexpr int margin = 12;
constexpr int betweenRows = 6;
constexpr int betweenButtons = 8;
constexpr int shareOfList = 3; // of the height, against
constexpr int shareOfDetails = 2;

const QString emptyText = QStringLiteral("Δεν υπάρχει καμία αλλαγή.");
const QString nothingFound = QStringLiteral("Καμία αλλαγή δεν ταιριάζει.");
const QString noJournal = QStringLiteral(
    "Το βιβλίο δεν έχει ιστορικό ακόμη. Αρχίζει μόλις ανοιχτεί από υπολογιστή που μπορεί να το αλλάξει.");

} // namespace

JournalWindow::JournalWindow(BookFiles files, KeyRing& keys, Clock clock, Print print, QWidget* parent)
    : QDialog(parent)
    , m_print(std::move(print))
    , m_gate(this)
    , m_reader(std::move(files), keys)
    , m_model(new JournalModel(m_reader, this))
    , m_filters(new JournalFilters(std::move(clock), this))
    , m_state(new ThemedLabel({}, ColourRole::PageMuted))
    , m_list(new TableList(this))
    , m_details(new JournalDetails(this))
    , m_history(newCommand("history", {}, QStringLiteral("Ιστορία της κίνησης"),
          QStringLiteral("Μόνο οι αλλαγές της κίνησης που είναι επιλεγμένη")))
    , m_all(newCommand("all", {}, QStringLiteral("Όλα"), QStringLiteral("Χωρίς φίλτρα")))
    , m_again(newCommand("again", {}, QStringLiteral("Ανανέωση"), QStringLiteral("Και ό,τι άλλαξε στο μεταξύ (F5)")))
    , m_printing(newCommand("print", QStringLiteral("print"), QStringLiteral("Εκτύπωση"),
          QStringLiteral("Προεπισκόπηση όσων ταιριάζουν στα φίλτρα (Ctrl+P)")))
    , m_close(newCommand("close", QStringLiteral("exit"), QStringLiteral("Κλείσιμο"), {}))
{
    setObjectName(QStringLiteral("journal"));
    setWindowTitle(QStringLiteral("Ιστορικό"));
    layOut(bothLists());
    connectCommands();
    connectReader();
    keepSize(this, firstSize);
}

JournalWindow::~JournalWindow() = default;

void JournalWindow::layOut(QWidget* lists)
{
    m_state->setObjectName(QStringLiteral("state"));
    m_state->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin / 2, margin, margin / 2);
    rows->setSpacing(betweenRows);
    rows->addWidget(m_filters);
    rows->addWidget(m_state);
    rows->addWidget(lists, 1);
    rows->addLayout(commandRow());
    chainTabOrder(
        m_filters->tabOrder() + QWidgetList{m_list, m_details->list(), m_history, m_all, m_again, m_printing, m_close});
}

QWidget* JournalWindow::bothLists()
{
    m_list->setObjectName(QStringLiteral("changes"));
    m_list->setAccessibleName(QStringLiteral("Αλλαγές, οι νεότερες πρώτα"));
    m_list->setModel(m_model);
    m_list->setColumnWidths({QStringLiteral("88-88-8888 88:88:88"), QStringLiteral("ΔΙΑΧΕΙΡΙΣΤΗΣ"),
        QStringLiteral("Αποδοχή αλλαγής ημέρας ταμείου")});
    auto* const both = new QSplitter(Qt::Vertical, this);
    both->setChildrenCollapsible(false);
    both->addWidget(m_list);
    both->addWidget(m_details);
    both->setStretchFactor(0, shareOfList);
    both->setStretchFactor(1, shareOfDetails);
    return both;
}

QLayout* JournalWindow::commandRow()
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(betweenButtons);
    for (CommandButton* const button : {m_history, m_all, m_again})
        row->addWidget(button);
    row->addStretch(1);
    row->addWidget(m_printing);
    row->addWidget(m_close);
    m_close->setLook(CommandButton::Look::Quiet);
    return row;
}

void JournalWindow::connectCommands()
{
    const ActionGate::Conditions settled{[this] { return m_filters->settle(); }};
    m_gate.connect(m_history, settled, [this] { showHistory(); });
    m_gate.connect(m_all, {}, [this] { m_filters->clear(); });
    m_gate.connect(m_again, settled, [this] { readAgain(); });
    m_gate.connect(m_printing, settled, [this] { m_print(m_filters->filter(), this); });
    m_gate.connect(m_close, {}, [this] { hide(); });
    connect(new QShortcut(QKeySequence::Refresh, this), &QShortcut::activated, m_again, &CommandButton::click);
    connect(new QShortcut(QKeySequence::Print, this), &QShortcut::activated, m_printing, &CommandButton::click);
    connect(m_filters, &JournalFilters::changed, this, &JournalWindow::readAgain);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, &JournalWindow::showRow);
}

void JournalWindow::connectReader()
{
    connect(&m_reader, &JournalReader::found, this, [this] {
        if (!m_list->currentIndex().isValid())
            m_list->setCurrentIndex(m_model->index(0, 0));
        tellState();
    });
    connect(m_list->verticalScrollBar(), &QScrollBar::valueChanged, this, &JournalWindow::readOnAtEnd);
    connect(&m_reader, &JournalReader::hasNoJournal, this, [this] { m_hasJournal = false; });
    connect(&m_reader, &JournalReader::pageRead, this, &JournalWindow::tellState);
    connect(&m_reader, &JournalReader::failed, this, [this](const QString& reason) {
        m_failure = reason;
        tellState();
    });
}

void JournalWindow::present(const QString& subject)
{
    const bool wasHidden = isHidden();
    show();
    raise();
    activateWindow();
    if (wasHidden)
        m_list->setFocus(Qt::OtherFocusReason);
    if (subject.isEmpty())
        readAgain();
    else
        m_filters->showSubject(subject);
}

void JournalWindow::readAgain()
{
    m_failure.clear();
    m_hasJournal = true;
    m_model->show(m_filters->filter());
    showRow();
    tellState();
}

/// The view itself would ask for more each time that rows are added.
void JournalWindow::readOnAtEnd()
{
    const QScrollBar& bar = *m_list->verticalScrollBar();
    if (bar.value() + bar.pageStep() < bar.maximum() || !m_reader.canReadOn())
        return;
    m_reader.readOn();
    tellState();
}

const JournalRow* JournalWindow::selectedRow() const
{
    const QModelIndex index = m_list->currentIndex();
    return index.isValid() ? &m_model->row(index.row()) : nullptr;
}

void JournalWindow::showRow()
{
    const JournalRow* const row = selectedRow();
    if (row)
        m_details->show(*row);
    else
        m_details->clear();
    m_history->setEnabled(row && journalKind(row->subject) == JournalKind::Movement);
}

void JournalWindow::showHistory()
{
    if (const JournalRow* const row = selectedRow())
        m_filters->showSubject(QString(row->subject)); // the row goes while its history is read
}

void JournalWindow::tellState()
{
    const JournalFilter& filter = m_filters->filter();
    const int count = m_model->rowCount();
    QString text = journalFilterText(filter);
    if (!m_failure.isEmpty())
        text += QStringLiteral(" – δεν διαβάστηκαν άλλες: ") + m_failure;
    else if (m_reader.isReading())
        text += QStringLiteral(" – διαβάζονται…");
    else if (m_reader.canReadOn())
        text += QStringLiteral(" – οι %1 νεότερες, οι άλλες όσο κατεβαίνετε").arg(count);
    else
        text += QStringLiteral(" – %1").arg(count);
    m_state->setText(text);
    m_state->setToolTip(text.toHtmlEscaped());
    m_state->setRole(m_failure.isEmpty() ? ColourRole::PageMuted : ColourRole::PageWarning);
    const bool isKnown = !m_reader.isReading() && m_failure.isEmpty();
    m_list->setEmptyText(!isKnown ? QString()
            : !m_hasJournal       ? noJournal
            : filter.isEmpty()    ? emptyText
                                  : nothingFound);
}

void JournalWindow::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    m_reader.cancel();
}

/// Escape closes the window.
void JournalWindow::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event))
        focusNextChild();
    else
        QDialog::keyPressEvent(event);
}

} // namespace lorvan
