#include "preview/page_view.h"

#include "look/theme.h"
#include "preview/page_view_accessible.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace lorvan {
namespace {

constexpr int sliceInMilliseconds = 10;
constexpr int frame = 2;
constexpr int lineStep = 48;
constexpr int wheelNotch = 120;
constexpr std::array zoomSteps{0.25, 0.33, 0.5, 0.67, 0.75, 0.9, 1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0, 4.0};
constexpr double sameZoom = 0.005;

// Colours on paper, which is white in every theme.
const QColor markColour(255, 232, 110);
const QColor foundColour(255, 176, 84);
const QColor shadowColour(0, 0, 0, 60);

QString mouseTip(const ReportDocument& document)
{
    const PreviewMouse& mouse = document.mouse();
    QStringList lines;
    if (document.hasSubjects())
        lines += (mouse.zooms ? QStringLiteral("Ctrl και διπλό κλικ") : QStringLiteral("Διπλό κλικ"))
            + QStringLiteral(" σε γραμμή: στην κίνηση, στην ημέρα ή στην καρτέλα του κωδικού της");
    if (mouse.zooms)
        lines += QStringLiteral("Διπλό κλικ: μεγέθυνση, με Shift σμίκρυνση");
    if (mouse.turnsPages)
        lines += QStringLiteral("Shift και ροδέλα, ή τα πλήκτρα πίσω και εμπρός: αλλαγή σελίδας");
    if (mouse.scrolls)
        lines += QStringLiteral("Σύρσιμο, και με πατημένη τη ροδέλα: κύλιση");
    return lines.join(u'\n');
}

} // namespace

PageView::PageView(QWidget* parent)
    : QAbstractScrollArea(parent)
{
    setFrameShape(QFrame::Box);
    setLineWidth(frame);
    setFocusPolicy(Qt::StrongFocus);
    installPageReading();
    setAccessibleName(QStringLiteral("Σελίδες της εκτύπωσης"));
    verticalScrollBar()->setSingleStep(lineStep);
    horizontalScrollBar()->setSingleStep(lineStep);
    viewport()->setCursor(Qt::OpenHandCursor);
    connect(&m_layOutMore, &QTimer::timeout, this, &PageView::layOutMore);
    connect(&Theme::instance(), &Theme::changed, viewport(), qOverload<>(&QWidget::update));
}

void PageView::setPages(std::shared_ptr<ReportPages> pages)
{
    m_pages = std::move(pages);
    m_current = 0;
    m_wantsLast = false;
    m_found.reset();
    viewport()->setToolTip(m_pages ? mouseTip(m_pages->document()) : QString());
    updateScrollBars();
    verticalScrollBar()->setValue(0);
    if (m_pages)
        m_layOutMore.start(0);
    else
        m_layOutMore.stop();
    viewport()->update();
}

void PageView::layOutMore()
{
    if (m_pages->layOut(QDeadlineTimer(sliceInMilliseconds)))
        m_layOutMore.stop();
    updateScrollBars();
    Q_EMIT pagesGrown();
    if (m_wantsLast && m_pages->isComplete())
        goToPage(pageCount() - 1);
}

int PageView::pageCount() const
{
    return m_pages ? m_pages->pageCount() : 0;
}

PageStack PageView::stack() const
{
    return {m_pages ? m_pages->pageSize() : QSizeF(), pageCount(), m_zoom};
}

QSize PageView::roomForPages() const
{
    return maximumViewportSize() - QSize(verticalScrollBar()->sizeHint().width(), 0);
}

QPoint PageView::contentOrigin() const
{
    const int spare = viewport()->width() - stack().contentSize().width();
    return {spare > 0 ? spare / 2 : -horizontalScrollBar()->value(), -verticalScrollBar()->value()};
}

void PageView::updateScrollBars()
{
    const QSize content = m_pages ? stack().contentSize() : QSize();
    const QSize room = viewport()->size();
    verticalScrollBar()->setRange(0, content.height() - room.height());
    verticalScrollBar()->setPageStep(room.height());
    horizontalScrollBar()->setRange(0, content.width() - room.width());
    horizontalScrollBar()->setPageStep(room.width());
    viewport()->update();
}

