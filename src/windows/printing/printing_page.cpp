#include "printing/printing_page.h"

#include "controls/choice_list.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/leave_checks.h"
#include "controls/main_controls.h"
#include "lists/tick_list.h"
#include "look/focus_rules.h"
#include "look/message_window.h"
#include "look/themed_label.h"
#include "platform/date_text.h"
#include "printing/period_button.h"
#include "printing/report_list.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int marginSide = 12;
constexpr int marginTop = 2; // below the line of notices
constexpr int marginEnd = 10;
constexpr int betweenColumns = 12;
constexpr int dateWidth = 108;
constexpr qreal hintFactor = 0.9;

std::vector<qint32> chosenNumbers(const ChoiceList& list)
{
    const std::vector<qint64> chosen = list.chosenData();
    return {chosen.begin(), chosen.end()};
}

ChoiceTexts codeTexts()
{
    return {QStringLiteral("Κωδικοί κινήσεων"), QStringLiteral("Χωρίς επιλογή τυπώνονται όλα."),
        QStringLiteral("%1 επιλεγμένος από %2"), QStringLiteral("%1 επιλεγμένοι από %2"), QStringLiteral("Όλοι"),
        QStringLiteral("Κανένας"), QStringLiteral("Το βιβλίο δεν έχει ακόμη κωδικούς.")};
}

ChoiceTexts groupTexts()
{
    return {QStringLiteral("Ομάδες κωδικών"), QStringLiteral("Χωρίς επιλογή τυπώνονται όλα."),
        QStringLiteral("%1 επιλεγμένη από %2"), QStringLiteral("%1 επιλεγμένες από %2"), QStringLiteral("Όλες"),
        QStringLiteral("Καμία"), QStringLiteral("Το βιβλίο δεν έχει ακόμη ομάδες.")};
}

} // namespace

PrintingPage::PrintingPage(Clock clock, QWidget* parent)
    : QWidget(parent)
    , m_clock(std::move(clock))
    , m_checks(this)
    , m_fields(QStringLiteral("Text1"))
    , m_reports(new ReportList(this))
    , m_codes(new ChoiceList(PlainList::Face::FixedWidth, codeTexts(), this))
    , m_groups(new ChoiceList(PlainList::Face::Desktop, groupTexts(), this))
    , m_periods(new PeriodButton(m_clock, this))
    , m_periodHint(new ThemedLabel({}, ColourRole::PageMuted, hintFactor))
    , m_print(new CommandButton(QStringLiteral("print"), QStringLiteral("Εκτύπωση"), this))
{
    setObjectName(QStringLiteral("Panel1(3)"));
    m_reports->setObjectName(QStringLiteral("List2(0)"));
    m_codes->setObjectNames(QStringLiteral("List2(1)"), 1);
    m_groups->setObjectNames(QStringLiteral("List2(2)"), 2);
    m_print->setObjectName(QStringLiteral("Command1(1)"));
    m_periodHint->setObjectName(QStringLiteral("periodHint"));
    m_periodHint->setWordWrap(true);

    auto* const columns = new QHBoxLayout(this);
    columns->setContentsMargins(marginSide, marginTop, marginSide, marginEnd);
    columns->setSpacing(betweenColumns);
    columns->addLayout(reportColumn(), 11);
    columns->addLayout(choiceColumn(), 9);
    setTabOrders();
    connect(m_reports, &PlainList::opened, m_print, &CommandButton::click);
    connect(m_reports->selectionModel(), &QItemSelectionModel::selectionChanged, this, &PrintingPage::showPeriodUse);
    connect(m_periods, &PeriodButton::chosen, this, [this](const NamedPeriod& period) {
        m_fields[field::periodStart]->setText(dateText(period.start));
        m_fields[field::periodEnd]->setText(dateText(period.end));
    });
}

QLayout* PrintingPage::reportColumn()
{
    auto* const column = new QVBoxLayout;
    column->setSpacing(4);
    m_reports->setAccessibleName(QStringLiteral("Διαθέσιμες εκτυπώσεις"));
    auto* const heading = listHeading(m_reports->accessibleName());
    heading->setObjectName(QStringLiteral("Label1"));
    heading->setMinimumHeight(ChoiceList::headHeight);
    column->addWidget(heading);
    column->addWidget(m_reports, 1);
    column->addSpacing(6);
    column->addWidget(periodFrame());
    return column;
}

EntryField* PrintingPage::addDate(int index, const QString& name)
{
    auto* const date = m_fields.add(index, new EntryField(TypingRule::Date, this));
    date->setLeastWidth(dateWidth);
    date->setAccessibleName(name);
    connect(date, &EntryField::left, this, [this, date] { m_checks.left(date); });
    m_checks.add(date, [this, date] { return checkDate(*date, m_clock.today()).has_value(); });
    return date;
}

