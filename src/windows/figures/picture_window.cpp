#include "figures/picture_window.h"

#include "controls/check_field.h"
#include "controls/command_button.h"
#include "controls/flow_layout.h"
#include "figures/chart_view.h"
#include "figures/figure_table.h"
#include "look/focus_rules.h"
#include "look/remembered_size.h"
#include "look/themed_label.h"
#include "platform/date_text.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QSplitter>

#include <algorithm>

namespace lorvan {
namespace {

constexpr QSize firstSize{900, 640};
constexpr int margin = 12;
constexpr int between = 8;
constexpr int besideChoice = 56; // frame and arrow
constexpr int shareOfChart = 3; // of the height, against
constexpr int shareOfTable = 2;

const QString nothingThere = QStringLiteral("Δεν υπάρχουν κινήσεις σε αυτό το διάστημα.");
const QString widestSpan = QStringLiteral("Σεπτέμβριος 8888");

} // namespace

PictureWindow::PictureWindow(BookFiles files, KeyRing& keys, Clock clock, Print print, QWidget* parent)
    : QDialog(parent)
    , m_clock(std::move(clock))
    , m_print(std::move(print))
    , m_gate(this)
    , m_reader(std::move(files), keys,
          [this](const QString& reason) {
              m_chart->setEmptyText(reason);
              showPicture(BookPicture());
          })
    , m_request{PictureSubject::Cash, spanWith(m_clock.today(), FigureStep::Month), true}
    , m_subject(newChoice("subject", QStringLiteral("Τι φαίνεται"),
          {QStringLiteral("Ταμείο"), QStringLiteral("Ομάδες"), QStringLiteral("Κωδικοί")}))
    , m_step(newChoice("step", QStringLiteral("Ανά"),
          {QStringLiteral("Ανά ημέρα"), QStringLiteral("Ανά εβδομάδα"), QStringLiteral("Ανά μήνα"),
              QStringLiteral("Ανά έτος")}))
    , m_earlier(newCommand("earlier", QStringLiteral("prev"), {}, QStringLiteral("Πιο πριν (PgUp)")))
    , m_span(new ThemedLabel({}, ColourRole::PageText, 1.0, QFont::DemiBold))
    , m_later(newCommand("later", QStringLiteral("next"), {}, QStringLiteral("Πιο μετά (PgDn)")))
    , m_compares(new CheckField(QStringLiteral("Δίπλα το προηγούμενο έτος"), this))
    , m_title(new ThemedLabel({}, ColourRole::PageMuted))
    , m_chart(new ChartView(this))
    , m_table(new FigureTable(this))
    , m_printing(newCommand("print", QStringLiteral("print"), QStringLiteral("Εκτύπωση"),
          QStringLiteral("Προεπισκόπηση της εικόνας με τον πίνακά της (Ctrl+P)")))
    , m_close(newCommand("close", QStringLiteral("exit"), QStringLiteral("Κλείσιμο"), {}))
{
    setObjectName(QStringLiteral("picture"));
    setWindowTitle(QStringLiteral("Εικόνα του βιβλίου"));
    layOut();
    connectControls();
    keepSize(this, firstSize);
}

PictureWindow::~PictureWindow() = default;

QComboBox* PictureWindow::newChoice(const char* name, const QString& caption, const QStringList& entries)
{
    auto* const choice = new QComboBox(this);
    choice->setObjectName(QLatin1String(name));
    choice->setAccessibleName(caption);
    choice->addItems(entries);
    int widest = 0;
    for (const QString& entry : entries)
        widest = std::max(widest, choice->fontMetrics().horizontalAdvance(entry));
    choice->setMinimumWidth(widest + besideChoice);
    return choice;
}

void PictureWindow::layOut()
{
    m_chart->setObjectName(QStringLiteral("chart"));
    m_chart->setEmptyText(nothingThere);
    m_table->setObjectName(QStringLiteral("figures"));
    m_table->setEmptyText(nothingThere);
    m_table->setAccessibleName(QStringLiteral("Τα ποσά της εικόνας"));
    m_title->setObjectName(QStringLiteral("title"));
    m_title->setWordWrap(true);
    auto* const both = new QSplitter(Qt::Vertical, this);
    both->setChildrenCollapsible(false);
    both->addWidget(m_chart);
    both->addWidget(m_table);
    both->setStretchFactor(0, shareOfChart);
    both->setStretchFactor(1, shareOfTable);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(between);
    rows->addLayout(choiceRow());
    rows->addWidget(m_title);
    rows->addWidget(both, 1);
    rows->addLayout(commandRow());
    chainTabOrder({m_subject, m_step, m_earlier, m_later, m_chart, m_table, m_compares, m_printing, m_close});
}

QLayout* PictureWindow::choiceRow()
{
    m_span->setObjectName(QStringLiteral("span"));
    m_span->setAlignment(Qt::AlignCenter);
    m_span->setMinimumWidth(m_span->fontMetrics().horizontalAdvance(widestSpan) + margin);
    auto* const spans = new QWidget(this);
    auto* const inSpans = new QHBoxLayout(spans);
    inSpans->setContentsMargins({});
    inSpans->setSpacing(between);
    for (QWidget* const part : std::initializer_list<QWidget*>{m_earlier, m_span, m_later})
        inSpans->addWidget(part);
    auto* const row = new FlowLayout(2 * between, between / 2);
    for (QWidget* const part : std::initializer_list<QWidget*>{m_subject, m_step, spans})
        row->addWidget(part);
    return row;
}

QLayout* PictureWindow::commandRow()
{
    m_compares->setObjectName(QStringLiteral("compares"));
    auto* const row = new QHBoxLayout;
    row->setSpacing(between);
    row->addWidget(m_compares); // here it costs the chart no height
    row->addStretch(1);
    row->addWidget(m_printing);
    row->addWidget(m_close);
    m_close->setLook(CommandButton::Look::Quiet);
    return row;
}

void PictureWindow::connectControls()
{
    connect(m_subject, &QComboBox::activated, this, [this](int index) {
        PictureRequest request = m_request;
        request.subject = static_cast<PictureSubject>(index);
        ask(request);
    });
    connect(m_step, &QComboBox::activated, this, [this](int index) { changeStep(static_cast<FigureStep>(index)); });
    connect(m_compares, &QCheckBox::clicked, this, [this](bool compares) {
        PictureRequest request = m_request;
        request.comparesYears = compares;
        ask(request);
    });
    m_gate.connect(m_earlier, {}, [this] { moveSpan(-1); });
    m_gate.connect(m_later, {}, [this] { moveSpan(1); });
    m_gate.connect(m_printing, {}, [this] { m_print(m_request, this); });
    m_gate.connect(m_close, {}, [this] { hide(); });
    connect(new QShortcut(QKeySequence::Print, this), &QShortcut::activated, m_printing, &CommandButton::click);
    auto* const back = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Left), this);
    back->setAutoRepeat(false);
    connect(back, &QShortcut::activated, this, m_gate.quick(this, &PictureWindow::goBack));
    connect(m_chart, &ChartView::placeMarked, m_table, &FigureTable::select);
    connect(m_table, &FigureTable::rowSelected, m_chart, &ChartView::mark);
    connect(m_chart, &ChartView::placeChosen, this, m_gate.quick(this, &PictureWindow::choose));
    connect(m_table, &FigureTable::rowChosen, this, m_gate.quick(this, &PictureWindow::choose));
}

