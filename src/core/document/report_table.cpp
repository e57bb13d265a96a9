#include "document/report_table.h"

namespace lorvan {
namespace {

constexpr ReportColour rowShade = reportColour(222, 225, 225);
constexpr int rowsBetweenQuestions = 1000;

} // namespace

ReportTable::ReportTable(ReportDocument& document, const QString& format, const ReportProgress& progress)
    : m_document(document)
    , m_format(format)
    , m_progress(progress)
{
}

void ReportTable::begin(int border, const QString& titles, const QString& emptyRow, ReportColour titlesShade)
{
    m_document.SetTableBorder(border);
    m_document.AddTable(m_format, titles, emptyRow, titlesShade);
    m_document.SetTableBorder(0);
}

void ReportTable::addRow(const CellTexts& cells)
{
    m_document.AddTableRow(m_format, QStringView(), cells, noShade, m_nextIsPlain ? noShade : rowShade);
    m_nextIsPlain = !m_nextIsPlain;
    if (++m_rows % rowsBetweenQuestions != 0)
        return;
    if (m_rows == rowsBetweenQuestions)
        m_progress.begun(m_document);
    if (!m_progress(m_rows))
        throw ReportCancelled();
}

void ReportTable::addTotals(const CellTexts& cells)
{
    m_document.AddTableRow(m_format, QStringView(), cells);
}

} // namespace lorvan
