#include "report_pages.h"

#include "report_painter.h"

#include <algorithm>

namespace lorvan {

ReportPages::ReportPages(ReportDocument document, CarryLines carries)
    : m_document(std::move(document))
    , m_carries(carries)
    , m_layout(m_document, carries)
    , m_flow(m_layout)
    , m_starts{FlowPosition{}}
{
}

bool ReportPages::layOut(QDeadlineTimer deadline)
{
    while (!m_isComplete && !deadline.hasExpired())
        addPage();
    return m_isComplete;
}

void ReportPages::addPage()
{
    if (const std::optional<FlowPosition> next = m_flow.fillPage(m_starts.back(), nullptr))
        m_starts.push_back(*next);
    else
        m_isComplete = true;
}

std::vector<FlowBlock> ReportPages::blocksOf(int page) const
{
    std::vector<FlowBlock> blocks;
    m_flow.fillPage(m_starts[static_cast<std::size_t>(page)], &blocks);
    return blocks;
}

ReportPage ReportPages::contentOf(int page) const
{
    return {m_layout, blocksOf(page), page + 1};
}

void ReportPages::paintPage(QPainter& painter, int page) const
{
    if (page >= 0 && page < pageCount())
        paintReportPage(painter, contentOf(page));
}

QString ReportPages::textOf(int page) const
{
    return page >= 0 && page < pageCount() ? contentOf(page).text() : QString();
}

std::vector<QRectF> ReportPages::find(const SearchText& wanted, int page) const
{
    if (wanted.isEmpty() || page < 0 || page >= pageCount())
        return {};
    return contentOf(page).find(wanted);
}

RowSubject ReportPages::subjectAt(int page, QPointF place) const
{
    return page >= 0 && page < pageCount() ? contentOf(page).subjectAt(place) : RowSubject();
}

std::optional<int> ReportPages::pageWith(const SearchText& wanted, int from, Direction direction)
{
    const int step = direction == Direction::Forward ? 1 : -1;
    for (int page = from; page >= 0 && !wanted.isEmpty(); page += step) {
        while (page >= pageCount() && !m_isComplete)
            addPage();
        if (page >= pageCount())
            break;
        if (standsOn(wanted, page))
            return page;
    }
    return std::nullopt;
}

bool ReportPages::standsOn(const SearchText& wanted, int page) const
{
    return !find(wanted, page).empty();
}

} // namespace lorvan
