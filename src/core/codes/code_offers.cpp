#include "codes/code_offers.h"

#include "platform/search_text.h"

#include <QRegularExpression>

#include <algorithm>

namespace lorvan {
namespace {

std::vector<SearchText> wordsOf(const QString& typed)
{
    static const QRegularExpression between(
        QStringLiteral("[^\\p{L}\\p{M}\\p{N}]+"), QRegularExpression::UseUnicodePropertiesOption);
    std::vector<SearchText> words;
    for (const QString& word : typed.split(between, Qt::SkipEmptyParts))
        words.emplace_back(word);
    return words;
}

} // namespace

std::vector<int> offeredCodes(const std::vector<MovementCode>& codes, const QString& typed)
{
    std::vector<int> offered;
    if (std::none_of(typed.begin(), typed.end(), [](QChar each) { return each.isLetter(); }))
        return offered;
    const std::vector<SearchText> words = wordsOf(typed);
    for (int row = 0; row < static_cast<int>(codes.size()); ++row) {
        const QString& description = codes[static_cast<std::size_t>(row)].description;
        if (std::all_of(
                words.begin(), words.end(), [&](const SearchText& word) { return word.beginsWordIn(description); }))
            offered.push_back(row);
    }
    return offered;
}

} // namespace lorvan
