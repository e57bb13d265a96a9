#pragma once

#include "report_page.h"

#include <QDeadlineTimer>
#include <QSizeF>

#include <optional>
#include <vector>

class QPainter;

namespace lorvan {

/// A document in pages, for screen, printer and PDF alike. Everything is measured in twips (1440 to the inch) on
/// metrics of its own, so pages break in the same way everywhere; whoever paints scales the painter. Pages count from
/// 0.
///
/// Pages are found from the first to the last: the first is there at once, the others in slices, from a timer:
///
///     if (!pages.layOut(QDeadlineTimer(10)))
///         timer.start(0); // pageCount() has grown; there is more to come
class ReportPages {
public:
    explicit ReportPages(ReportDocument document);

    ReportPages(const ReportPages&) = delete;
    ReportPages& operator=(const ReportPages&) = delete;

    [[nodiscard]] const ReportDocument& document() const { return m_document; }

    /// Finds more pages until the deadline has passed; true when there are no more to find.
    bool layOut(QDeadlineTimer deadline = QDeadlineTimer(QDeadlineTimer::Forever));
    [[nodiscard]] bool isComplete() const { return m_isComplete; }
    /// The pages found so far; at least one, even of an empty document.
    [[nodiscard]] int pageCount() const { return static_cast<int>(m_starts.size()); }

    /// The same for every page of a document.
    [[nodiscard]] QSizeF pageSize() const { return m_layout.pageSize(); }

    /// Paints onto whatever is there: the paper's white is the caller's. A page beyond pageCount() paints nothing. The
    /// painter's state is as before afterwards.
    void paintPage(QPainter& painter, int page) const;

    /// What can be read on that page, see ReportPage::text(); empty beyond pageCount().
    [[nodiscard]] QString textOf(int page) const;

    /// The areas in twips where the text stands on that page, header, titles and footer included, in reading order.
    [[nodiscard]] std::vector<QRectF> find(const SearchText& wanted, int page) const;

    enum class Direction { Forward, Backward };
    /// The nearest page on which the text stands, from that page on (itself included), without going round; finds the
    /// pages on the way. None, also for an empty text.
    [[nodiscard]] std::optional<int> pageWith(const SearchText& wanted, int from, Direction direction);

private:
    [[nodiscard]] std::vector<FlowBlock> blocksOf(int page) const;
    [[nodiscard]] ReportPage contentOf(int page) const;
    [[nodiscard]] bool standsOn(const SearchText& wanted, int page) const;
    void addPage();

    const ReportDocument m_document;
    const ReportLayout m_layout;
    const ReportFlow m_flow;
    std::vector<FlowPosition> m_starts;
    bool m_isComplete = false;
};

} // namespace lorvan
