#include "preview/page_view.h"

#include <QScopedValueRollback>
#include <QScrollBar>

namespace lorvan {

void PageView::setSought(const SearchText& sought)
{
    m_sought = sought;
    m_found.reset();
    viewport()->update();
}

void PageView::showFound(int page, const QRectF& area)
{
    m_found = Found{page, area};
    updateScrollBars(); // the page may just have been laid out
    const PageStack pages = stack();
    const QRectF inPage(area.topLeft() * pages.pixelsInTwip(), area.size() * pages.pixelsInTwip());
    const QRect place = inPage.toAlignedRect().translated(pages.page(page).topLeft() + contentOrigin());
    const QRect room = viewport()->rect();
    const QScopedValueRollback turning(m_isTurning, true);
    if (place.top() < 0 || place.bottom() > room.bottom())
        verticalScrollBar()->setValue(verticalScrollBar()->value() + place.center().y() - room.height() / 3);
    if (place.left() < 0 || place.right() > room.right())
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + place.center().x() - room.width() / 2);
    setCurrent(page);
    viewport()->update();
}

bool PageView::follow(QPoint place)
{
    if (!m_pages)
        return false;
    const QPoint inContent = place - contentOrigin();
    const int page = stack().pageAt(inContent.y());
    const QPointF inPage = QPointF(inContent - stack().page(page).topLeft()) / stack().pixelsInTwip();
    const RowSubject subject = m_pages->subjectAt(page, inPage);
    if (subject.kind == RowSubject::Kind::None)
        return false;
    Q_EMIT followed(subject);
    return true;
}

void PageView::followFound()
{
    if (!m_pages || !m_found)
        return;
    const RowSubject subject = m_pages->subjectAt(m_found->page, m_found->area.center());
    if (subject.kind == RowSubject::Kind::None)
        Q_EMIT leadsNowhere();
    else
        Q_EMIT followed(subject);
}

} // namespace lorvan
