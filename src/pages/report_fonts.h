#pragma once

#include "document/report_format.h"

#include <QFont>
#include <QRawFont>

#include <array>
#include <memory>
#include <vector>

namespace lorvan {

/// One glyph of a font. A text that consists only of plain characters is set using their advances alone: no kerning, no
/// ligatures, so that digits line up in columns.
struct ReportGlyph {
    enum class Kind : std::uint8_t { Plain, Blank, LineBreak, NeedsShaping };

    quint32 index = 0;
    float advance = 0; ///< twips
    Kind kind = Kind::NeedsShaping;
};

/// A font of the documents and its metrics, in twips and without hinting: a line is as long on paper as on any screen.
class GlyphFont {
public:
    explicit GlyphFont(const ReportFont& font);

    [[nodiscard]] const QFont& font() const { return m_font; }
    [[nodiscard]] const QRawFont& rawFont() const { return m_rawFont; }
    [[nodiscard]] float ascent() const { return m_ascent; } ///< From the top of a line to its baseline.
    [[nodiscard]] float lineHeight() const { return m_lineHeight; }

    [[nodiscard]] const ReportGlyph& glyph(char16_t character) const
    {
        const std::unique_ptr<Block>& block = m_blocks[character >> 8];
        return (block ? *block : loadBlock(character >> 8))[character & 0xff];
    }

    /// The width of a text of plain characters and blanks; other characters count as 0.
    [[nodiscard]] float plainWidth(QStringView text) const;

    /// True if the text fits on one line of that width and needs no shaping.
    [[nodiscard]] bool fitsPlainly(QStringView text, float width) const;

private:
    using Block = std::array<ReportGlyph, 256>;
    const Block& loadBlock(std::size_t index) const;

    QFont m_font;
    QRawFont m_rawFont;
    float m_ascent = 0;
    float m_lineHeight = 0;
    mutable std::array<std::unique_ptr<Block>, 256> m_blocks; ///< Loaded from the font as needed.
};

/// Every font of a document, made only once. "Arial greek" is drawn with Liberation Sans, "courier new greek" with
/// Liberation Mono, whatever the letter case; any other name is looked up among the installed fonts.
class FontShelf {
public:
    /// The reference is valid as long as the shelf exists.
    [[nodiscard]] const GlyphFont& get(const ReportFont& font) const;

private:
    struct Entry {
        ReportFont wanted;
        std::unique_ptr<GlyphFont> font;
    };
    mutable std::vector<Entry> m_entries;
};

} // namespace lorvan
