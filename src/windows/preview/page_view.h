#pragma once

#include "preview/page_stack.h"
#include "report_pages.h"

#include <QAbstractScrollArea>
#include <QTimer>

#include <memory>
#include <optional>

namespace lorvan {

/// The preview control `Tg`: a report's pages one below the other, at any size. The first page is shown at once, the
/// others are laid out while the window is idle. Only the visible part is painted. Page Up and Down turn the pages,
/// Home and End go to the first and the last one; arrow keys, blank, wheel and dragging scroll; the wheel with Ctrl
/// zooms. A double click on a line follows what it stands for, with Ctrl where a double click zooms; Enter follows what
/// was found. A document may ask for more mouse functions (PreviewMouse). Pages count from 0.
class PageView : public QAbstractScrollArea {
    Q_OBJECT

public:
    enum class Fit { None, Width, Page };

    explicit PageView(QWidget* parent = nullptr);

    void setPages(std::shared_ptr<ReportPages> pages);
    [[nodiscard]] const std::shared_ptr<ReportPages>& pages() const { return m_pages; } ///< Null before setPages().
    [[nodiscard]] int pageCount() const; ///< Grows until all pages are laid out.

    /// The page that was turned to, otherwise the one that takes up most of the view.
    [[nodiscard]] int currentPage() const { return m_current; }
    void goToPage(int page); ///< If there is no such page, to the nearest one.
    void goToLastPage(); ///< Once it is known.

    [[nodiscard]] double zoom() const { return m_zoom; } ///< 1 is the size of the paper.
    void setZoom(double zoom);
    void zoomIn();
    void zoomOut();
    void setFit(Fit fit); ///< Also after the window's size changes, until the zoom is changed.

    /// Marks all matches of a text; an empty one removes the marks.
    void setSought(const SearchText& sought);
    /// Marks one match, in twips, more strongly than the others and scrolls to it.
    void showFound(int page, const QRectF& area);

Q_SIGNALS:
    void pagesGrown();
    void currentPageChanged(int page);
    void zoomChanged(double zoom);
    void followed(const lorvan::RowSubject& subject); ///< By a double click on a line, or Enter on what was found.
    void leadsNowhere(); ///< Enter on what was found, which stands for nothing.

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    struct Found {
        int page;
        QRectF area;
    };

    [[nodiscard]] bool follow(QPoint place); ///< False if nothing there can be followed.
    void followFound();
    void layOutMore();
    void updateScrollBars();
    void setCurrent(int page);
    void stepZoom(int steps, QPoint anchor);
    void changeZoom(double zoom, QPoint anchor);
    void applyFit();
    void paintFrame();
    void paintPage(QPainter& painter, int page) const;
    void paintMarks(QPainter& painter, int page) const;

    [[nodiscard]] PreviewMouse mouse() const;
    [[nodiscard]] PageStack stack() const;
    [[nodiscard]] QPoint contentOrigin() const; ///< The position of the content's corner in the viewport.
    [[nodiscard]] QSize roomForPages() const;

    std::shared_ptr<ReportPages> m_pages;
    QTimer m_layOutMore;
    int m_current = 0;
    bool m_isTurning = false;
    bool m_wantsLast = false;
    double m_zoom = 1;
    Fit m_fit = Fit::None;
    int m_wheelTurn = 0; ///< The fraction of a wheel notch turned so far with Ctrl or Shift.
    std::optional<QPoint> m_dragged; ///< The last position of the mouse while it is dragging.
    SearchText m_sought{QStringView()};
    std::optional<Found> m_found;
};

} // namespace lorvan
