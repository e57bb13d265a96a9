#include "figures/card_window.h"

#include "controls/command_button.h"
#include "controls/key_binding.h"
#include "figures/chart_view.h"
#include "figures/figure_table.h"
#include "look/focus_rules.h"
#include "look/remembered_size.h"
#include "look/themed_label.h"
#include "movements/movement_store.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QSplitter>

namespace lorvan {
namespace {

constexpr QSize firstSize{820, 600};
constexpr int margin = 12;
constexpr int between = 8;
constexpr int textColumns = 2; // day and description

QString kindText(const CodeCard& card)
{
    if (!card.code)
        return QStringLiteral("Δεν υπάρχει στους κωδικούς");
    QString text = card.code->income ? QStringLiteral("Κωδικός εσόδων") : QStringLiteral("Κωδικός εξόδων");
    if (!card.code->active)
        text += QStringLiteral(", ανενεργός");
    return card.group.isEmpty() ? text : text + QStringLiteral(", ομάδα ") + card.group;
}

QString sumText(const QString& name, Currency sum, Currency average)
{
    return QStringLiteral("%1 %2, μέσος όρος μήνα %3").arg(name, amountText(sum), amountText(average));
}

QString lastText(const Movement& last)
{
    const Currency amount = last.income.isZero() ? last.expense : last.income;
    return QStringLiteral("Τελευταία κίνηση: %1 %2 %3")
        .arg(dateText(last.day), last.description.trimmed(), amountText(amount));
}

} // namespace

CardWindow::CardWindow(BookFiles files, KeyRing& keys, QWidget* parent)
    : QDialog(parent)
    , m_gate(this)
    , m_reader(std::move(files), keys,
          [this](const QString& reason) {
              m_chart->setEmptyText(reason);
              showCard(CodeCard());
          })
    , m_title(new ThemedLabel({}, ColourRole::PageText, 1.15, QFont::Bold))
    , m_sums(new ThemedLabel({}, ColourRole::PageText))
    , m_last(new ThemedLabel({}, ColourRole::PageMuted))
    , m_chart(new ChartView(this))
    , m_month(listHeading({}))
    , m_list(new FigureTable(this))
    , m_go(new CommandButton(QStringLiteral("calendar"), QStringLiteral("Στην ημέρα")))
    , m_close(new CommandButton(QStringLiteral("exit"), QStringLiteral("Κλείσιμο")))
{
    setObjectName(QStringLiteral("card"));
    setWindowTitle(QStringLiteral("Καρτέλα κωδικού"));
    layOut();
    connectControls();
    keepSize(this, firstSize);
}

CardWindow::~CardWindow() = default;

void CardWindow::layOut()
{
    m_title->setObjectName(QStringLiteral("title"));
    m_sums->setObjectName(QStringLiteral("sums"));
    m_last->setObjectName(QStringLiteral("last"));
    m_chart->setObjectName(QStringLiteral("chart"));
    m_chart->setEmptyText(QStringLiteral("Ο κωδικός δεν έχει κινήσεις."));
    m_list->setObjectName(QStringLiteral("movements"));
    m_list->setAccessibleName(QStringLiteral("Κινήσεις του μήνα"));
    m_list->setEmptyText(QStringLiteral("Δεν υπάρχουν κινήσεις σε αυτόν τον μήνα."));
    auto* const below = new QWidget(this);
    auto* const belowRows = new QVBoxLayout(below);
    belowRows->setContentsMargins({});
    belowRows->setSpacing(between / 2);
    belowRows->addWidget(m_month);
    belowRows->addWidget(m_list, 1);
    auto* const both = new QSplitter(Qt::Vertical, this);
    both->setChildrenCollapsible(false);
    both->addWidget(m_chart);
    both->addWidget(below);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(between / 2);
    for (ThemedLabel* const line : {m_title, m_sums, m_last}) {
        line->setWordWrap(true);
        rows->addWidget(line);
    }
    rows->addSpacing(between / 2);
    rows->addWidget(both, 1);
    rows->addLayout(commandRow());
    chainTabOrder({m_chart, m_list, m_go, m_close});
}

QLayout* CardWindow::commandRow()
{
    m_go->setObjectName(QStringLiteral("go"));
    m_go->setToolTip(QStringLiteral("Η ημέρα της επιλεγμένης κίνησης στο ταμείο (Enter στη λίστα)"));
    m_close->setObjectName(QStringLiteral("close"));
    m_close->setLook(CommandButton::Look::Quiet);
    auto* const row = new QHBoxLayout;
    row->setSpacing(between);
    row->addWidget(m_go);
    row->addStretch(1);
    row->addWidget(m_close);
    return row;
}

void CardWindow::connectControls()
{
    m_gate.connect(m_close, {}, [this] { hide(); });
    connect(m_chart, &ChartView::placeMarked, this, m_gate.quick(this, &CardWindow::readMonth));
    connect(m_chart, &ChartView::placeChosen, this, [this] { m_list->setFocus(Qt::OtherFocusReason); });
    connect(m_list, &FigureTable::rowChosen, this, m_gate.quick(this, &CardWindow::goTo));
    connect(m_list, &FigureTable::rowSelected, this, [this] { m_go->setEnabled(true); });
    m_gate.connect(m_go, {}, [this] { goTo(m_list->selected()); });
    bindKeys(KeyUse::Copy, m_list, Qt::WidgetShortcut, [this] { copy(false); });
    bindKeys(KeyUse::CopyToToday, m_list, Qt::WidgetShortcut, [this] { copy(true); });
    showKeysInTip(m_list, {KeyUse::Copy, KeyUse::CopyToToday});
    auto* const back = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Left), this);
    back->setAutoRepeat(false);
    connect(back, &QShortcut::activated, this, &QDialog::hide);
}

