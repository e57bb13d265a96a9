#include "reports/movement_sections.h"

#include <utility>

namespace lorvan {
namespace {

constexpr int lineBelow = 1;
constexpr int lineAbove = 2;
constexpr int bothLines = 3;

} // namespace

void addMovementHeadings(
    ReportDocument& document, ReportTable& table, const QString& title, const QString& titles, const QString& emptyRow)
{
    document.SetFont({.bold = true});
    document.Paragraph(u"\r\r\r");
    document.SetHeader(title);
    table.begin(lineAbove, titles, emptyRow);
    document.SetFont({.bold = false});
}

void addNoMovements(ReportDocument& document)
{
    document.SetFont({.size = 13});
    document.Paragraph(QStringLiteral("\r\rΔεν βρέθηκαν εγγραφές"));
}

MovementSections::MovementSections(
    ReportDocument& document, ReportTable& table, SumCells sumCells, std::vector<Column> columns)
    : m_document(document)
    , m_table(table)
    , m_sumCells(std::move(sumCells))
    , m_columns(std::move(columns))
{
    for (const Column& column : m_columns)
        m_columnNumbers.push_back(column.number);
}

bool MovementSections::enter(qint32 number, const QString& name)
{
    if (m_section && *m_section != number)
        addSubtotal(lineBelow);
    if (m_section != number)
        m_document.BeginCarry(m_columnNumbers, name.trimmed());
    return number != std::exchange(m_section, number).value_or(0);
}

void MovementSections::addRow(const CellTexts& cells, const MovementSums& amounts)
{
    m_table.addRow(cells);
    m_amounts.clear();
    for (const Column& column : m_columns)
        m_amounts.push_back(amounts.*column.amount);
    m_document.CarryRow(m_amounts);
    m_subtotal += amounts;
    m_totals += amounts;
}

MovementSums MovementSections::addTotals()
{
    addSubtotal(lineAbove);
    m_document.EndCarry();
    m_document.SetFont({.bold = true});
    m_document.SetTableBorder(bothLines);
    m_table.addTotals(m_sumCells(QStringLiteral("Σύνολα"), m_totals));
    return m_totals;
}

void MovementSections::addSubtotal(int border)
{
    m_document.SetFont({.bold = true});
    m_document.SetTableBorder(border);
    m_table.addRow(m_sumCells(QStringLiteral("Υποσύνολο"), m_subtotal));
    m_document.SetFont({.bold = false});
    m_document.SetTableBorder(0);
    m_subtotal = {};
}

} // namespace lorvan
