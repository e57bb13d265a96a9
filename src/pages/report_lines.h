#pragma once

#include "report_fonts.h"

#include <QStringView>
#include <QVarLengthArray>

namespace lorvan {

/// One line of a text that was broken into lines; start and length in characters, width in twips.
struct TextLine {
    qsizetype start = 0;
    qsizetype length = 0;
    float width = 0;
    bool isPlain = true; ///< Can be set glyph by glyph; else the text engine must shape it.
};

using TextLines = QVarLengthArray<TextLine, 4>;

/// Breaks a text at its carriage returns and, where a line is too long, at blanks; a word that is longer than the line
/// is broken anywhere. Blanks stay where they are except at a break. At least one line, even of no text and no width.
[[nodiscard]] TextLines breakIntoLines(const GlyphFont& font, QStringView text, float width);

} // namespace lorvan
