#pragma once

#include "report_fonts.h"

#include <QStringView>
#include <QVarLengthArray>

namespace lorvan {

/// One line of a text that was divided into lines; start and length in characters, width in twips.
struct TextLine {
    qsizetype start = 0;
    qsizetype length = 0;
    float width = 0;
    bool isPlain = true; ///< Can be set glyph by glyph; otherwise the text engine must shape it.
};

using TextLines = QVarLengthArray<TextLine, 4>;

/// Breaks a text at its carriage returns and, where a line is too long, at blanks; a word longer than the line is
/// broken anywhere. Blanks are kept except at a break. Returns at least one line, even for an empty text or zero width.
[[nodiscard]] TextLines breakIntoLines(const GlyphFont& font, QStringView text, float width);

} // namespace lorvan
