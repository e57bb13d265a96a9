#include "report_fonts.h"

#include <algorithm>
#include <cmath>

namespace lorvan {

namespace {

constexpr double twipsPerPoint = 20;
constexpr double smallestSize = 1;
constexpr double greatestSize = 200;

QString familyFor(const QString& name)
{
    if (name.compare(QLatin1String("Arial greek"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("Liberation Sans");
    if (name.compare(QLatin1String("courier new greek"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("Liberation Mono");
    return name;
}

QFont drawingFont(const ReportFont& font)
{
    const double size = std::isnan(font.size) ? ReportFont().size : std::clamp(font.size, smallestSize, greatestSize);
    QFont drawing(familyFor(font.name));
    drawing.setStyleHint(QFont::SansSerif, QFont::ForceOutline);
    drawing.setPixelSize(qRound(size * twipsPerPoint));
    drawing.setBold(font.bold);
    drawing.setKerning(false);
    drawing.setHintingPreference(QFont::PreferNoHinting);
    return drawing;
}

/// Scripts whose characters stand side by side, independently of each other. Combining marks, joiners and everything
/// written from right to left are left to the text engine.
bool standsForItself(char16_t character)
{
    static constexpr std::array<std::pair<char16_t, char16_t>, 9> ranges = {
        {{0x0020, 0x00ac}, {0x00ae, 0x02ff}, {0x0370, 0x0482}, {0x048a, 0x052f}, {0x1e00, 0x1fff}, {0x2010, 0x2027},
            {0x202f, 0x205e}, {0x20a0, 0x20bf}, {0x2100, 0x23ff}}};
    return std::any_of(ranges.begin(), ranges.end(),
        [character](const auto& range) { return character >= range.first && character <= range.second; });
}

bool isControl(char16_t character)
{
    return character < 0x20 || (character >= 0x7f && character < 0xa0);
}

ReportGlyph classified(char16_t character, quint32 index, float advance, quint32 blank, float blankAdvance)
{
    using Kind = ReportGlyph::Kind;
    if (character == u'\r' || character == u'\n')
        return {blank, 0, Kind::LineBreak};
    if (character == u'\t' || character == u' ')
        return {blank, blankAdvance, Kind::Blank};
    if (isControl(character))
        return {blank, 0, Kind::Plain};
    return {index, advance, index != 0 && standsForItself(character) ? Kind::Plain : Kind::NeedsShaping};
}

} // namespace

GlyphFont::GlyphFont(const ReportFont& font)
    : m_font(drawingFont(font))
    , m_rawFont(QRawFont::fromFont(m_font))
    , m_ascent(static_cast<float>(m_rawFont.ascent()))
    , m_lineHeight(static_cast<float>(m_rawFont.ascent() + m_rawFont.descent() + m_rawFont.leading()))
{
}

float GlyphFont::plainWidth(QStringView text) const
{
    float width = 0;
    for (const QChar character : text)
        width += glyph(character.unicode()).advance;
    return width;
}

bool GlyphFont::fitsPlainly(QStringView text, float width) const
{
    float used = 0;
    for (const QChar character : text) {
        const ReportGlyph& next = glyph(character.unicode());
        if (next.kind >= ReportGlyph::Kind::LineBreak)
            return false;
        used += next.advance;
    }
    return used <= width;
}

const GlyphFont::Block& GlyphFont::loadBlock(std::size_t index) const
{
    constexpr int size = 256;
    auto block = std::make_unique<Block>();
    const quint32 blank = m_rawFont.glyphIndexesForString(QStringLiteral(" ")).value(0);
    const auto advanceOf = [this](quint32 glyph) {
        return static_cast<float>(m_rawFont.advancesForGlyphIndexes({glyph}).value(0).x());
    };
    for (std::size_t low = 0; low < size; ++low) {
        const char16_t character = static_cast<char16_t>(index * size + low);
        const quint32 glyph =
            standsForItself(character) ? m_rawFont.glyphIndexesForString(QChar(character)).value(0) : 0;
        (*block)[low] = classified(character, glyph, glyph ? advanceOf(glyph) : 0, blank, advanceOf(blank));
    }
    m_blocks[index] = std::move(block);
    return *m_blocks[index];
}

const GlyphFont& FontShelf::get(const ReportFont& font) const
{
    auto entry = std::find_if(
        m_entries.begin(), m_entries.end(), [&font](const Entry& candidate) { return candidate.wanted == font; });
    if (entry == m_entries.end())
        entry = m_entries.insert(entry, {font, std::make_unique<GlyphFont>(font)});
    return *entry->font;
}

} // namespace lorvan
