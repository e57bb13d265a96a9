#include "reports/group_card_report.h"

#include "document/report_cells.h"
#include "document/report_table.h"
#include "platform/amount_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"
#include "reports/group_movements.h"

#include <algorithm>

namespace lorvan {
namespace {

constexpr int quietLine = 9;
constexpr int lineAbove = 2;

struct CardEntry {
    QString description;
    Currency amount;
    qint64 key = 0; ///< Of the movement.
};

using CardEntries = std::array<std::vector<CardEntry>, cardColumns>;

bool holds(const CardColumn& column, qint32 group)
{
    return std::find(column.groups.begin(), column.groups.end(), group) != column.groups.end();
}

std::vector<qint32> groupsOf(const CardColumns& columns)
{
    std::vector<qint32> groups;
    for (const CardColumn& column : columns)
        groups.insert(groups.end(), column.groups.begin(), column.groups.end());
    return groups;
}

CardEntries entriesOf(Connection& main, const ReportInputs& inputs)
{
    CardEntries entries;
    const std::vector<qint32> groups = groupsOf(inputs.cardColumns);
    if (groups.empty())
        return entries;
    for (GroupMovement& movement : groupMovements(main, inputs.start, inputs.end, groups, Sameness::Amounts)) {
        const Currency amount = movement.amounts.income + movement.amounts.expense;
        for (std::size_t column = 0; column < cardColumns; ++column) {
            if (holds(inputs.cardColumns[column], movement.group))
                entries[column].push_back({movement.description, amount, movement.key});
        }
    }
    return entries;
}

std::size_t lineCount(const CardEntries& entries)
{
    std::size_t lines = 0;
    for (const auto& column : entries)
        lines = std::max(lines, column.size());
    return lines;
}

void start(ReportDocument& document)
{
    document.SetMargins({.left = 450, .top = 850, .right = 850, .bottom = 850});
    document.SetFont({.name = QStringLiteral("arial greek"), .size = 10});
    document.SetPaperSize(ReportPaper::A4);
    document.SetOrientation(ReportOrientation::Landscape);
    document.MouseScroll(true);
    document.MouseZoom(true);
    document.MousePage(true);
    document.StartDoc();
}

void addHeadings(ReportDocument& document, const ReportInputs& inputs)
{
    document.SetHeaderFont({.name = QStringLiteral("Arial greek"), .size = 13});
    document.SetHeader(QStringLiteral("Καρτέλα ομάδων από ") + shortDateText(inputs.start) + QStringLiteral("  έως  ")
        + shortDateText(inputs.end) + QStringLiteral("   ") + inputs.heading);
    document.SetFont({.bold = true});
    document.Paragraph(u"\r\r\r");
    document.SetTableBorder(lineAbove);
    const CardColumns& columns = inputs.cardColumns;
    document.AddTable(QStringLiteral("^3500|^1800|^3500|>^1800|^3500|>^1800"),
        {columns[0].title, u"Ποσό", columns[1].title, u"  Ποσό", columns[2].title, u"   Ποσό"},
        QStringLiteral("|||||"));
    document.SetTableBorder(quietLine);
    document.SetFont({.bold = false});
}

/// Adds line by line and sums up each column.
class CardLines {
public:
    CardLines(const CardEntries& entries, ReportDocument& document, ReportTable& table)
        : m_entries(entries)
        , m_document(document)
        , m_table(table)
    {
    }

    void add(std::size_t line)
    {
        QStringList cells;
        std::vector<Currency> amounts;
        for (std::size_t column = 0; column < cardColumns; ++column) {
            const bool isThere = line < m_entries[column].size();
            const CardEntry entry = isThere ? m_entries[column][line] : CardEntry();
            m_totals[column] += entry.amount;
            amounts.push_back(entry.amount);
            cells << entry.description << (isThere ? amountOrZeroText(entry.amount) : QString());
        }
        m_table.addRow(cells);
        m_document.CarryRow(amounts);
        nameMovements(line);
    }

    [[nodiscard]] QStringList totalCells() const
    {
        QStringList cells;
        for (const Currency total : m_totals)
            cells << QString() << amountOrZeroText(total);
        return cells;
    }

private:
    /// Of each column; where it has ended, nothing.
    void nameMovements(std::size_t line)
    {
        for (std::size_t column = 0; column < cardColumns; ++column) {
            const bool isThere = line < m_entries[column].size();
            m_document.RowStandsFor(
                isThere ? RowSubject{RowSubject::Kind::Movement, m_entries[column][line].key} : RowSubject(),
                static_cast<int>(2 * column));
        }
    }

    const CardEntries& m_entries;
    ReportDocument& m_document;
    ReportTable& m_table;
    std::array<Currency, cardColumns> m_totals;
};

void addLines(ReportDocument& document, const CardEntries& entries, const ReportProgress& progress)
{
    const QString format = QStringLiteral("<3500|>1800|<3500|>1800|<3500|>1800");
    ReportTable table(document, format, progress);
    CardLines lines(entries, document, table);
    document.BeginCarry({1, 3, 5});
    for (std::size_t line = 0; line < lineCount(entries); ++line)
        lines.add(line);
    document.EndCarry();
    document.SetFont({.bold = true});
    document.AddTable(format, QStringView(), lines.totalCells());
}

} // namespace

ReportDocument groupCardReport(Connection& main, const ReportInputs& inputs, const ReportProgress& progress)
{
    const Transaction reading(main, Transaction::View::Steady);
    const CardEntries entries = entriesOf(main, inputs);

    ReportDocument document;
    start(document);
    addHeadings(document, inputs);
    if (lineCount(entries) == 0)
        document.Paragraph(QStringLiteral("\r\r Δεν υπάρχουν αναφορές\r"));
    else
        addLines(document, entries, progress);
    document.EndDoc();
    return document;
}

} // namespace lorvan
