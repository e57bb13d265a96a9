#include "search/search_hits.h"

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

constexpr std::size_t textsAtOnce = 65'536; // bytes

} // namespace

void SearchBatch::add(SearchHit hit)
{
    hit.description = kept(hit.description);
    m_hits.push_back(hit);
}

std::string_view SearchBatch::kept(std::string_view text)
{
    if (m_texts.empty() || m_texts.back().capacity() - m_texts.back().size() < text.size())
        m_texts.emplace_back().reserve(std::max(textsAtOnce, text.size()));
    std::string& texts = m_texts.back();
    texts.append(text);
    return std::string_view(texts).substr(texts.size() - text.size());
}

void SearchTotals::add(const SearchHit& hit)
{
    ++count;
    try {
        income += hit.income;
        expense += hit.expense;
    } catch (const CurrencyOverflow&) {
        isOutOfRange = true;
    }
}

void SearchHits::add(SearchBatch batch)
{
    for (const SearchHit& hit : batch.m_hits) {
        m_days[hit.day].push_back(hit);
        m_totals.add(hit);
    }
    m_texts.push_back(std::move(batch.m_texts));
}

std::vector<const SearchHit*> SearchHits::newest(std::size_t least, const SearchHit* last) const
{
    std::vector<const SearchHit*> found;
    for (const auto& [day, hits] : m_days) {
        for (const SearchHit& hit : hits) {
            if (found.size() >= least && !last)
                return found;
            found.push_back(&hit);
            if (&hit == last)
                last = nullptr;
        }
    }
    return found;
}

void SearchHits::forEach(const std::function<void(const SearchHit&)>& take) const
{
    for (const auto& [day, hits] : m_days)
        std::for_each(hits.begin(), hits.end(), take);
}

} // namespace lorvan
