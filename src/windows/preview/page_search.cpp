#include "preview/page_search.h"

namespace lorvan {
namespace {

constexpr int sliceInMilliseconds = 10;

} // namespace

PageSearch::PageSearch(QObject* parent)
    : QObject(parent)
{
    connect(&m_step, &QTimer::timeout, this, &PageSearch::step);
}

void PageSearch::setPages(ReportPages* pages)
{
    m_step.stop();
    m_pages = pages;
    m_foundPage = -1;
}

void PageSearch::find(const SearchText& wanted, int fromPage)
{
    m_wanted = wanted;
    m_foundPage = -1;
    m_step.stop();
    if (m_pages && !wanted.isEmpty())
        start(fromPage, Direction::Forward);
}

void PageSearch::findNext(Direction direction)
{
    if (!m_pages || m_wanted.isEmpty())
        return;
    if (m_foundPage < 0)
        return start(0, direction);
    const std::vector<QRectF> places = m_pages->find(m_wanted, m_foundPage);
    const int next = m_foundPlace + (direction == Direction::Forward ? 1 : -1);
    if (next >= 0 && next < static_cast<int>(places.size())) {
        m_page = m_foundPage;
        m_wentRound = false;
        return report(next, places);
    }
    start(m_foundPage, direction);
    advance();
}

void PageSearch::start(int page, Direction direction)
{
    m_page = page;
    m_start = page;
    m_direction = direction;
    m_wentRound = false;
    m_step.start(0);
}

void PageSearch::step()
{
    const QDeadlineTimer deadline(sliceInMilliseconds);
    do {
        const bool isBeyond = m_page < 0 || m_page >= m_pages->pageCount();
        if (isBeyond && !m_pages->isComplete()) {
            m_pages->layOut(deadline);
        } else if (isBeyond) {
            m_wentRound = true;
            m_page = m_page < 0 ? m_pages->pageCount() - 1 : 0;
        } else if (lookAtPage()) {
            return;
        }
    } while (!deadline.hasExpired());
    Q_EMIT searching(m_page);
}

/// True if the search has ended.
bool PageSearch::lookAtPage()
{
    const std::vector<QRectF> places = m_pages->find(m_wanted, m_page);
    if (!places.empty()) {
        report(m_direction == Direction::Forward ? 0 : static_cast<int>(places.size()) - 1, places);
        return true;
    }
    if (m_wentRound && m_page == m_start) {
        m_step.stop();
        Q_EMIT notFound();
        return true;
    }
    advance();
    return false;
}

void PageSearch::advance()
{
    m_page += m_direction == Direction::Forward ? 1 : -1;
}

void PageSearch::report(int place, const std::vector<QRectF>& places)
{
    m_step.stop();
    m_foundPage = m_page;
    m_foundPlace = place;
    Q_EMIT found(m_page, places[static_cast<std::size_t>(place)], m_wentRound);
}

} // namespace lorvan