QWidget* PrintingPage::periodFrame()
{
    auto* const frame = new QGroupBox(QStringLiteral("Ημερομηνία εκτύπωσης"), this);
    auto* const rows = new QVBoxLayout(frame);
    rows->setSpacing(2);
    rows->setContentsMargins(8, rows->contentsMargins().top(), 8, 4);
    auto* const row = new QHBoxLayout;
    row->setSpacing(8);
    rows->addLayout(row);
    rows->addWidget(m_periodHint);
    row->addWidget(addDate(field::periodStart, QStringLiteral("Από")));
    row->addWidget(new ThemedLabel(QStringLiteral("–"), ColourRole::PageText));
    row->addWidget(addDate(field::periodEnd, QStringLiteral("Έως")));
    row->addWidget(m_periods);
    row->addStretch(1);
    m_print->setLook(CommandButton::Look::Solid);
    m_print->setToolTip(QStringLiteral("Προεπισκόπηση της επιλεγμένης εκτύπωσης"));
    m_print->captionLabel()->setObjectName(QStringLiteral("Label2(%1)").arg(caption::printReport));
    row->addWidget(m_print);
    return frame;
}

/// A date that the chosen report ignores can still be edited, and is checked like the other.
void PrintingPage::showPeriodUse()
{
    const ReportEntry* const entry = chosenEntry();
    const PeriodUse use = entry ? periodUse(entry->report) : PeriodUse();
    const auto show = [this](int index, bool counts) {
        m_fields[index]->setQuiet(!counts);
        m_fields[index]->setAccessibleDescription(counts ? QString() : QStringLiteral("Δεν μετρά στην εκτύπωση αυτή"));
    };
    show(field::periodStart, use.start);
    show(field::periodEnd, use.end);
    m_periodHint->setText(periodHint(use));
}

QLayout* PrintingPage::choiceColumn()
{
    auto* const column = new QVBoxLayout;
    column->setSpacing(4);
    column->addWidget(m_codes, 7);
    column->addWidget(m_groups, 5);
    return column;
}

void PrintingPage::setTabOrders()
{
    chainTabOrder(QWidgetList{m_reports, m_fields[field::periodStart], m_fields[field::periodEnd], m_print, m_periods}
        + m_codes->controls() + m_groups->controls());
}

void PrintingPage::fill(const std::vector<MovementCode>& codes, const std::vector<CodeGroup>& groups)
{
    const QDate today = m_clock.today();
    m_fields[field::periodStart]->setText(dateText(QDate(today.year(), today.month(), 1)));
    m_fields[field::periodEnd]->setText(dateText(today));
    std::vector<ListRow> codeRows;
    for (const MovementCode& code : codes)
        codeRows.push_back({code.listLine, code.code});
    std::vector<ListRow> groupRows;
    for (const CodeGroup& group : groups)
        groupRows.push_back({group.name, group.number});
    m_codes->setRows(codeRows);
    m_groups->setRows(groupRows);
    m_offeredGroups = groups;
    m_reports->setFocus(Qt::OtherFocusReason);
}

// The request

std::optional<ReportRequest> PrintingPage::request()
{
    m_checks.drop(); // the period is checked here, with a message of its own
    const ReportEntry* const entry = chosenEntry();
    if (!entry) {
        showMessage(window(), QMessageBox::Information, QStringLiteral("Προσοχή"),
            QStringLiteral("Δεν έχετε επιλέξει την εκτύπωση"));
        return std::nullopt;
    }
    if (!checkPeriod())
        return std::nullopt;
    const bool offersCodes = m_codes->list()->model()->rowCount() > 0;
    return ReportRequest{entry->report, entry->title(), inputs(), offersCodes, m_offeredGroups};
}

const ReportEntry* PrintingPage::chosenEntry() const
{
    const QModelIndexList chosen = m_reports->selectionModel()->selectedIndexes();
    const std::vector<ReportEntry>& entries = reportCatalogue();
    return chosen.isEmpty() ? nullptr : &entries.at(static_cast<std::size_t>(chosen.first().row()));
}

bool PrintingPage::checkPeriod()
{
    for (const int index : {field::periodStart, field::periodEnd}) {
        EntryField* const date = m_fields[index];
        if (const auto day = readDate(date->text(), m_clock.today())) {
            date->setText(dateText(*day));
            continue;
        }
        showMessage(window(), QMessageBox::Information, QStringLiteral("Προσοχ'η στην ημερομηνία"),
            QStringLiteral("Η ημερομηνία είναι λάθος"));
        goBackTo(*date);
        return false;
    }
    return true;
}

ReportInputs PrintingPage::inputs() const
{
    ReportInputs inputs;
    inputs.startText = m_fields[field::periodStart]->text();
    inputs.endText = m_fields[field::periodEnd]->text();
    inputs.start = *readDate(inputs.startText, m_clock.today());
    inputs.end = *readDate(inputs.endText, m_clock.today());
    inputs.codes = chosenNumbers(*m_codes);
    inputs.groups = chosenNumbers(*m_groups);
    return inputs;
}

} // namespace lorvan
