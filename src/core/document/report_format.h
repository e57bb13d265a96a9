#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <QVarLengthArray>

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <vector>

namespace lorvan {

/// A colour in a document as the number 0xBBGGRR: 0 means black for a text and "none" for a shade, 255 is red.
using ReportColour = std::uint32_t;

[[nodiscard]] constexpr ReportColour reportColour(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    return static_cast<ReportColour>(red | green << 8 | blue << 16);
}

inline constexpr ReportColour noShade = 0;

/// A font in a document. The name is the one the report asks for; FontShelf (pages/report_fonts) decides which
/// installed font it is measured and painted with.
struct ReportFont {
    QString name = QStringLiteral("Arial greek");
    double size = 10; ///< points
    bool bold = false;

    friend bool operator==(const ReportFont&, const ReportFont&) = default;
};

/// What SetFont changes; members left out keep their value. Example: `SetFont({.size = 11, .bold = true})`.
struct FontChange {
    std::optional<QString> name = {};
    std::optional<double> size = {};
    std::optional<bool> bold = {};
};

/// A length in twips (1440 to the inch), or a text with a unit: "0.5cm", "2cm", "10mm", "1in", "12pt". A text without a
/// unit is in twips; a text that is not a length gives no value.
class ReportLength {
public:
    ReportLength(int twips)
        : m_twips(twips)
    {
    }
    ReportLength(const QString& text);

    [[nodiscard]] std::optional<int> twips() const { return m_twips; }

private:
    std::optional<int> m_twips;
};

/// What SetMargins changes; members that are left out, or are not lengths, keep their value. Example:
/// `SetMargins({.left = 1400})`.
struct MarginChange {
    std::optional<ReportLength> left = {};
    std::optional<ReportLength> top = {};
    std::optional<ReportLength> right = {};
    std::optional<ReportLength> bottom = {};
};

enum class ReportOrientation { Portrait, Landscape };
enum class ReportPaper { A4 };

/// The page of a document; margins in twips.
struct ReportPageSettings {
    ReportPaper paper = ReportPaper::A4;
    ReportOrientation orientation = ReportOrientation::Portrait;
    int left = 350;
    int top = 850;
    int right = 450;
    int bottom = 850;

    /// As one reads the page, with landscape taken into account.
    [[nodiscard]] int widthInTwips() const;
    [[nodiscard]] int heightInTwips() const;

    friend bool operator==(const ReportPageSettings&, const ReportPageSettings&) = default;
};

enum class ColumnAlignment : std::uint8_t { Left, Centre, Right };

struct ReportColumn {
    ColumnAlignment alignment = ColumnAlignment::Left;
    int width = 0; ///< twips, never negative

    friend bool operator==(const ReportColumn&, const ReportColumn&) = default;
};

/// Reads a table format such as "^1100|<4000|>1500": for each column "<", "^" or ">" and a width in twips. Without a
/// mark, a column is left-aligned; if there are several marks, the last one counts; an entry without a readable width
/// is 0 twips wide.
[[nodiscard]] std::vector<ReportColumn> parseTableFormat(QStringView format);

/// The left, centre and right part of a page header or footer, separated by the first two "|".
struct ThreeParts {
    QString left;
    QString centre;
    QString right;
};
[[nodiscard]] ThreeParts splitIntoThree(const QString& text);

/// The cells of one row as an argument: a text with "|" between cells, or a list of cells, in which "|" is an ordinary
/// character. An empty text has no cells. Holds views: use it only as a parameter.
class CellTexts {
public:
    CellTexts(QStringView barSeparated);
    CellTexts(const QString& barSeparated)
        : CellTexts(QStringView(barSeparated))
    {
    }
    CellTexts(const QStringList& cells);
    CellTexts(std::initializer_list<QStringView> cells)
        : m_cells(cells)
    {
    }

    [[nodiscard]] auto begin() const { return m_cells.begin(); }
    [[nodiscard]] auto end() const { return m_cells.end(); }
    [[nodiscard]] bool isEmpty() const { return m_cells.isEmpty(); }

private:
    QVarLengthArray<QStringView, 16> m_cells;
};

} // namespace lorvan
