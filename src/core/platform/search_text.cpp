#include "platform/search_text.h"

#include "platform/folded_text.h"

#include <algorithm>

namespace lorvan {

SearchText::SearchText(QStringView text)
    : m_folded(text.toString().normalized(QString::NormalizationForm_C))
{
    std::transform(m_folded.begin(), m_folded.end(), m_folded.begin(),
        [](QChar each) { return QChar(foldedLetter(each.unicode())); });
}

qsizetype SearchText::indexIn(QStringView text, qsizetype from) const
{
    if (isEmpty() || from > text.size())
        return -1;
    const auto sameLetter = [](QChar each, QChar wanted) { return foldedLetter(each.unicode()) == wanted.unicode(); };
    const auto found = std::search(text.begin() + from, text.end(), m_folded.begin(), m_folded.end(), sameLetter);
    return found == text.end() ? -1 : std::distance(text.begin(), found);
}

bool SearchText::beginsWordIn(QStringView text) const
{
    for (qsizetype at = indexIn(text); at >= 0; at = indexIn(text, at + 1)) {
        if (at == 0 || !text.at(at - 1).isLetterOrNumber())
            return true;
    }
    return false;
}

} // namespace lorvan
