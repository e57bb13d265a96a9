#pragma once

#include "document/report_format.h"

#include <QFont>
#include <QRawFont>

#include <array>
#include <memory>
#include <vector>

namespace lorvan {

/// One glyph of a font. Text of which every character is plain is set by advances alone: no kerning, no ligatures, so
/// digits stand below each other.
struct ReportGlyph {
    enum class Kind : std::uint8_t { Plain, Blank, LineBreak, NeedsShaping };

    quint32 index = 0;
    float advance = 0; ///< twips
    Kind kind = Kind::NeedsShaping;
};

/// A font of the documents with its measures, in twips and without hinting: a line is as long on paper as on any
/// screen.
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

    /// The width of a text of plain characters and blanks; others count nothing.
    [[nodiscard]] float plainWidth(QStringView text) const;

    /// True where the text stands on one line of that width and needs no shaping.
    [[nodiscard]] bool fitsPlainly(QStringView text, float width) const;

private:
    using Block = std::array<ReportGlyph, 256>;
    const Block& loadBlock(std::size_t index) const;

    QFont m_font;
    QRawFont m_rawFont;
    float m_ascent = 0;
    float m_lineHeight = 0;
    mutable std::array<std::unique_ptr<Block>, 256> m_blocks; ///< Read from the font as they are needed.
};

/// Every font of a document, made once. "Arial greek" is drawn with Liberation Sans, "courier new greek" with
/// Liberation Mono, whatever the letter case; any other name is looked for on the machine.
class FontShelf {
public:
    /// Stays where it is as long as the shelf.
    [[nodiscard]] const GlyphFont& get(const ReportFont& font) const;

private:
    struct Entry {
        ReportFont wanted;
        std::unique_ptr<GlyphFont> font;
    };
    mutable std::vector<Entry> m_entries;
};

} // namespace lorvan
