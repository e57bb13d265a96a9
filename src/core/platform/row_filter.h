#pragma once

#include <QStringList>

#include <vector>

namespace lorvan {

/// For each row, whether a filter shows it: the rows with a word that begins with the text, or if there is none, those
/// that contain it. Letter case and accents do not count; an empty text shows all.
[[nodiscard]] std::vector<bool> rowsThatMatch(const QStringList& rows, const QString& text);

} // namespace lorvan