void PictureWindow::present()
{
    const bool wasHidden = isHidden();
    show();
    raise();
    activateWindow();
    if (wasHidden)
        m_chart->setFocus(Qt::OtherFocusReason);
    read();
}

void PictureWindow::ask(const PictureRequest& request)
{
    if (request == m_request)
        return;
    m_request = request;
    read();
}

/// The day that was shown stays within what is shown: of a year still running, today.
void PictureWindow::changeStep(FigureStep step)
{
    const QDate today = m_clock.today();
    const bool hasToday = m_request.span.from <= today && today <= m_request.span.to;
    PictureRequest request = m_request;
    request.span = spanWith(hasToday ? today : m_request.span.to, step);
    ask(request);
}

void PictureWindow::moveSpan(int direction)
{
    PictureRequest request = m_request;
    request.span = spanBeside(m_request.span, direction);
    if (request.span.from.isValid() && request.span.to.year() <= 9999)
        ask(request);
}

void PictureWindow::read()
{
    const bool isCash = m_request.subject == PictureSubject::Cash;
    m_subject->setCurrentIndex(static_cast<int>(m_request.subject));
    m_step->setCurrentIndex(static_cast<int>(m_request.span.step));
    m_span->setText(spanText(m_request.span));
    m_compares->setChecked(m_request.comparesYears);
    m_compares->setEnabled(isCash && m_request.span.step != FigureStep::Year);
    m_chart->setEmptyText(nothingThere);
    m_reader.begin([this, request = m_request](Connection& main) -> BookReader::Show {
        return [this, request, picture = readBookPicture(main, request)] {
            m_shown = request;
            showPicture(picture);
        };
    });
}

void PictureWindow::showPicture(const BookPicture& picture)
{
    m_picture = picture;
    m_title->setText(picture.remark.isEmpty() ? picture.title : picture.title + QStringLiteral(" – ") + picture.remark);
    m_chart->setChart(picture.chart, picture.title);
    m_table->setRows(picture.columns, picture.rows, picture.sums);
}

/// A year leads to its months, a month or week to its days, a day to the cash page, a code to its card.
void PictureWindow::choose(int place)
{
    const auto row = static_cast<std::size_t>(place);
    if (row < m_picture.subjects.size()) {
        const RowSubject& subject = m_picture.subjects[row];
        if (subject.kind == RowSubject::Kind::Code)
            Q_EMIT codeChosen(static_cast<qint32>(subject.number));
        else
            Q_EMIT dayChosen(dateFromStored(subject.number));
        return;
    }
    if (row >= m_picture.days.size())
        return;
    m_origins.push_back(m_request);
    PictureRequest request = m_request;
    request.span =
        spanWith(m_picture.days[row], m_shown.span.step == FigureStep::Year ? FigureStep::Month : FigureStep::Day);
    ask(request);
}

void PictureWindow::goBack()
{
    if (m_origins.empty())
        return;
    const PictureRequest origin = m_origins.back();
    m_origins.pop_back();
    ask(origin);
}

void PictureWindow::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    m_reader.cancel();
}

/// Escape closes the window.
void PictureWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_PageUp)
        m_earlier->click();
    else if (event->key() == Qt::Key_PageDown)
        m_later->click();
    else if (isEnter(*event))
        focusNextChild();
    else
        QDialog::keyPressEvent(event);
}

} // namespace lorvan
