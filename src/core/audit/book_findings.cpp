#include "audit/book_findings.h"

#include <algorithm>
#include <utility>

namespace lorvan {

bool isNotice(FindingKind kind)
{
    return kind >= FindingKind::OpeningBalance;
}

bool isRepairable(FindingKind kind)
{
    switch (kind) {
    case FindingKind::RepeatedDay:
    case FindingKind::MissingDay:
    case FindingKind::DaySums:
    case FindingKind::DayBalance:
    case FindingKind::OpeningNotKept:
        return true;
    default:
        return false;
    }
}

void BookFindings::add(Finding finding)
{
    List& list = m_lists[finding.kind];
    if (++list.count <= static_cast<std::int64_t>(listed))
        list.first.push_back(std::move(finding));
}

void BookFindings::merge(const BookFindings& other)
{
    for (const auto& [kind, theirs] : other.m_lists) {
        List& list = m_lists[kind];
        list.count += theirs.count;
        const std::size_t room = listed - list.first.size();
        const auto taken = static_cast<std::ptrdiff_t>(std::min(room, theirs.first.size()));
        list.first.insert(list.first.end(), theirs.first.begin(), theirs.first.begin() + taken);
    }
}

std::int64_t BookFindings::count(FindingKind kind) const
{
    const auto list = m_lists.find(kind);
    return list == m_lists.end() ? 0 : list->second.count;
}

bool BookFindings::isInOrder() const
{
    return std::all_of(m_lists.begin(), m_lists.end(), [](const auto& each) { return isNotice(each.first); });
}

bool BookFindings::anythingRepairable() const
{
    return std::any_of(m_lists.begin(), m_lists.end(), [](const auto& each) { return isRepairable(each.first); });
}

} // namespace lorvan
