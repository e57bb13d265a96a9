#include "document/carried_sums.h"

#include <algorithm>
#include <limits>

namespace lorvan {

void CarriedRows::begin(int item, const std::vector<int>& columns, const QString& name)
{
    end(item);
    m_sections.push_back({item, std::numeric_limits<int>::max(), name, columns, m_sums.size(), 0});
    m_isOpen = true;
}

void CarriedRows::end(int item)
{
    if (m_isOpen)
        m_sections.back().end = item;
    m_isOpen = false;
}

void CarriedRows::add(const std::vector<Currency>& amounts)
{
    if (!m_isOpen)
        return;
    Section& section = m_sections.back();
    for (const Currency amount : amounts) {
        const Currency before = section.rows == 0 ? Currency() : m_sums[m_sums.size() - section.columns.size()];
        m_sums.push_back(before + amount);
    }
    ++section.rows;
}

void CarriedRows::clear()
{
    m_sections.clear();
    m_sums.clear();
    m_isOpen = false;
}

const CarriedRows::Section* CarriedRows::sectionOf(int item) const
{
    const auto after = std::partition_point(
        m_sections.begin(), m_sections.end(), [item](const Section& section) { return section.first < item; });
    if (after == m_sections.begin())
        return nullptr;
    const Section& section = *std::prev(after);
    return item < section.end && section.rows > 0 ? &section : nullptr;
}

std::optional<CarriedSums> CarriedRows::before(int item) const
{
    const Section* const section = sectionOf(item);
    if (!section)
        return std::nullopt;
    const auto rows = static_cast<std::size_t>(std::min(item - section->first, section->rows));
    const std::size_t width = section->columns.size();
    const auto sums = m_sums.begin() + static_cast<std::ptrdiff_t>(section->firstSum + (rows - 1) * width);
    return CarriedSums{
        section->name, section->columns, std::vector<Currency>(sums, sums + static_cast<std::ptrdiff_t>(width))};
}

} // namespace lorvan
