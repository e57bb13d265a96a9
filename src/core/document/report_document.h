#pragma once

#include "document/report_format.h"

#include <cstdint>
#include <string>
#include <vector>

namespace lorvan {

class ReportItem;

/// What the mouse does in a preview besides scrolling by dragging and changing the size with Ctrl and the wheel.
struct PreviewMouse {
    bool zooms = false;
    bool turnsPages = false;
    bool scrolls = false;
};

/// A report before it has pages: page settings, header, footer, and paragraphs, table titles and table rows in their
/// order. A value: it reads no store, measures and paints nothing. The operations that write it carry the reports' own
/// names.
///
/// A paragraph or row takes the font, text colour and border style that are set when it is added. Rows cost little:
/// their texts lie in one long text, and what rows have in common is kept once.
class ReportDocument {
public:
    /// Portrait A4, margins 350, 850, 450, 850 (left, top, right, bottom), font "Arial greek" 10, header font "arial
    /// greek".
    void StandardPageSetup();

    /// Discards paragraphs and tables. Page settings, header, footer and what is set for the text to come stay.
    void StartDoc();
    /// Says that the document is whole, and gives back the memory kept for more rows.
    void EndDoc();

    /// A text with "|" is split into a left, a centre and a right part.
    void SetHeader(const QString& text) { m_header = text; }
    /// The same; "%d" stands for the page number. Without a call it is "Σελίδα %d".
    void SetFooter(const QString& text) { m_footer = text; }
    void SetHeaderFont(const FontChange& change);

    void SetMargins(const MarginChange& change);
    void SetOrientation(ReportOrientation orientation) { m_page.orientation = orientation; }
    void SetPaperSize(ReportPaper paper) { m_page.paper = paper; }

    /// A double click enlarges the preview there, with Shift it shrinks it.
    void MouseZoom(bool isOn) { m_mouse.zooms = isOn; }
    /// The wheel with Shift turns the preview's pages, and so do the mouse's buttons for back and forward.
    void MousePage(bool isOn) { m_mouse.turnsPages = isOn; }
    /// The pressed wheel drags the pages too.
    void MouseScroll(bool isOn) { m_mouse.scrolls = isOn; }

    void SetFont(const FontChange& change);
    void SetTextColor(ReportColour colour);
    /// 0 none, 1 a line below, 2 above, 3 both, 9 a quiet line below; of the rows and titles added next.
    void SetTableBorder(int style);

    /// A carriage return breaks the line; one at the end adds no further line, so that "\r" alone is an empty line.
    void Paragraph(QStringView text);

    /// Begins a table: its titles, which stand once here and on every page that the table reaches, then one row.
    /// Without a header the table has no titles; without a body it has no row yet.
    void AddTable(
        const QString& format, const CellTexts& header, const CellTexts& body, ReportColour headerShade = noShade);

    /// Adds a row to the table begun last, in columns of its own if the format differs from the table's. The header is
    /// there already: only without an AddTable before does it begin the table, with that shade.
    void AddTableRow(const QString& format, const CellTexts& header, const CellTexts& body,
        ReportColour headerShade = noShade, ReportColour bodyShade = noShade);

    [[nodiscard]] const ReportPageSettings& page() const { return m_page; }
    [[nodiscard]] const QString& header() const { return m_header; }
    [[nodiscard]] const ReportFont& headerFont() const { return m_headerFont; }
    [[nodiscard]] const QString& footer() const { return m_footer; }
    [[nodiscard]] const PreviewMouse& mouse() const { return m_mouse; }
    [[nodiscard]] bool isComplete() const { return m_isComplete; }

    /// Paragraphs, titles and rows together, in their order.
    [[nodiscard]] int itemCount() const { return static_cast<int>(m_items.size()); }
    [[nodiscard]] ReportItem item(int index) const;

    [[nodiscard]] std::vector<ReportItem> paragraphs() const;
    [[nodiscard]] std::vector<ReportItem> rows() const; ///< Of all tables, without the titles.
    [[nodiscard]] QString cell(int row, int column) const; ///< Empty where there is no such row or cell.

    /// Compares what would be seen, not what is set for text still to come.
    friend bool operator==(const ReportDocument& left, const ReportDocument& right);

private:
    friend class ReportItem;
    enum class Kind : std::uint8_t { Paragraph, Titles, Row };

    /// What many items share.
    struct Style {
        Kind kind = Kind::Paragraph;
        int border = 0;
        ReportColour textColour = 0;
        ReportFont font;
        int columns = -1; ///< in m_columns; none for a paragraph
        int titles = -1; ///< the item that holds the titles of a row's table, if it has any

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

    Style m_next; ///< of the text to come
    QString m_format; ///< the one that m_next.columns was read from
    bool m_hasTable = false;
    bool m_isComplete = false;
};

/// A view of one paragraph, one table's titles or one table row. Valid until its document changes, moves or goes.
class ReportItem {
public:
    [[nodiscard]] bool isParagraph() const { return style().kind == ReportDocument::Kind::Paragraph; }
    [[nodiscard]] bool isTitles() const { return style().kind == ReportDocument::Kind::Titles; }
    [[nodiscard]] bool isRow() const { return style().kind == ReportDocument::Kind::Row; }

    /// The text of a paragraph with its line breaks; a row's first cell.
    [[nodiscard]] QStringView text() const { return cell(0); }
    [[nodiscard]] int cellCount() const { return static_cast<int>(record().cellEnd - firstCell()); }
    /// Empty beyond the last cell: a row may have fewer cells than columns.
    [[nodiscard]] QStringView cell(int column) const;
    [[nodiscard]] QStringList cells() const;

    [[nodiscard]] const ReportFont& font() const { return style().font; }
    [[nodiscard]] ReportColour textColour() const { return style().textColour; }
    [[nodiscard]] int border() const { return style().border; }
    [[nodiscard]] ReportColour shade() const { return record().shade; }
    [[nodiscard]] const std::vector<ReportColumn>& columns() const; ///< None for a paragraph.

    [[nodiscard]] int titlesItem() const
    {
        return style().titles;
    } ///< Index of the titles of a row's table; -1 without.
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
    [[nodiscard]] std::uint32_t firstCell() const { return m_index ? m_document->m_items[m_index - 1].cellEnd : 0; }

    const ReportDocument* m_document;
    std::size_t m_index;
};

inline ReportItem ReportDocument::item(int index) const
{
    return {this, index};
}

} // namespace lorvan
