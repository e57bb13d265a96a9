#pragma once

#include <QRect>
#include <QSizeF>

#include <algorithm>

namespace lorvan {

/// Pages of equal size, one below the other, at a scale. Everything is in pixels except the page size, in twips.
class PageStack {
public:
    static constexpr double twipsInPixel = 15; ///< At a scale of 1.
    static constexpr int margin = 16; ///< Around and between the pages.

    PageStack(QSizeF pageSize, int pages, double scale)
        : m_page((pageSize * (scale / twipsInPixel)).toSize())
        , m_pages(pages)
        , m_pixelsInTwip(scale / twipsInPixel)
    {
    }

    [[nodiscard]] double pixelsInTwip() const { return m_pixelsInTwip; }
    [[nodiscard]] QSize contentSize() const
    {
        return {m_page.width() + 2 * margin, m_pages * (m_page.height() + margin) + margin};
    }
    /// The rectangle of a page, from the top left corner of the content; x is the margin.
    [[nodiscard]] QRect page(int index) const
    {
        return {QPoint(margin, margin + index * (m_page.height() + margin)), m_page};
    }
    /// The page at that height; in the margin above a page, the page below it.
    [[nodiscard]] int pageAt(int y) const
    {
        return std::clamp(y / (m_page.height() + margin), 0, std::max(m_pages - 1, 0));
    }
    /// The page that takes up most of the space between two heights; the first of several.
    [[nodiscard]] int mostVisible(int top, int bottom) const
    {
        int best = pageAt(top);
        for (int index = best; index <= pageAt(bottom); ++index) {
            if (visibleHeight(index, top, bottom) > visibleHeight(best, top, bottom))
                best = index;
        }
        return best;
    }

private:
    [[nodiscard]] int visibleHeight(int index, int top, int bottom) const
    {
        const QRect area = page(index);
        return std::min(area.bottom(), bottom) - std::max(area.top(), top);
    }

    QSize m_page;
    int m_pages;
    double m_pixelsInTwip;
};

} // namespace lorvan
