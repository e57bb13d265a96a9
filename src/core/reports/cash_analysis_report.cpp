#include "reports/cash_analysis_report.h"

#include "document/report_cells.h"
#include "movements/cash_day.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"
#include "reports/code_sums.h"

#include <optional>

namespace lorvan {
namespace {

constexpr ReportColour titlesShade = reportColour(200, 210, 190);
constexpr ReportColour rowShade = reportColour(222, 225, 225);
constexpr int expenseColumn = 2;
constexpr int balanceColumn = 3;

std::optional<CashDayFigures> figuresOf(Connection& main, QDate day)
{
    auto row = main.prepare("SELECT esoda, ejoda, ypoloipo FROM tameio WHERE hmeromhnia=? ORDER BY aa LIMIT 1");
    row.bind(day);
    if (!row.step())
        return std::nullopt;
    return CashDayFigures{row.currency(0), row.currency(1), row.currency(2)};
}

std::optional<qint32> codeIn(const CodeBox& box)
{
    bool isCode = false;
    const qint32 code = box.tag.trimmed().toInt(&isCode);
    return isCode && !box.text.isEmpty() ? std::optional(code) : std::nullopt;
}

void addNoCashDay(ReportDocument& document, const ReportInputs& inputs)
{
    document.Paragraph(QStringLiteral("Δεν υπάρχει ταμείο για την ημερομηνία ") + inputs.startText
        + QStringLiteral("   ") + inputs.heading);
}

/// The day's row, the groups' rows and what is left.
class AnalysisTable {
public:
    AnalysisTable(ReportDocument& document, QDate day)
        : m_document(document)
        , m_day(day)
    {
    }

    void begin(const CashDayFigures& day)
    {
        m_document.AddTable(m_format, QStringLiteral("Περιγραφή|Εσοδα    |Εξοδα    |Υπόλοιπο    "),
            {u"Συνολικό ταμείο", amountText(day.income), amountText(day.expense), amountText(day.closingBalance)},
            titlesShade);
        leadToDay();
    }

    void addRow(const QString& title, Currency balance)
    {
        m_document.AddTableRow(m_format, QStringView(), {title, u"", u"", amountText(balance)}, noShade, rowShade);
    }

    /// The last row stands for the codes it adds up, each in the column its box is named after; without one, for the
    /// day.
    void leadTo(const std::vector<qint32>& codes)
    {
        if (codes.empty())
            return leadToDay();
        const RowSubject first{RowSubject::Kind::Code, codes.front()};
        m_document.RowStandsFor(first);
        m_document.RowStandsFor({RowSubject::Kind::Code, codes.back()}, expenseColumn);
        m_document.RowStandsFor(first, balanceColumn);
    }
    void leadToDay() { m_document.RowStandsFor({RowSubject::Kind::Day, storedDate(m_day)}); }

private:
    ReportDocument& m_document;
    const QDate m_day;
    const QString m_format = QStringLiteral("3500|>1900|>1900|>1900");
};

void addAnalysis(
    ReportDocument& document, const ReportInputs& inputs, const CashDayFigures& day, const AnalysisBalances& balances)
{
    document.SetHeader(
        QStringLiteral("|Ανάλυση ταμείου της ") + inputs.startText + QStringLiteral("   ") + inputs.heading);
    document.Paragraph(lineBreak);
    AnalysisTable table(document, inputs.start);
    table.begin(day);
    Currency cash = day.closingBalance;
    for (std::size_t i = 0; i < balances.size(); ++i) {
        table.addRow(inputs.analysisGroups[i].title, balances[i]);
        table.leadTo(codesOf(inputs.analysisGroups[i]));
        cash -= balances[i];
    }
    document.SetFont({.bold = true});
    table.addRow(QStringLiteral("Μετρητά στο ταμείο"), cash);
    table.leadToDay();
}

} // namespace

bool hasCashAnalysis(Connection& main, QDate day)
{
    return figuresOf(main, day).has_value();
}

std::vector<qint32> codesOf(const AnalysisGroup& group)
{
    std::vector<qint32> codes;
    for (const CodeBox& box : group.boxes) {
        if (const auto code = codeIn(box))
            codes.push_back(*code);
    }
    return codes;
}

AnalysisBalances analysisBalances(Connection& main, const ReportInputs& inputs)
{
    std::vector<qint32> codes;
    for (const AnalysisGroup& group : inputs.analysisGroups) {
        const std::vector<qint32> more = codesOf(group);
        codes.insert(codes.end(), more.begin(), more.end());
    }
    AnalysisBalances balances;
    if (codes.empty())
        return balances;
    auto sums = sumsByCode(main, QDate(), inputs.start, codes);
    for (std::size_t i = 0; i < balances.size(); ++i) {
        for (const qint32 code : codesOf(inputs.analysisGroups[i]))
            balances[i] += sums[code].income - sums[code].expense;
    }
    return balances;
}

ReportDocument cashAnalysisReport(Connection& main, const ReportInputs& inputs, const ReportProgress&)
{
    const Transaction reading(main, Transaction::View::Steady);
    const auto day = figuresOf(main, inputs.start);
    ReportDocument document;
    document.StandardPageSetup();
    document.StartDoc();
    document.SetFont({.size = 10});
    if (day)
        addAnalysis(document, inputs, *day, analysisBalances(main, inputs));
    else
        addNoCashDay(document, inputs);
    document.EndDoc();
    return document;
}

} // namespace lorvan
