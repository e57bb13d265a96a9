#include "main/month_window.h"

#include "book/lock_trust.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/guarded_window.h"
#include "controls/path_label.h"
#include "look/focus_rules.h"
#include "look/message_window.h"
#include "look/themed_label.h"
#include "look/window_placement.h"
#include "monthly/month_choice.h"
#include "monthly/month_package.h"
#include "platform/date_text.h"
#include "platform/stop_check.h"
#include "preview/save_dialog.h"
#include "report_pdf.h"

#include <QBuffer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QStandardPaths>

#include <algorithm>

namespace lorvan {
namespace {

constexpr QSize firstSize{560, 230};
constexpr int margin = 16;
constexpr int betweenControls = 8;
const QString title = QStringLiteral("Πακέτο μήνα");

BoundDocuments bound(const std::vector<ReportDocument>& documents, const QString& name, const StepProgress& progress)
{
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    const auto firstPages = bindPdf(documents, name, pdf, [&progress](int done, int all) {
        if (all > 1)
            progress(done, all);
        return StopCheck::goesOn();
    });
    if (!firstPages)
        throw GivenUp();
    return {pdf.data(), *firstPages};
}

} // namespace

MonthWindow::MonthWindow(BookFiles book, KeyRing& keys, QString heading, Clock clock, QWidget* parent)
    : QDialog(parent)
    , m_book(std::move(book))
    , m_keys(keys)
    , m_main(openBookFile(m_book.mainDatabase(), keys))
    , m_heading(std::move(heading))
    , m_clock(std::move(clock))
    , m_gate(this)
    , m_month(new EntryField(TypingRule::Date))
    , m_state(new ThemedLabel({}, ColourRole::Muted))
    , m_made(new PathLabel(ColourRole::Text))
    , m_write(newCommand("write", QStringLiteral("table"), QStringLiteral("Δημιουργία…"),
          QStringLiteral("Ρωτά πού θα γραφτεί το αρχείο ZIP και το γράφει")))
    , m_close(newCommand("close", {}, QStringLiteral("Κλείσιμο"), QStringLiteral("Επιστροφή")))
{
    setObjectName(QStringLiteral("monthPackage"));
    setWindowTitle(title);
    setModal(true);
    layOut();
    const QDate today = m_clock.today();
    m_month->setText(typedMonth(lastFullMonth(m_main, today).value_or(today.addMonths(-1))));
    (void)readMonthField();
    connect(m_month, &EntryField::textChanged, this, [this] { (void)readMonthField(); });
    m_gate.connectWindow(m_write, {}, [this] { guarded(this, [this] { write(); }); });
    connect(m_close, &CommandButton::clicked, this, &QDialog::accept);
    m_month->setFocus(Qt::OtherFocusReason);
    m_month->selectAll();
}

void MonthWindow::layOut()
{
    auto* const caption = new ThemedLabel(QStringLiteral("Μήνας"), ColourRole::Text);
    caption->setBuddy(m_month);
    m_month->setObjectName(QStringLiteral("month"));
    m_month->setAccessibleName(caption->text());
    m_month->setToolTip(QStringLiteral("Μήνας και έτος, όπως 10-2026"));
    m_month->setFixedWidth(m_month->fontMetrics().horizontalAdvance(QStringLiteral("88-8888-8888")));
    auto* const about = new ThemedLabel(
        QStringLiteral("Ένα αρχείο ZIP για τον λογιστή: ταμείο κάθε ημέρας σε PDF, κινήσεις, κωδικοί, ομάδες, σύνολα"
                       " ανά κωδικό, σφραγίδες και μια σελίδα περιεχομένων. Δεν είναι κρυπτογραφημένο."),
        ColourRole::Text);
    about->setWordWrap(true);
    m_state->setObjectName(QStringLiteral("state"));
    m_state->setWordWrap(true);
    m_made->setObjectName(QStringLiteral("made"));
    m_write->setLook(CommandButton::Look::Solid);
    m_close->setLook(CommandButton::Look::Quiet);
    auto* const field = new QHBoxLayout;
    field->setSpacing(betweenControls);
    field->addWidget(caption);
    field->addWidget(m_month);
    field->addWidget(m_state, 1);
    auto* const commands = new QHBoxLayout;
    commands->setSpacing(betweenControls);
    commands->addStretch(1);
    commands->addWidget(m_write);
    commands->addWidget(m_close);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(betweenControls);
    rows->addWidget(about);
    rows->addLayout(field);
    rows->addWidget(m_made);
    rows->addStretch(1);
    rows->addLayout(commands);
    chainTabOrder({m_month, m_write, m_made, m_close});
    const int width = std::max(firstSize.width(), rows->totalMinimumSize().width());
    sizeWithin(this, firstSize.expandedTo({width, rows->totalHeightForWidth(width)})); // with the line that comes later
    m_made->hide();
}

std::optional<QDate> MonthWindow::readMonthField()
{
    const auto month = readTypedMonth(m_month->text(), m_clock.today());
    const std::int64_t movements = month ? movementsInMonth(m_main, *month) : 0;
    if (!month)
        tell(QStringLiteral("Δώστε μήνα και έτος, όπως 10-2026."));
    else if (movements == 0)
        tell(emptyMonthText(*month));
    else
        tell(QStringLiteral("%1, κινήσεις: %2").arg(monthText(*month)).arg(movements));
    return movements > 0 ? month : std::nullopt;
}

void MonthWindow::write()
{
    const auto month = readMonthField();
    if (!month) {
        showMessage(this, QMessageBox::Information, title, m_state->text());
        return goBackTo(*m_month);
    }
    const QString path = askPath(*month);
    if (path.isEmpty())
        return;
    const MonthRequest request{*month, m_heading, path, m_clock.now()};
    const bool isDone = runStoppable(
        m_run, this, {title, QStringLiteral("Γράφεται το πακέτο…"), {}}, [&](const StepProgress& progress) {
            writeMonthPackage(
                request, m_book, m_keys,
                [&progress](const std::vector<ReportDocument>& documents, const QString& name) {
                    return bound(documents, name, progress);
                },
                progress);
        });
    if (!isDone)
        return tell(QStringLiteral("Το πακέτο ακυρώθηκε και δεν γράφτηκε τίποτα."));
    tell(QStringLiteral("%1: το πακέτο γράφτηκε.").arg(monthText(*month)), path);
    tellUnconfirmed(this);
    m_close->setFocus(Qt::OtherFocusReason);
}

QString MonthWindow::askPath(QDate month)
{
    SaveDialog dialog(title, {{QStringLiteral("Αρχείο ZIP (*.zip)"), QStringLiteral("zip")}}, this);
    dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog.selectFile(packageName(month));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

void MonthWindow::tell(const QString& text, const QString& path)
{
    m_state->setText(text);
    m_made->setPath(path);
    m_made->setVisible(!path.isEmpty());
}

void MonthWindow::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event) && m_month->hasFocus())
        focusNextPrevChild(true);
    else
        QDialog::keyPressEvent(event);
}

} // namespace lorvan
