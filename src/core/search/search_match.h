#pragma once

#include "search/search_query.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lorvan {

/// What a search looks at in a row of `kinhseis`.
struct SearchedRow {
    std::int64_t day = 0; ///< As stored.
    qint32 code = 0;
    Currency income;
    Currency expense;
    bool cheque = false;
    std::string_view description; ///< UTF-8.
};

/// How many movements meet all other terms and, of this one, the meaning or the words. They do not depend on how the
/// term itself is to be read.
struct ReadingCounts {
    std::int64_t meaning = 0;
    std::int64_t words = 0;

    friend bool operator==(const ReadingCounts&, const ReadingCounts&) = default;
};

/// Judges row after row by a query. A movement's amount is its income or its expense, whichever is not zero.
class SearchMatch {
public:
    explicit SearchMatch(SearchQuery query);

    [[nodiscard]] const SearchQuery& query() const { return m_query; }

    /// Whether the row meets all terms. Adds to `counts`, one for each term; only those of ambiguous terms change.
    [[nodiscard]] bool accepts(const SearchedRow& row, std::vector<ReadingCounts>& counts);

private:
    struct Judged {
        bool meaning = false;
        bool words = false;
    };

    [[nodiscard]] Judged judge(const SearchTerm& term, const SearchedRow& row);
    [[nodiscard]] bool hasWords(const SearchTerm& term, const SearchedRow& row);

    const SearchQuery m_query;
    std::vector<Judged> m_judged;
    std::u16string m_folded; ///< The row's description, once it is needed.
    bool m_isFolded = false;
};

} // namespace lorvan
