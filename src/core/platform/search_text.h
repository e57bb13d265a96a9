#pragma once

#include <QString>
#include <QStringView>

namespace lorvan {

/// A text to look for as Greek users type it: without regard to letter case, accents and the final sigma, so that
/// "ποσο" finds "Ποσό" and "ΠΟΣΟ".
class SearchText {
public:
    explicit SearchText(QStringView text);

    [[nodiscard]] bool isEmpty() const { return m_folded.isEmpty(); }
    [[nodiscard]] qsizetype length() const { return m_folded.size(); }

    /// Where the text stands for the first time, from that character on; -1 if nowhere. An empty text stands nowhere.
    [[nodiscard]] qsizetype indexIn(QStringView text, qsizetype from = 0) const;

private:
    QString m_folded;
};

} // namespace lorvan
