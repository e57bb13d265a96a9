#pragma once

#include "document/carried_sums.h"
#include "document/chart.h"
#include "document/report_format.h"

#include <cstdint>
#include <string>
#include <vector>

namespace lorvan {

class ReportItem;

/// What a row, or a part of it, stands for, so that a reader can go there. Never painted, and in no table.
struct RowSubject {
    enum class Kind : std::uint8_t { None, Movement, Code, Day };

    Kind kind = Kind::None;
    std::int64_t number = 0; ///< The movement's `aa`, the code, or the day as stored, yyyymmdd.

    friend bool operator==(const RowSubject&, const RowSubject&) = default;
};

/// What the mouse can do in a preview apart from scrolling by dragging and zooming with Ctrl and the wheel.
struct PreviewMouse {
    bool zooms = false;
    bool turnsPages = false;
    bool scrolls = false;
};

/// A report that is not yet divided into pages: page settings, header, footer, and paragraphs, table titles and table
/// rows in order. A value: it reads nothing from the book, measures nothing and paints nothing. The functions that
/// write to it have the names used in the reports.
///
/// A paragraph or row takes the font, text colour and border style that are set when it is added. Rows are cheap: their
/// texts are stored in one long text, and what rows have in common is stored once.
class ReportDocument {
public:
    /// Portrait A4, margins 350, 850, 450, 850 (left, top, right, bottom), font "Arial greek" 10, header font "arial
    /// greek".
    void StandardPageSetup();

    /// Discards paragraphs and tables. Page settings, header, footer, and font and border for the text to come are
    /// kept.
    void StartDoc();
    /// Marks the document as complete and releases the memory reserved for more rows.
    void EndDoc();

    /// A text with "|" is split into a left, a centre and a right part.
    void SetHeader(const QString& text) { m_header = text; }
    /// The same; "%d" stands for the page number. The default is "Σελίδα %d".
    void SetFooter(const QString& text) { m_footer = text; }
    void SetHeaderFont(const FontChange& change);

    void SetMargins(const MarginChange& change);
    void SetOrientation(ReportOrientation orientation) { m_page.orientation = orientation; }
    void SetPaperSize(ReportPaper paper) { m_page.paper = paper; }

    /// A double click zooms in on the preview at that place, with Shift it zooms out.
    void MouseZoom(bool isOn) { m_mouse.zooms = isOn; }
    /// Shift and the wheel turn the preview's pages, and so do the mouse's back and forward buttons.
    void MousePage(bool isOn) { m_mouse.turnsPages = isOn; }
    /// The pages can also be dragged with the wheel pressed.
    void MouseScroll(bool isOn) { m_mouse.scrolls = isOn; }

    void SetFont(const FontChange& change);
    void SetTextColor(ReportColour colour);
    /// 0 none, 1 a line below, 2 above, 3 both, 9 a faint line below; applies to the rows and titles added next.
    void SetTableBorder(int style);

    /// A carriage return breaks the line; one at the end adds no further line, so that "\r" alone is an empty line.
    void Paragraph(QStringView text);
    /// A paragraph that stands on the same page as the beginning of what follows it.
    void Heading(QStringView text);

    /// Begins a table: its titles, which appear here and at the top of every further page of the table, then one row.
    /// Without a header the table has no titles; without a body it has no row yet.
    void AddTable(
        const QString& format, const CellTexts& header, const CellTexts& body, ReportColour headerShade = noShade);

    /// Adds a row to the last table, with columns of its own if the format differs from the table's. The header is
    /// ignored if there is a table: only without an earlier AddTable() does it begin the table, with that shade.
    void AddTableRow(const QString& format, const CellTexts& header, const CellTexts& body,
        ReportColour headerShade = noShade, ReportColour bodyShade = noShade);