// Pages

void PageView::goToPage(int page)
{
    if (!m_pages)
        return;
    m_wantsLast = false;
    updateScrollBars(); // pages may just have been laid out
    const int target = std::clamp(page, 0, pageCount() - 1);
    const QScopedValueRollback turning(m_isTurning, true);
    verticalScrollBar()->setValue(stack().page(target).top() - PageStack::margin);
    setCurrent(target);
}

void PageView::goToLastPage()
{
    goToPage(pageCount() - 1);
    m_wantsLast = m_pages && !m_pages->isComplete();
}

void PageView::setCurrent(int page)
{
    if (page == m_current)
        return;
    m_current = page;
    Q_EMIT currentPageChanged(page);
    tellPageTurned(*this);
}

void PageView::scrollContentsBy(int, int)
{
    viewport()->update();
    if (m_isTurning || !m_pages)
        return;
    m_wantsLast = false;
    const int top = verticalScrollBar()->value();
    setCurrent(stack().mostVisible(top, top + viewport()->height()));
}

// Size

void PageView::setZoom(double zoom)
{
    m_fit = Fit::None;
    changeZoom(zoom, viewport()->rect().center());
}

void PageView::zoomIn()
{
    m_fit = Fit::None;
    stepZoom(1, viewport()->rect().center());
}

void PageView::zoomOut()
{
    m_fit = Fit::None;
    stepZoom(-1, viewport()->rect().center());
}

/// To the next greater or smaller of the steps.
void PageView::stepZoom(int steps, QPoint anchor)
{
    const auto next = std::upper_bound(zoomSteps.begin(), zoomSteps.end(), m_zoom + sameZoom);
    const auto same = std::lower_bound(zoomSteps.begin(), zoomSteps.end(), m_zoom - sameZoom);
    if (steps > 0 && next != zoomSteps.end())
        changeZoom(*next, anchor);
    if (steps < 0 && same != zoomSteps.begin())
        changeZoom(*std::prev(same), anchor);
}

/// What is at the anchor, a point of the viewport, stays there.
void PageView::changeZoom(double zoom, QPoint anchor)
{
    const double before = m_zoom;
    const QPoint inContent = anchor - contentOrigin();
    const int page = stack().pageAt(inContent.y());
    const QPointF inPage = QPointF(inContent - stack().page(page).topLeft()) / before;
    m_zoom = std::clamp(zoom, zoomSteps.front(), zoomSteps.back());
    const QScopedValueRollback turning(m_isTurning, true);
    updateScrollBars();
    const QPoint corner = stack().page(page).topLeft() + (inPage * m_zoom).toPoint() - anchor;
    horizontalScrollBar()->setValue(corner.x());
    verticalScrollBar()->setValue(corner.y());
    Q_EMIT zoomChanged(m_zoom);
}

void PageView::setFit(Fit fit)
{
    m_fit = fit;
    applyFit();
}

void PageView::applyFit()
{
    if (m_fit == Fit::None || !m_pages)
        return;
    const QSizeF page = m_pages->pageSize() / PageStack::twipsInPixel;
    const QSize room = roomForPages() - QSize(2 * PageStack::margin, 2 * PageStack::margin);
    const double width = room.width() / page.width();
    changeZoom(m_fit == Fit::Width ? width : std::min(width, room.height() / page.height()), QPoint());
    if (m_fit == Fit::Page)
        goToPage(m_current);
}

void PageView::resizeEvent(QResizeEvent*)
{
    updateScrollBars();
    applyFit();
}

// Keys and mouse

