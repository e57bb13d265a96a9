#include "report_lines.h"

#include <QTextLayout>

#include <algorithm>

namespace lorvan {

namespace {

/// Breaks one stretch of plain text that has no carriage returns.
class PlainBreaker {
public:
    PlainBreaker(const GlyphFont& font, QStringView text, float width, qsizetype offset, TextLines& lines)
        : m_font(font)
        , m_text(text)
        , m_width(width)
        , m_offset(offset)
        , m_lines(lines)
    {
    }

    void run()
    {
        for (qsizetype at = 0; at < m_text.size(); ++at) {
            const ReportGlyph& glyph = m_font.glyph(m_text[at].unicode());
            if (glyph.kind == ReportGlyph::Kind::Blank)
                passBlank(at);
            else if (m_used + glyph.advance > m_width && at > m_start)
                at = breakLine(at);
            else
                m_hasWord = true;
            m_used += m_font.glyph(m_text[at].unicode()).advance;
        }
        finish();
    }

private:
    void passBlank(qsizetype at)
    {
        if (m_hasWord && m_breakAt != at) {
            m_wordEnd = at;
            m_wordEndWidth = m_used;
        }
        if (m_hasWord)
            m_breakAt = at + 1;
    }

    /// Ends the line before the word that does not fit, or inside it if it is the only one; returns where the next line
    /// starts.
    qsizetype breakLine(qsizetype at)
    {
        const bool atBlank = m_breakAt > m_start;
        const qsizetype end = atBlank ? m_wordEnd : at;
        add(end, atBlank ? m_wordEndWidth : m_used);
        m_start = atBlank ? m_breakAt : at;
        m_used = 0;
        m_breakAt = -1;
        m_hasWord = true;
        return m_start;
    }

    void finish()
    {
        const bool blanksFit = m_used <= m_width || m_breakAt != m_text.size();
        add(blanksFit ? m_text.size() : m_wordEnd, blanksFit ? m_used : m_wordEndWidth);
    }

    void add(qsizetype end, float width) { m_lines.append({m_offset + m_start, end - m_start, width, true}); }

    const GlyphFont& m_font;
    QStringView m_text;
    float m_width;
    qsizetype m_offset;
    TextLines& m_lines;

    qsizetype m_start = 0; ///< of the line
    float m_used = 0; ///< from there to the current position
    bool m_hasWord = false;
    qsizetype m_breakAt = -1; ///< after the last blanks that follow a word
    qsizetype m_wordEnd = 0; ///< before those blanks
    float m_wordEndWidth = 0;
};

void breakShaped(const GlyphFont& font, QStringView text, float width, qsizetype offset, TextLines& lines)
{
    QTextLayout layout(text.toString(), font.font());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::max<double>(width, 1));
        lines.append(
            {offset + line.textStart(), line.textLength(), static_cast<float>(line.naturalTextWidth()), false});
    }
    layout.endLayout();
}

void breakStretch(const GlyphFont& font, QStringView text, float width, qsizetype offset, TextLines& lines)
{
    const bool needsShaping = std::any_of(text.begin(), text.end(),
        [&font](QChar character) { return font.glyph(character.unicode()).kind == ReportGlyph::Kind::NeedsShaping; });
    if (needsShaping)
        breakShaped(font, text, width, offset, lines);
    else
        PlainBreaker(font, text, width, offset, lines).run();
}

qsizetype endOfStretch(QStringView text, qsizetype start)
{
    const auto isBreak = [](QChar character) { return character == u'\r' || character == u'\n'; };
    return std::distance(text.begin(), std::find_if(text.begin() + start, text.end(), isBreak));
}

} // namespace

TextLines breakIntoLines(const GlyphFont& font, QStringView text, float width)
{
    TextLines lines;
    qsizetype start = 0;
    do {
        const qsizetype end = endOfStretch(text, start);
        breakStretch(font, text.sliced(start, end - start), width, start, lines);
        const bool isPair = text.sliced(end).startsWith(u"\r\n");
        start = end + (isPair ? 2 : 1);
    } while (start < text.size());
    return lines;
}

} // namespace lorvan