    /// The rows added from now on add up in these columns, for a reader who wants each page to carry the sums of the
    /// one before; `name` is the code or group that they belong to. Ends with the next call.
    void BeginCarry(const std::vector<int>& columns, const QString& name = {});
    /// The amounts of the row just added, in the order of the columns. Throws CurrencyOverflow.
    void CarryRow(const std::vector<Currency>& amounts) { m_carried.add(amounts); }
    /// The rows that follow belong to no sum.
    void EndCarry() { m_carried.end(itemCount()); }
    [[nodiscard]] const CarriedRows& carried() const { return m_carried; }

    /// The cells of the row just added stand for this, from that one up to the next call for the same row. Cells are
    /// named in ascending order. 12 bytes each.
    void RowStandsFor(const RowSubject& subject, int firstCell = 0);
    [[nodiscard]] bool hasSubjects() const { return !m_subjects.empty(); }

    /// A chart across the text area, that many twips high, which is never split between pages. It has no text: a table
    /// of the same figures goes with it.
    void AddChart(const Chart& chart, int height);

    /// The picture in a file, that many twips high and as wide as its shape demands, at the left; never split between
    /// pages either. Whoever exports the document as a table leaves it out.
    void AddPicture(const QString& file, int height);

    [[nodiscard]] const ReportPageSettings& page() const { return m_page; }
    [[nodiscard]] const QString& header() const { return m_header; }
    [[nodiscard]] const ReportFont& headerFont() const { return m_headerFont; }
    [[nodiscard]] const QString& footer() const { return m_footer; }
    [[nodiscard]] const PreviewMouse& mouse() const { return m_mouse; }
    [[nodiscard]] bool isComplete() const { return m_isComplete; }

    /// Paragraphs, charts, pictures, titles and rows together, in order.
    [[nodiscard]] int itemCount() const { return static_cast<int>(m_items.size()); }
    [[nodiscard]] ReportItem item(int index) const;

    [[nodiscard]] std::vector<ReportItem> paragraphs() const;
    [[nodiscard]] std::vector<ReportItem> rows() const; ///< Of all tables, without the titles.
    [[nodiscard]] QString cell(int row, int column) const; ///< Empty if there is no such row or cell.

    /// Compares what is visible, not the settings for text yet to be added.
    friend bool operator==(const ReportDocument& left, const ReportDocument& right);

private:
    friend class ReportItem;
    enum class Kind : std::uint8_t { Paragraph, Titles, Row, Chart, Picture };

    struct PlacedChart {
        Chart chart;
        int height = 0; ///< twips

        friend bool operator==(const PlacedChart&, const PlacedChart&) = default;
    };

    struct PlacedPicture {
        QString file;
        int height = 0; ///< twips

        friend bool operator==(const PlacedPicture&, const PlacedPicture&) = default;
    };

    /// Properties that many items share.
    struct Style {
        Kind kind = Kind::Paragraph;
        int border = 0;
        ReportColour textColour = 0;
        ReportFont font;
        int columns = -1; ///< in m_columns; none for a paragraph
        int titles = -1; ///< the item that holds the titles of the row's table, if any
        int chart = -1; ///< in m_charts; none but for a chart
        int picture = -1; ///< in m_pictures; none but for a picture
        bool isHeading = false;

        friend bool operator==(const Style&, const Style&) = default;
    };

    struct Item {
        std::uint32_t cellEnd = 0; ///< one past its last cell in m_textEnds
        std::uint32_t style = 0;
        ReportColour shade = noShade;

        friend bool operator==(const Item&, const Item&) = default;
    };

    void addRow(const QString& format, const CellTexts& body, ReportColour shade);
    void useFormat(const QString& format);
    void addCell(QStringView text);
    void finishItem(Kind kind, ReportColour shade);
    [[nodiscard]] std::uint32_t styleFor(Kind kind);
    [[nodiscard]] std::vector<ReportItem> itemsOf(Kind kind) const;

    ReportPageSettings m_page;
    QString m_header;
    ReportFont m_headerFont;
    QString m_footer = QStringLiteral("Σελίδα %d");

    PreviewMouse m_mouse;