void PageView::keyPressEvent(QKeyEvent* event)
{
    const int screenful = viewport()->height() - lineStep;
    switch (event->key()) {
    case Qt::Key_PageDown:
        return goToPage(m_current + 1);
    case Qt::Key_PageUp:
        return goToPage(m_current - 1);
    case Qt::Key_Home:
        return goToPage(0);
    case Qt::Key_End:
        return goToLastPage();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return followFound();
    case Qt::Key_Space: {
        const bool isBack = event->modifiers().testFlag(Qt::ShiftModifier);
        return verticalScrollBar()->setValue(verticalScrollBar()->value() + (isBack ? -screenful : screenful));
    }
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

PreviewMouse PageView::mouse() const
{
    return m_pages ? m_pages->document().mouse() : PreviewMouse();
}

void PageView::wheelEvent(QWheelEvent* event)
{
    const bool zooms = event->modifiers().testFlag(Qt::ControlModifier);
    if (!zooms && !(mouse().turnsPages && event->modifiers().testFlag(Qt::ShiftModifier))) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    event->accept();
    m_wheelTurn += event->angleDelta().y();
    const int notches = m_wheelTurn / wheelNotch;
    m_wheelTurn %= wheelNotch;
    if (!zooms)
        return goToPage(m_current - notches);
    for (int notch = 0; notch < std::abs(notches); ++notch)
        notches > 0 ? zoomIn() : zoomOut();
}

void PageView::mousePressEvent(QMouseEvent* event)
{
    const Qt::MouseButton button = event->button();
    if (mouse().turnsPages && (button == Qt::BackButton || button == Qt::ForwardButton))
        return goToPage(m_current + (button == Qt::BackButton ? -1 : 1));
    if (button != Qt::LeftButton && !(mouse().scrolls && button == Qt::MiddleButton))
        return;
    m_dragged = event->position().toPoint();
    viewport()->setCursor(Qt::ClosedHandCursor);
}

void PageView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    const bool isCtrl = event->modifiers().testFlag(Qt::ControlModifier);
    if (event->button() == Qt::LeftButton && isCtrl == mouse().zooms && follow(place))
        return;
    if (!mouse().zooms || event->button() != Qt::LeftButton)
        return mousePressEvent(event);
    m_fit = Fit::None;
    stepZoom(event->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1, place);
}

void PageView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragged)
        return;
    const QPoint place = event->position().toPoint();
    const QPoint moved = place - *m_dragged;
    m_dragged = place;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - moved.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - moved.y());
}

void PageView::mouseReleaseEvent(QMouseEvent*)
{
    m_dragged.reset();
    viewport()->setCursor(Qt::OpenHandCursor);
}

// Painting

bool PageView::event(QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    if (event->type() != QEvent::Paint)
        return QAbstractScrollArea::event(event);
    paintFrame();
    return true;
}

void PageView::paintFrame()
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::instance().colour(ColourRole::Ground));
    if (!hasFocus())
        return;
    painter.setPen(
        QPen(Theme::instance().colour(ColourRole::Accent), frame, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(rect().adjusted(frame / 2, frame / 2, -frame / 2, -frame / 2));
}

void PageView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), Theme::instance().colour(ColourRole::Ground));
    if (!m_pages)
        return;
    const QPoint origin = contentOrigin();
    const int last = stack().pageAt(event->rect().bottom() - origin.y());
    painter.translate(origin);
    for (int page = stack().pageAt(event->rect().top() - origin.y()); page <= last; ++page)
        paintPage(painter, page);
}

void PageView::paintPage(QPainter& painter, int page) const
{
    const QRect paper = stack().page(page);
    painter.fillRect(paper.adjusted(1, 1, 1, 1), shadowColour);
    painter.fillRect(paper, Qt::white);
    painter.save();
    painter.setClipRect(paper, Qt::IntersectClip);
    painter.translate(paper.topLeft());
    painter.scale(stack().pixelsInTwip(), stack().pixelsInTwip());
    m_pages->paintPage(painter, page);
    paintMarks(painter, page);
    painter.restore();
}

void PageView::paintMarks(QPainter& painter, int page) const
{
    painter.setCompositionMode(QPainter::CompositionMode_Multiply); // so that the text under a mark stays black
    for (const QRectF& area : m_pages->find(m_sought, page)) {
        const bool isFound = m_found && m_found->page == page && m_found->area == area;
        painter.fillRect(area, isFound ? foundColour : markColour);
    }
}

} // namespace lorvan
