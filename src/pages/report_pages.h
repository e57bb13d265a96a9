#pragma once

#include "report_page.h"

#include <QDeadlineTimer>
#include <QSizeF>

#include <optional>
#include <vector>

class QPainter;

namespace lorvan {

/// A document divided into pages, the same for screen, printer and PDF. Everything is measured in twips (1440 to the
/// inch), independently of the device, so pages break in the same way everywhere; the code that paints scales the
/// painter. Pages count from 0.
///
/// Pages are laid out from the first to the last: the first is available at once, the others in slices, from a timer:
///
///     if (!pages.layOut(QDeadlineTimer(10)))
///         timer.start(0); // pageCount() has grown; there is more to come
class ReportPages {
public:
    explicit ReportPages(ReportDocument document, CarryLines carries = CarryLines::No);

    ReportPages(const ReportPages&) = delete;
    ReportPages& operator=(const ReportPages&) = delete;

    [[nodiscard]] const ReportDocument& document() const { return m_document; }
    [[nodiscard]] CarryLines carries() const { return m_carries; }

    /// Lays out more pages until the deadline has passed; true when all are laid out.
    bool layOut(QDeadlineTimer deadline = QDeadlineTimer(QDeadlineTimer::Forever));
    [[nodiscard]] bool isComplete() const { return m_isComplete; }
    /// The pages laid out so far; at least one, even for an empty document.
    [[nodiscard]] int pageCount() const { return static_cast<int>(m_starts.size()); }

    /// The same for all pages of a document.
    [[nodiscard]] QSizeF pageSize() const { return m_layout.pageSize(); }

    /// Paints over whatever is there: the caller paints the white of the paper. Paints nothing if there is no such page
    /// yet. Restores the painter's state afterwards.
    void paintPage(QPainter& painter, int page) const;

    /// The readable text of that page, see ReportPage::text(); empty if there is no such page yet.
    [[nodiscard]] QString textOf(int page) const;

    /// The areas in twips where the text is found on that page, including header, titles and footer, in reading order.
    [[nodiscard]] std::vector<QRectF> find(const SearchText& wanted, int page) const;

    /// See ReportPage::subjectAt(); the place is in twips.
    [[nodiscard]] RowSubject subjectAt(int page, QPointF place) const;

    enum class Direction { Forward, Backward };
    /// The nearest page that contains the text, beginning with `from` itself, without wrapping around; lays out the
    /// pages on the way. No value if there is none, or if the text is empty.
    [[nodiscard]] std::optional<int> pageWith(const SearchText& wanted, int from, Direction direction);

private:
    [[nodiscard]] std::vector<FlowBlock> blocksOf(int page) const;
    [[nodiscard]] ReportPage contentOf(int page) const;
    [[nodiscard]] bool standsOn(const SearchText& wanted, int page) const;
    void addPage();

    const ReportDocument m_document;
    const CarryLines m_carries;
    const ReportLayout m_layout;
    const ReportFlow m_flow;
    std::vector<FlowPosition> m_starts;
    bool m_isComplete = false;
};

} // namespace lorvan
