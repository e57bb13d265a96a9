#pragma once

#include "platform/search_text.h"
#include "report_flow.h"

#include <QRectF>

#include <array>
#include <deque>
#include <vector>

namespace lorvan {

/// One line of text and its position on a page, in twips.
struct PlacedText {
    const GlyphFont* font = nullptr;
    ReportColour colour = 0;
    QStringView text; ///< the line
    QStringView whole; ///< the cell or paragraph that the line belongs to
    bool isPlain = true;
    float left = 0;
    float baseline = 0;
};

struct PlacedShade {
    QRectF area;
    ReportColour colour = noShade;
};

/// A horizontal line of a table's border.
struct PlacedRule {
    enum class Look { Strong, Quiet };

    float left = 0;
    float right = 0;
    float y = 0;
    Look look = Look::Strong;
};

/// A row of a table, or the part of it that is on the page.
struct PlacedRow {
    QRectF area;
    int item = 0;
};

struct DrawnChart {
    const Chart* chart = nullptr;
    QRectF area;
};

struct DrawnPicture {
    QString file;
    QPointF place; ///< Of its top left corner.
    double height = 0;
};

/// Everything that is visible on one page, measured from the page's top left corner, in twips. Holds views of the
/// document's texts.
class ReportPage {
public:
    /// `number` counts from 1.
    ReportPage(const ReportLayout& layout, const std::vector<FlowBlock>& blocks, int number);

    /// Nothing is painted left or right of it.
    [[nodiscard]] const QRectF& clip() const { return m_clip; }
    [[nodiscard]] const std::vector<PlacedShade>& shades() const { return m_shades; }
    [[nodiscard]] const std::vector<PlacedRule>& rules() const { return m_rules; }
    [[nodiscard]] const std::vector<DrawnChart>& charts() const { return m_charts; }
    [[nodiscard]] const std::vector<DrawnPicture>& pictures() const { return m_pictures; }
    [[nodiscard]] const std::vector<PlacedText>& texts() const { return m_texts; }
    /// The lines that carry sums; they are no part of the readable text and are not found.
    [[nodiscard]] const std::vector<PlacedText>& carriedTexts() const { return m_carriedTexts; }

    /// What the part of a row at that place stands for; of kind None if nothing.
    [[nodiscard]] RowSubject subjectAt(QPointF place) const;

    /// The readable text, one line for each line on paper; texts side by side are separated by tabs.
    [[nodiscard]] QString text() const;

    /// The areas of all places where the text is found, in reading order; two areas for a match broken into two lines.
    [[nodiscard]] std::vector<QRectF> find(const SearchText& wanted) const;

private:
    void placeParagraph(const ReportItem& item, const FlowBlock& block, float top);
    void placeCarried(const FlowBlock& block, float top);
    void placeChart(const ReportItem& item, float top);
    void placeRow(const ReportItem& item, const FlowBlock& block, float top);
    void placeGround(const ReportItem& item, float top, float bottom, float width);
    void placeThreeParts(std::array<QString, 3>& parts, const QString& text, float bottom);
    void placePart(QStringView part, ColumnAlignment alignment, float width, float bottom);

    const ReportLayout& m_layout;
    QRectF m_clip;
    std::array<QString, 3> m_header;
    std::array<QString, 3> m_footer;
    std::vector<PlacedShade> m_shades;
    std::vector<PlacedRule> m_rules;
    std::vector<PlacedRow> m_rows;
    std::vector<DrawnChart> m_charts;
    std::vector<DrawnPicture> m_pictures;
    std::vector<PlacedText> m_texts;
    std::deque<QString> m_carried; ///< What the next ones show.
    std::vector<PlacedText> m_carriedTexts;
};

} // namespace lorvan
