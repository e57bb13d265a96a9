#pragma once

#include "document/report_document.h"

#include <QTextDocument>

#include <memory>
#include <vector>

namespace lorvan {

/// A heading of the manual.
struct ManualChapter {
    QString title;
    int level = 2; ///< 2 for a chapter, 3 for a part of one.
    int position = 0; ///< Of its first character in the document.
};

/// The manual, whose text is compiled in, laid out for reading.
[[nodiscard]] std::unique_ptr<QTextDocument> readManual();

[[nodiscard]] std::vector<ManualChapter> chaptersOf(const QTextDocument& manual);

/// The names of the manual's pictures, which are compiled in too, in their order.
[[nodiscard]] QStringList picturesOf(const QTextDocument& manual);

/// Makes every picture at most that wide, in pixels of which each has `ratio` of the screen's in each direction.
void fitPictures(QTextDocument& manual, int width, qreal ratio);

/// The position of the next place with that text, in the way of SearchText, at or after `from`, or before it if
/// `isBackward`; -1 if there is none in that direction.
[[nodiscard]] int findIn(const QTextDocument& manual, const QString& text, int from, bool isBackward);

/// The manual on paper.
[[nodiscard]] ReportDocument manualDocument();

} // namespace lorvan
