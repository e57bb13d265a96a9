#include "main/check_window.h"

#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/guarded_window.h"
#include "lists/plain_list.h"
#include "look/focus_rules.h"
#include "look/message_window.h"
#include "look/themed_label.h"
#include "look/window_placement.h"
#include "platform/date_text.h"
#include "proof/open_book_check.h"

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace lorvan {
namespace {

constexpr QSize firstSize{720, 460};
constexpr int margin = 16;
constexpr int betweenControls = 8;

const QString title = QStringLiteral("Έλεγχος");
const FindingsForm form{QStringLiteral("η «Διόρθωση»")};

std::vector<ListRow> rowsOf(const std::vector<CheckLine>& lines)
{
    std::vector<ListRow> rows;
    for (const CheckLine& line : lines)
        rows.push_back({line.text, line.day.isValid() ? line.day.toJulianDay() : 0});
    return rows;
}

std::vector<CheckLine> linesOf(const BookCheck& check)
{
    std::vector<CheckLine> lines = findingLines(check.findings, form);
    lines.push_back({});
    if (isReadable(check.findings))
        for (CheckLine& line : totalLines(check))
            lines.push_back(std::move(line));
    else
        lines.push_back(
            {QStringLiteral("Το περιεχόμενο δεν ελέγχθηκε. Επαναφέρετε το βιβλίο από ένα αντίγραφο ασφαλείας.")});
    return lines;
}

} // namespace

CheckWindow::CheckWindow(BookFiles book, KeyRing& keys, Authority authority, MayChange mayChange, QWidget* parent)
    : QDialog(parent)
    , m_book(std::move(book))
    , m_keys(keys)
    , m_authority(std::move(authority))
    , m_mayChange(std::move(mayChange))
    , m_gate(
          this, ActionGate::Opened::OnItsOwn, [] {}, [this] { tellUnconfirmed(this); })
    , m_summary(new ThemedLabel({}, ColourRole::Text))
    , m_list(new PlainList(PlainList::Face::Desktop, this, RecordList::Moves::Select))
    , m_code(new EntryField(TypingRule::Capitals))
    , m_askCode(new CommandButton({}, QStringLiteral("Έλεγχος κωδικού")))
    , m_answer(new ThemedLabel({}, ColourRole::Text))
    , m_check(new CommandButton(QStringLiteral("check"), QStringLiteral("Πλήρης έλεγχος")))
    , m_repair(new CommandButton(QStringLiteral("modify"), QStringLiteral("Διόρθωση")))
    , m_go(new CommandButton({}, QStringLiteral("Μετάβαση")))
    , m_close(new CommandButton({}, QStringLiteral("Κλείσιμο")))
{
    setObjectName(QStringLiteral("check"));
    setWindowTitle(title);
    setModal(true);
    layOut();
    m_gate.connect(m_check, {}, [this] { (void)runCheck(); });
    m_gate.connect(m_repair, {{}, [this] { return m_mayChange(this); }}, [this] { repair(); });
    m_gate.connect(m_askCode, {}, [this] { askCode(); });
    connect(m_code, &EntryField::left, this, [this] { // the window may be closing
        QMetaObject::invokeMethod(this, &CheckWindow::answerCode, Qt::QueuedConnection);
    });
    connect(m_go, &CommandButton::clicked, this, [this] { choose(m_list->currentIndex()); });
    connect(m_close, &CommandButton::clicked, this, &QDialog::reject);
    connect(m_list, &PlainList::opened, this, &CheckWindow::choose);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
        [this](const QModelIndex& line) { m_go->setEnabled(line.data(Qt::UserRole).toLongLong() != 0); });
    tell({}, {}, {});
}

