#include "report_painter.h"

#include "chart_painter.h"
#include "report_page.h"

#include <QGlyphRun>
#include <QImage>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace lorvan {

namespace {

constexpr double ruleWidth = 10; // twips, unless the device's own pixels are larger
constexpr double chartPoints = 8; // the size of texts in a chart
constexpr QRgb quietRule = qRgb(0xc8, 0xcc, 0xcc);

QColor colourOf(ReportColour colour)
{
    return QColor(
        static_cast<int>(colour & 0xff), static_cast<int>(colour >> 8 & 0xff), static_cast<int>(colour >> 16 & 0xff));
}

/// Collects glyphs of one font and colour and draws them at once: drawing the text cell by cell would take several
/// times as long.
class TextPainter {
public:
    explicit TextPainter(QPainter& painter)
        : m_painter(painter)
    {
    }

    void draw(const PlacedText& text)
    {
        if (text.font != m_font || text.colour != m_colour)
            flush();
        m_font = text.font;
        m_colour = text.colour;
        if (text.isPlain)
            collect(text);
        else
            drawShaped(text);
    }

    void flush()
    {
        if (m_glyphs.isEmpty())
            return;
        QGlyphRun run;
        run.setRawFont(m_font->rawFont());
        run.setRawData(m_glyphs.constData(), m_positions.constData(), static_cast<int>(m_glyphs.size()));
        m_painter.setPen(colourOf(m_colour));
        m_painter.drawGlyphRun(QPointF(), run);
        m_glyphs.clear();
        m_positions.clear();
    }

private:
    /// Blanks within the text are drawn, so that they are found when text in a PDF is copied or searched.
    void collect(const PlacedText& text)
    {
        float left = text.left;
        bool isInText = false;
        for (const QChar character : text.text) {
            const ReportGlyph& glyph = m_font->glyph(character.unicode());
            isInText = isInText || glyph.kind == ReportGlyph::Kind::Plain;
            if (isInText) {
                m_glyphs.append(glyph.index);
                m_positions.append(QPointF(left, text.baseline));
            }
            left += glyph.advance;
        }
    }

    void drawShaped(const PlacedText& text)
    {
        flush();
        QTextLayout layout(text.text.toString(), text.font->font());
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        m_painter.setPen(colourOf(text.colour));
        layout.draw(&m_painter, QPointF(text.left, text.baseline - line.ascent()));
    }

    QPainter& m_painter;
    const GlyphFont* m_font = nullptr;
    ReportColour m_colour = 0;
    QList<quint32> m_glyphs;
    QList<QPointF> m_positions;
};

void drawRules(QPainter& painter, const ReportPage& page)
{
    const double pixelsInTwip = std::hypot(painter.deviceTransform().m21(), painter.deviceTransform().m22());
    const double width = std::max(ruleWidth, pixelsInTwip > 0 ? 1 / pixelsInTwip : ruleWidth);
    for (const PlacedRule& rule : page.rules()) {
        const QColor colour = rule.look == PlacedRule::Look::Quiet ? QColor(quietRule) : QColor(Qt::black);
        painter.fillRect(QRectF(rule.left, rule.y - width / 2, rule.right - rule.left, width), colour);
    }
}

void drawPicture(QPainter& painter, const DrawnPicture& drawn)
{
    const QImage image(drawn.file);
    if (image.isNull())
        return;
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const double width = drawn.height * image.width() / image.height();
    painter.drawImage(QRectF(drawn.place, QSizeF(width, drawn.height)), image);
    painter.restore();
}

} // namespace

void paintReportPage(QPainter& painter, const ReportPage& page)
{
    painter.save();
    painter.setClipRect(page.clip(), Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing, false); // neighbouring shades meet without a seam
    for (const PlacedShade& shade : page.shades())
        painter.fillRect(shade.area, colourOf(shade.colour));
    drawRules(painter, page);
    for (const DrawnChart& drawn : page.charts())
        paintChart(painter, drawn.area, *drawn.chart, paperLook(chartPoints));
    for (const DrawnPicture& drawn : page.pictures())
        drawPicture(painter, drawn);
    TextPainter texts(painter);
    for (const PlacedText& text : page.texts())
        texts.draw(text);
    for (const PlacedText& text : page.carriedTexts())
        texts.draw(text);
    texts.flush();
    painter.restore();
}

} // namespace lorvan
