#pragma once

#include "platform/currency.h"

#include <QtGlobal>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace lorvan {

/// A movement that was found.
struct SearchHit {
    qint64 key = 0; ///< `aa`.
    qint32 day = 0; ///< As stored.
    qint32 code = 0;
    Currency income;
    Currency expense;
    bool cheque = false;
    std::string_view description; ///< UTF-8; belongs to the batch in which the movement was found.
};

/// Movements found one after the other, by descending key. Can be moved, not copied.
class SearchBatch {
public:
    SearchBatch() = default;
    SearchBatch(SearchBatch&&) noexcept = default;
    SearchBatch& operator=(SearchBatch&&) noexcept = default;

    /// Takes a copy of the description.
    void add(SearchHit hit);

    [[nodiscard]] const std::vector<SearchHit>& hits() const { return m_hits; }

private:
    friend class SearchHits;
    [[nodiscard]] std::string_view kept(std::string_view text);

    std::vector<SearchHit> m_hits;
    std::vector<std::string> m_texts; ///< None of them grows beyond its capacity, so that their characters do not move.
};

/// How many movements were found, and their sums.
struct SearchTotals {
    std::int64_t count = 0;
    Currency income;
    Currency expense;
    bool isOutOfRange = false; ///< A sum is more than an amount can be; the sums then mean nothing.

    void add(const SearchHit& hit);
};

/// All that a search has found so far, each movement at the place of its day: the newest day first, in it the greatest
/// key. Hits keep their address. Can be moved, not copied.
class SearchHits {
public:
    SearchHits() = default;
    SearchHits(SearchHits&&) noexcept = default;
    SearchHits& operator=(SearchHits&&) noexcept = default;

    /// Batches come in the order in which they were read.
    void add(SearchBatch batch);

    [[nodiscard]] const SearchTotals& totals() const { return m_totals; }

    /// At least that many of the newest, as far as there are, and all up to `last` if it is not null.
    [[nodiscard]] std::vector<const SearchHit*> newest(std::size_t least, const SearchHit* last) const;

    /// Passes all of them to `take`, in their order.
    void forEach(const std::function<void(const SearchHit&)>& take) const;

private:
    std::map<qint32, std::deque<SearchHit>, std::greater<>> m_days;
    std::vector<std::vector<std::string>> m_texts;
    SearchTotals m_totals;
};

} // namespace lorvan