void CheckWindow::layOut()
{
    m_summary->setObjectName(QStringLiteral("summary"));
    m_summary->setWordWrap(true);
    m_list->setObjectName(QStringLiteral("findings"));
    m_list->setAccessibleName(QStringLiteral("Τι βρέθηκε"));
    m_list->setScrollsSideways();
    auto* const hint =
        new ThemedLabel(QStringLiteral("Με διπλό κλικ ή Enter σε μια γραμμή με ημέρα το ταμείο πηγαίνει σε αυτήν."),
            ColourRole::Muted, 0.9);
    hint->setWordWrap(true);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(betweenControls);
    rows->addWidget(m_summary);
    rows->addWidget(m_list, 1);
    rows->addWidget(hint);
    rows->addLayout(codeRow());
    rows->addWidget(m_answer);
    rows->addLayout(commandRow());
    chainTabOrder({m_list, m_code, m_askCode, m_go, m_repair, m_check, m_close});
    sizeWithin(this, firstSize);
    m_list->setFocus(Qt::OtherFocusReason);
}

QLayout* CheckWindow::codeRow()
{
    auto* const caption = new ThemedLabel(QStringLiteral("Κωδικός ελέγχου από χαρτί"), ColourRole::Text);
    caption->setBuddy(m_code);
    m_code->setObjectName(QStringLiteral("code"));
    m_code->setAccessibleName(caption->text());
    m_code->setPlaceholderText(QStringLiteral("K7QF-2M9T-XD"));
    m_code->setFixedWidth(m_code->fontMetrics().horizontalAdvance(QStringLiteral("WWWW-WWWW-WWW")));
    m_askCode->setObjectName(QStringLiteral("askCode"));
    m_askCode->setToolTip(QStringLiteral("Λέει αν η ημέρα του κωδικού είναι όπως τυπώθηκε"));
    m_answer->setObjectName(QStringLiteral("answer"));
    m_answer->setWordWrap(true);
    m_answer->setMinimumHeight(m_answer->fontMetrics().lineSpacing()); // nothing moves when one line comes
    auto* const row = new QHBoxLayout;
    row->setSpacing(betweenControls);
    row->addWidget(caption);
    row->addWidget(m_code);
    row->addWidget(m_askCode);
    row->addStretch(1);
    return row;
}

QLayout* CheckWindow::commandRow()
{
    m_check->setObjectName(QStringLiteral("fullCheck"));
    m_check->setToolTip(QStringLiteral("Ελέγχει ολόκληρο το βιβλίο: αρχεία, κινήσεις, ημέρες, κωδικούς"));
    m_repair->setObjectName(QStringLiteral("repair"));
    m_repair->setToolTip(QStringLiteral("Γράφει ξανά τις ημέρες του ταμείου από τις κινήσεις"));
    m_go->setObjectName(QStringLiteral("go"));
    m_go->setToolTip(QStringLiteral("Δείχνει την ημέρα της γραμμής"));
    m_close->setObjectName(QStringLiteral("close"));
    m_close->setLook(CommandButton::Look::Quiet);
    QSizePolicy keepPlace = m_repair->sizePolicy();
    keepPlace.setRetainSizeWhenHidden(true);
    m_repair->setSizePolicy(keepPlace);
    auto* const row = new QHBoxLayout;
    row->setSpacing(betweenControls);
    row->addWidget(m_go);
    row->addWidget(m_repair);
    row->addStretch(1);
    row->addWidget(m_check);
    row->addWidget(m_close);
    return row;
}

void CheckWindow::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!std::exchange(m_wasOpened, true))
        QMetaObject::invokeMethod(this, &CheckWindow::opened, Qt::QueuedConnection);
}

void CheckWindow::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event) && m_list->hasFocus())
        choose(m_list->currentIndex());
    else
        QDialog::keyPressEvent(event);
}

void CheckWindow::showFound(const BalanceProof& proof)
{
    tell(QStringLiteral("Ο έλεγχος στο παρασκήνιο βρήκε όσα δεν συμφωνούν μεταξύ τους."), proof.findings,
        findingLines(proof.findings, form));
}

void CheckWindow::check()
{
    m_gate.run([this] { (void)runCheck(); });
}

void CheckWindow::checkForRepair()
{
    m_gate.run([this] {
        if (!runCheck())
            return;
        if (m_findings.anythingRepairable())
            m_repair->setFocus(Qt::OtherFocusReason);
        else
            m_summary->setText(QStringLiteral("Πλήρης έλεγχος του βιβλίου. Δεν υπάρχει τίποτα προς διόρθωση."));
    });
}

