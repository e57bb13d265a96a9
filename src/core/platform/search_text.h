#pragma once

#include <QString>
#include <QStringView>

namespace lorvan {

/// A text to search for as Greek users type it: letter case, accents and the final sigma do not matter, so that "ποσο"
/// finds "Ποσό" and "ΠΟΣΟ".
class SearchText {
public:
    explicit SearchText(QStringView text);

    [[nodiscard]] bool isEmpty() const { return m_folded.isEmpty(); }
    [[nodiscard]] qsizetype length() const { return m_folded.size(); }

    /// The position of the first match at or after `from`; -1 if there is none. An empty text is never found.
    [[nodiscard]] qsizetype indexIn(QStringView text, qsizetype from = 0) const;

    /// Whether a word of the text begins with this one; a word is a run of letters and digits.
    [[nodiscard]] bool beginsWordIn(QStringView text) const;

private:
    QString m_folded;
};

} // namespace lorvan