    std::u16string m_text;
    std::vector<std::uint32_t> m_textEnds; ///< where each cell's text ends in m_text
    std::vector<Item> m_items;
    std::vector<Style> m_styles;
    std::vector<std::vector<ReportColumn>> m_columns;
    std::vector<PlacedChart> m_charts;
    std::vector<PlacedPicture> m_pictures;
    CarriedRows m_carried;
    std::vector<std::uint32_t> m_subjectCells; ///< in m_textEnds, ascending
    std::vector<std::int64_t> m_subjects; ///< from those cells on: number times 4 plus kind

    Style m_next; ///< for the text to come
    QString m_format; ///< the one from which m_next.columns was read
    bool m_hasTable = false;
    bool m_isComplete = false;
};

/// A view of one paragraph, one chart or picture, one table's titles or one table row. Valid until its document is
/// changed, moved or destroyed.
class ReportItem {
public:
    [[nodiscard]] bool isParagraph() const { return style().kind == ReportDocument::Kind::Paragraph; }
    [[nodiscard]] bool isHeading() const { return style().isHeading; }
    [[nodiscard]] bool isTitles() const { return style().kind == ReportDocument::Kind::Titles; }
    [[nodiscard]] bool isRow() const { return style().kind == ReportDocument::Kind::Row; }
    [[nodiscard]] bool isChart() const { return style().kind == ReportDocument::Kind::Chart; }

    [[nodiscard]] bool isPicture() const { return style().kind == ReportDocument::Kind::Picture; }

    /// Only of a chart; the height is in twips.
    [[nodiscard]] const Chart& chart() const { return placedChart().chart; }
    [[nodiscard]] int chartHeight() const { return placedChart().height; }
    /// Only of a picture, likewise.
    [[nodiscard]] const QString& pictureFile() const { return placedPicture().file; }
    [[nodiscard]] int pictureHeight() const { return placedPicture().height; }

    /// The text of a paragraph with its line breaks; a row's first cell.
    [[nodiscard]] QStringView text() const { return cell(0); }
    [[nodiscard]] int cellCount() const { return static_cast<int>(record().cellEnd - firstCell()); }
    /// Empty beyond the last cell: a row may have fewer cells than columns.
    [[nodiscard]] QStringView cell(int column) const;
    [[nodiscard]] QStringList cells() const;

    /// What the cell stands for; of kind None if nothing.
    [[nodiscard]] RowSubject subject(int column) const;

    [[nodiscard]] const ReportFont& font() const { return style().font; }
    [[nodiscard]] ReportColour textColour() const { return style().textColour; }
    [[nodiscard]] int border() const { return style().border; }
    [[nodiscard]] ReportColour shade() const { return record().shade; }
    [[nodiscard]] const std::vector<ReportColumn>& columns() const; ///< None for a paragraph.

    /// Index of the titles of a row's table; -1 if it has none.
    [[nodiscard]] int titlesItem() const { return style().titles; }
    [[nodiscard]] QStringList header() const; ///< The texts of those titles.

private:
    friend class ReportDocument;
    ReportItem(const ReportDocument* document, int index)
        : m_document(document)
        , m_index(static_cast<std::size_t>(index))
    {
    }

    [[nodiscard]] const ReportDocument::Item& record() const { return m_document->m_items[m_index]; }
    [[nodiscard]] const ReportDocument::Style& style() const { return m_document->m_styles[record().style]; }
    [[nodiscard]] const ReportDocument::PlacedChart& placedChart() const
    {
        return m_document->m_charts[static_cast<std::size_t>(style().chart)];
    }
    [[nodiscard]] const ReportDocument::PlacedPicture& placedPicture() const
    {
        return m_document->m_pictures[static_cast<std::size_t>(style().picture)];
    }
    [[nodiscard]] std::uint32_t firstCell() const { return m_index ? m_document->m_items[m_index - 1].cellEnd : 0; }

    const ReportDocument* m_document;
    std::size_t m_index;
};

inline ReportItem ReportDocument::item(int index) const
{
    return {this, index};
}

} // namespace lorvan