bool CheckWindow::runCheck()
{
    m_answer->clear(); // it was about the book as it was
    BookCheck found;
    const ProgressTexts texts{title, QStringLiteral("Ελέγχεται το βιβλίο…"), {}};
    const bool isWhole = m_run.run(this, texts,
        stoppable([this, &found](const CheckProgress& progress) { found = checkOpenBook(m_book, m_keys, progress); }));
    m_answered.clear(); // the same code may be asked for again
    if (!isWhole) {
        m_summary->setText(QStringLiteral("Ο έλεγχος ακυρώθηκε."));
        return false;
    }
    tell(QStringLiteral("Πλήρης έλεγχος του βιβλίου"), found.findings, linesOf(found));
    Q_EMIT checked();
    return true;
}

void CheckWindow::answerCode()
{
    if (isVisible() && !m_code->text().trimmed().isEmpty() && m_code->text() != m_answered)
        m_gate.run([this] { askCode(); });
}

void CheckWindow::askCode()
{
    m_answered = m_code->text();
    const CodeAnswer answer = answerFromOpenBook(m_book, m_keys, m_answered);
    m_answer->setRole(answer.verdict == CodeAnswer::Verdict::Altered || answer.verdict == CodeAnswer::Verdict::Accepted
                || answer.verdict == CodeAnswer::Verdict::JournalAltered
            ? ColourRole::Warning
            : ColourRole::Text);
    m_answer->setText(answerText(answer));
}

bool CheckWindow::confirmRepair()
{
    QString details = QStringLiteral("Τα σύνολα και τα υπόλοιπα των ημερών γράφονται ξανά από τις κινήσεις, που δεν"
                                     " αλλάζουν. Πριν γίνεται αντίγραφο ασφαλείας του βιβλίου.");
    if (const auto kept = m_findings.byKind().find(FindingKind::OpeningNotKept); kept != m_findings.byKind().end()) {
        const Finding& last = kept->second.first.back();
        details +=
            QStringLiteral("\n\nΤο ποσό %1, που από %2 δεν εξηγείται από τις κινήσεις, θα καταχωριστεί ως υπόλοιπο"
                           " ανοίγματος.")
                .arg(exactAmountText(last.expected.closingBalance), storedDayText(last.day));
    }
    return askOkCancel(this, QMessageBox::Question, QStringLiteral("Διόρθωση"),
        QStringLiteral("Να διορθωθούν οι ημέρες του ταμείου;"), details, DefaultAnswer::No);
}

/// Once it is made, it counts, even if the user has cancelled too late.
void CheckWindow::repair()
{
    if (!confirmRepair())
        return;
    std::optional<BookRepair> made;
    const ProgressTexts texts{QStringLiteral("Διόρθωση"), QStringLiteral("Γίνεται αντίγραφο και διόρθωση…"), {}};
    const bool isWhole = m_run.run(this, texts, stoppable([this, &made](const CheckProgress& progress) {
        made = repairOpenBook(m_book, m_keys, m_authority, progress);
    }));
    if (!made) {
        m_summary->setText(QStringLiteral("Η διόρθωση ακυρώθηκε και το βιβλίο έμεινε όπως ήταν."));
        return;
    }
    Q_EMIT repaired();
    if (isWhole)
        (void)runCheck();
    m_summary->setText(repairText(*made));
}

void CheckWindow::tell(const QString& summary, const BookFindings& findings, const std::vector<CheckLine>& lines)
{
    m_findings = findings;
    m_summary->setText(summary);
    m_list->setRows(rowsOf(lines));
    const auto first =
        std::find_if(lines.begin(), lines.end(), [](const CheckLine& line) { return line.day.isValid(); });
    const auto row = first == lines.end() ? 0 : static_cast<int>(first - lines.begin());
    m_go->setEnabled(first != lines.end());
    m_list->selectRow(m_list->model()->index(row, 0));
    m_repair->setVisible(m_authority.has(Right::ModifyCash) && findings.anythingRepairable());
}

void CheckWindow::choose(const QModelIndex& line)
{
    const qint64 day = line.data(Qt::UserRole).toLongLong();
    if (day == 0)
        return;
    m_chosen = QDate::fromJulianDay(day);
    accept();
}

} // namespace lorvan
