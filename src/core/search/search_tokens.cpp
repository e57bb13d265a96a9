#include "search/search_tokens.h"

#include <QSet>

namespace lorvan {
namespace {

bool isQuote(QChar character)
{
    static const QSet<QChar> quotes{u'"', u'«', u'»', u'“', u'”', u'„'};
    return quotes.contains(character);
}

} // namespace

std::vector<SearchToken> searchTokens(QStringView typed)
{
    std::vector<SearchToken> tokens;
    QString text;
    bool isInQuotes = false;
    const auto end = [&] {
        if (!text.trimmed().isEmpty())
            tokens.push_back({text, isInQuotes});
        text.clear();
    };
    for (const QChar character : typed) {
        if (isQuote(character)) {
            end();
            isInQuotes = !isInQuotes;
        } else if (!isInQuotes && character.isSpace()) {
            end();
        } else {
            text += character;
        }
    }
    end();
    return tokens;
}

} // namespace lorvan
