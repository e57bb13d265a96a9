#pragma once

#include "report_pages.h"

#include <QObject>
#include <QTimer>

namespace lorvan {

/// Searches the pages for a text, from match to match and wrapping around at the end, in slices while the window is
/// idle; pages that are not laid out yet are laid out on the way.
class PageSearch : public QObject {
    Q_OBJECT

public:
    using Direction = ReportPages::Direction;

    explicit PageSearch(QObject* parent = nullptr);

    /// The pages must outlive the search or be replaced here. Drops the last match.
    void setPages(ReportPages* pages);

    /// Finds the first match from the top of that page on; an empty text ends the search.
    void find(const SearchText& wanted, int fromPage);
    /// Finds the next or previous match after the last one.
    void findNext(Direction direction);

    [[nodiscard]] bool isUnderWay() const { return m_step.isActive(); }

Q_SIGNALS:
    void found(int page, const QRectF& area, bool wentRound);
    void notFound();
    void searching(int page); ///< The search is still going on.

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
    int m_page = 0; ///< The next page to search; -1 for the last one, whose number is not known yet.
    int m_start = 0; ///< The page on which the search began and on which it ends.
    bool m_wentRound = false;
    int m_foundPage = -1;
    int m_foundPlace = -1; ///< On that page.
};

} // namespace lorvan
