#include "search/search_query.h"

#include "platform/folded_text.h"
#include "search/search_conditions.h"
#include "search/search_tokens.h"

#include <array>
#include <optional>
#include <utility>

namespace lorvan {
namespace {

std::u16string foldedText(const QString& text)
{
    std::u16string folded;
    foldUtf8(text.toUtf8().toStdString(), folded);
    return folded;
}

struct Keyword {
    std::u16string_view folded;
    SearchedKind kind;
    const char* meaning;
};

constexpr std::array keywords{
    Keyword{u"εσοδα", SearchedKind::Income, "κινήσεις εσόδων"},
    Keyword{u"εσοδο", SearchedKind::Income, "κινήσεις εσόδων"},
    Keyword{u"εξοδα", SearchedKind::Expense, "κινήσεις εξόδων"},
    Keyword{u"εξοδο", SearchedKind::Expense, "κινήσεις εξόδων"},
    Keyword{u"επιταγη", SearchedKind::Cheque, "κινήσεις με επιταγή"},
    Keyword{u"επιταγεσ", SearchedKind::Cheque, "κινήσεις με επιταγή"},
};

std::optional<MeaningRead> readKeyword(const std::u16string& folded)
{
    for (const Keyword& keyword : keywords) {
        if (keyword.folded == folded)
            return MeaningRead{keyword.kind, QString::fromUtf8(keyword.meaning)};
    }
    return std::nullopt;
}

bool isCodeWord(const std::u16string& folded)
{
    return folded == u"κωδ" || folded == u"κωδ." || folded == u"κωδικοσ";
}

/// Reads one token after the other; a comparison and a code may take the next one as well.
class QueryReading {
public:
    QueryReading(std::vector<SearchToken> tokens, QDate today)
        : m_tokens(std::move(tokens))
        , m_today(today)
    {
    }

    [[nodiscard]] SearchQuery read()
    {
        while (m_next < m_tokens.size()) {
            const SearchToken& token = m_tokens[m_next++];
            if (m_query.terms.size() == SearchQuery::mostTerms)
                m_query.notUnderstood += token.text;
            else
                take(token);
        }
        return std::move(m_query);
    }

private:
    void take(const SearchToken& token)
    {
        if (token.isQuoted)
            addWords(token.text);
        else if (isComparison(token.text))
            takeComparison(token.text);
        else if (isRange(token.text))
            addUnambiguous(token.text, readRange(token.text, m_today));
        else if (const auto folded = foldedText(token.text); !isCodeWord(folded) || !takeCode(token.text, folded))
            takePlain(token.text, folded);
    }

    void takeComparison(QString text)
    {
        if (comparisonSize(text) == text.size() && hasNextPlain())
            text += m_tokens[m_next++].text;
        addUnambiguous(text, readComparison(text));
    }

    bool takeCode(const QString& word, const std::u16string& folded)
    {
        bool isNumber = false;
        const qint32 code = hasNextPlain() ? m_tokens[m_next].text.toInt(&isNumber) : 0;
        if (!isNumber)
            return false;
        const QString number = m_tokens[m_next++].text;
        m_query.terms.push_back({word + u' ' + number, SearchedCode{code}, QStringLiteral("κωδικός %1").arg(code),
            {folded, foldedText(number)}});
        return true;
    }

    void takePlain(const QString& text, const std::u16string& folded)
    {
        auto meaning = readKeyword(folded);
        if (!meaning)
            meaning = readDayOrAmount(text, m_today);
        if (meaning)
            m_query.terms.push_back({text, meaning->meaning, meaning->text, {folded}});
        else
            addWords(text);
    }

    void addWords(const QString& text)
    {
        if (auto folded = foldedText(text); !folded.empty())
            m_query.terms.push_back({text, {}, {}, {std::move(folded)}});
        else
            m_query.notUnderstood += text;
    }

    void addUnambiguous(const QString& text, const std::optional<MeaningRead>& meaning)
    {
        if (meaning)
            m_query.terms.push_back({text, meaning->meaning, meaning->text, {}});
        else
            m_query.notUnderstood += text;
    }

    [[nodiscard]] bool hasNextPlain() const { return m_next < m_tokens.size() && !m_tokens[m_next].isQuoted; }

    const std::vector<SearchToken> m_tokens;
    const QDate m_today;
    std::size_t m_next = 0;
    SearchQuery m_query;
};

} // namespace

SearchQuery readSearch(QStringView typed, QDate today)
{
    if (typed.size() > SearchQuery::mostCharacters)
        return {{}, {}, true};
    return QueryReading(searchTokens(typed), today).read();
}

} // namespace lorvan
