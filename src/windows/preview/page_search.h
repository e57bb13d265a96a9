#pragma once

#include "report_pages.h"

#include <QObject>
#include <QTimer>

namespace lorvan {

/// Looks for a text through the pages, from place to place and round at the end, in slices while the window is idle:
/// pages that are not laid out yet are laid out on the way.
class PageSearch : public QObject {
    Q_OBJECT

public:
    using Direction = ReportPages::Direction;

    explicit PageSearch(QObject* parent = nullptr);

    /// The pages must outlive the search or be replaced here. Forgets what was found.
    void setPages(ReportPages* pages);

    /// Looks for the first place from the top of that page on; an empty text ends the search.
    void find(const SearchText& wanted, int fromPage);
    /// The place after or before the one found last.
    void findNext(Direction direction);

    [[nodiscard]] bool isUnderWay() const { return m_step.isActive(); }

Q_SIGNALS:
    void found(int page, const QRectF& area, bool wentRound);
    void notFound();
    void searching(int page); ///< Still at it.

private:
    void start(int page, Direction direction);
    void step();
    [[nodiscard]] bool lookAtPage();
    void advance();
    void report(int place, const std::vector<QRectF>& places);

    ReportPages* m_pages = nullptr;
    QTimer m_step;
    SearchText m_wanted{QStringView()};
    Direction m_direction = Direction::Forward;
    int m_page = 0; ///< To be looked at next; -1 for the last one, not known yet.
    int m_start = 0; ///< Where the search began; there it ends.
    bool m_wentRound = false;
    int m_foundPage = -1;
    int m_foundPlace = -1; ///< On that page.
};

} // namespace lorvan
