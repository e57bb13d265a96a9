#include "search/search_match.h"

#include "platform/date_text.h"
#include "platform/folded_text.h"

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

bool isWithin(const SearchedAmounts& wanted, Currency amount)
{
    return wanted.low <= amount && amount <= wanted.high;
}

/// Whether a row has what a term means.
struct MeaningMatch {
    const SearchedRow& row;

    bool operator()(std::monostate) const { return false; }
    bool operator()(const SearchedAmounts& wanted) const
    {
        if (row.income.isZero() && row.expense.isZero())
            return isWithin(wanted, {});
        return (!row.income.isZero() && isWithin(wanted, row.income))
            || (!row.expense.isZero() && isWithin(wanted, row.expense));
    }
    bool operator()(const SearchedDays& wanted) const
    {
        return storedDate(wanted.from) <= row.day && row.day <= storedDate(wanted.to);
    }
    bool operator()(const SearchedCode& wanted) const { return row.code == wanted.code; }
    bool operator()(SearchedKind wanted) const
    {
        switch (wanted) {
        case SearchedKind::Income:
            return !row.income.isZero();
        case SearchedKind::Expense:
            return !row.expense.isZero();
        default:
            return row.cheque;
        }
    }
};

bool meets(SearchReading reading, bool meaning, bool words)
{
    return (meaning && reading != SearchReading::Words) || (words && reading != SearchReading::Meaning);
}

} // namespace

SearchMatch::SearchMatch(SearchQuery query)
    : m_query(std::move(query))
    , m_judged(m_query.terms.size())
{
}

bool SearchMatch::hasWords(const SearchTerm& term, const SearchedRow& row)
{
    if (term.words.empty())
        return false;
    if (!m_isFolded)
        foldUtf8(row.description, m_folded);
    m_isFolded = true;
    const std::u16string_view text = m_folded;
    return std::all_of(
        term.words.begin(), term.words.end(), [text](const auto& word) { return text.find(word) != text.npos; });
}

SearchMatch::Judged SearchMatch::judge(const SearchTerm& term, const SearchedRow& row)
{
    return {std::visit(MeaningMatch{row}, term.meaning), hasWords(term, row)};
}

/// A row that only one term keeps out, by the way it is to be read, still counts for that term.
bool SearchMatch::accepts(const SearchedRow& row, std::vector<ReadingCounts>& counts)
{
    m_isFolded = false;
    const std::size_t none = m_query.terms.size();
    std::size_t refusing = none;
    for (std::size_t i = 0; i < m_query.terms.size(); ++i) {
        const SearchTerm& term = m_query.terms[i];
        const Judged judged = m_judged[i] = judge(term, row);
        if (meets(term.isAmbiguous() ? term.reading : SearchReading::Either, judged.meaning, judged.words))
            continue;
        if (refusing != none || (!judged.meaning && !judged.words))
            return false;
        refusing = i;
    }
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if ((refusing == none || refusing == i) && m_query.terms[i].isAmbiguous()) {
            counts[i].meaning += m_judged[i].meaning;
            counts[i].words += m_judged[i].words;
        }
    }
    return refusing == none;
}

} // namespace lorvan