void CardWindow::present(qint32 code)
{
    const bool wasHidden = isHidden();
    show();
    raise();
    activateWindow();
    if (wasHidden)
        m_chart->setFocus(Qt::OtherFocusReason);
    read(code);
}

const Movement* CardWindow::selected() const
{
    const int row = m_list->selected();
    return row >= 0 && row < std::ssize(m_movements) ? &m_movements[static_cast<std::size_t>(row)] : nullptr;
}

void CardWindow::read(qint32 code)
{
    m_isReading = true;
    m_reader.begin([this, code](Connection& main) -> BookReader::Show {
        return [this, card = readCodeCard(main, code)] { showCard(card); };
    });
}

/// The last month is marked first.
void CardWindow::showCard(const CodeCard& card)
{
    m_isReading = false;
    m_card = card;
    tell(card);
    m_chart->setChart(cardChart(card), cardTitle(card));
    m_movements.clear();
    m_go->setEnabled(false);
    m_month->setText({});
    m_list->setRows({}, {}, {});
    if (!card.months.empty()) {
        m_chart->mark(static_cast<int>(card.months.size()) - 1);
        readMonth(m_chart->marked());
    }
}

void CardWindow::tell(const CodeCard& card)
{
    m_title->setText(cardTitle(card));
    QStringList sums{kindText(card)};
    if (!card.income.isZero())
        sums.append(sumText(QStringLiteral("Έσοδα"), card.income, card.averageIncome()));
    if (!card.expense.isZero())
        sums.append(sumText(QStringLiteral("Έξοδα"), card.expense, card.averageExpense()));
    m_sums->setText(sums.join(QStringLiteral(" – ")));
    m_last->setText(card.last ? lastText(*card.last) : QString());
}

void CardWindow::readMonth(int place)
{
    if (m_isReading) // another code, whose months replace these
        return;
    const CashFigure month = m_card.months.at(static_cast<std::size_t>(place));
    m_reader.begin([this, month, code = m_card.number](Connection& main) -> BookReader::Show {
        return [this, month, movements = movementsOfCode(main, code, month.from, month.to)] {
            showMonth(month, movements);
        };
    });
}

void CardWindow::showMonth(const CashFigure& month, const std::vector<Movement>& movements)
{
    m_movements = movements;
    m_month->setText(monthText(month.from));
    std::vector<QStringList> rows;
    for (const Movement& movement : movements)
        rows.push_back({dateText(movement.day), movement.description.trimmed(), amountText(movement.income),
            amountText(movement.expense)});
    m_list->setRows(
        {QStringLiteral("Ημέρα"), QStringLiteral("Περιγραφή"), QStringLiteral("Έσοδα"), QStringLiteral("Έξοδα")}, rows,
        {QString(), QStringLiteral("Σύνολα"), amountText(month.income), amountText(month.expense)}, textColumns);
    m_go->setEnabled(false);
}

void CardWindow::goTo(int row)
{
    if (row >= 0 && row < std::ssize(m_movements))
        Q_EMIT movementChosen(m_movements[static_cast<std::size_t>(row)]);
}

void CardWindow::copy(bool toToday)
{
    if (const Movement* const movement = selected())
        Q_EMIT copyAsked(movement->key, toToday);
}

void CardWindow::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    m_reader.cancel();
}

/// Escape closes the window.
void CardWindow::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event))
        focusNextChild();
    else
        QDialog::keyPressEvent(event);
}

} // namespace lorvan
