#include "platform/search_text.h"

#include <algorithm>
#include <array>

namespace lorvan {

namespace {

constexpr char16_t lastInTable = 0x1fff; // no character above it has an accent that people type

char16_t computeFolded(char16_t character)
{
    QChar folded(character);
    while (folded.decompositionTag() == QChar::Canonical)
        folded = folded.decomposition().front();
    return folded.toCaseFolded().unicode();
}

char16_t folded(char16_t character)
{
    static const auto table = [] {
        std::array<char16_t, lastInTable + 1> all{};
        for (char16_t each = 0; each <= lastInTable; ++each)
            all[each] = computeFolded(each);
        return all;
    }();
    return character <= lastInTable ? table[character] : computeFolded(character);
}

} // namespace

SearchText::SearchText(QStringView text)
    : m_folded(text.toString().normalized(QString::NormalizationForm_C))
{
    std::transform(
        m_folded.begin(), m_folded.end(), m_folded.begin(), [](QChar each) { return QChar(folded(each.unicode())); });
}

qsizetype SearchText::indexIn(QStringView text, qsizetype from) const
{
    if (isEmpty() || from > text.size())
        return -1;
    const auto sameLetter = [](QChar each, QChar wanted) { return folded(each.unicode()) == wanted.unicode(); };
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
