#include "proof/seal_reading.h"

#include "cashbook/cash_closing.h"
#include "cashbook/movement_store.h"
#include "journal/journal.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"

#include <algorithm>

namespace lorvan {
namespace {

constexpr int rowsBetweenLooks = 16; // at the clock

} // namespace

/// There are a few thousand, one for each closing.
bool SealReading::readSeals(Deadline)
{
    m_seals = allSeals(m_book);
    for (const auto& [day, seal] : lastSeals(m_seals))
        m_days.emplace(day, Day{seal, {}});
    m_journal.emplace(journalRowsOf(m_seals), JournalAuditing::Claims::ChainAlone);
    return true;
}

ContentDigest* SealReading::contentOf(std::int64_t day)
{
    const auto found = m_days.find(day);
    return found == m_days.end() ? nullptr : &found->second.content;
}

bool SealReading::holds(Day& day) const
{
    const QDate date = dateFromStored(day.seal->day);
    return isClosed(m_book, date)
        && (day.content.hash() == day.seal->content
            || contentDigest(movementsOf(m_book, date)) == day.seal->content); // stored in another order
}

bool SealReading::compareDays(Deadline deadline)
{
    do {
        if (m_days.empty())
            return true;
        const auto day = m_days.begin();
        if (!holds(day->second))
            m_altered.push_back({FindingKind::SealedDayAltered, day->second.seal->id, day->first});
        m_days.erase(day);
    } while (!isOver(deadline));
    return false;
}

bool SealReading::readJournal(Deadline deadline)
{
    if (!keepsJournal(m_book))
        return true;
    auto rows = selectJournal(m_book, "WHERE id>=? ORDER BY id");
    int read = 0;
    for (rows.bind(m_nextRow); rows.step();) {
        JournalRow row = journalRowIn(rows);
        const std::int64_t id = row.id;
        m_journal->take(std::move(row));
        if (id == std::numeric_limits<std::int64_t>::max())
            return true;
        m_nextRow = id + 1;
        if (++read % rowsBetweenLooks == 0 && isOver(deadline))
            return false;
    }
    return true;
}

BookFindings SealReading::findings() const
{
    std::vector<TrailFault> faults = m_altered;
    std::sort(faults.begin(), faults.end(), [](const auto& one, const auto& other) { return one.day < other.day; });
    BookFindings all;
    if (m_journal) {
        for (const TrailFault& fault : brokenLinks(m_seals, m_journal->audit()))
            all.add(findingOf(fault));
    }
    for (const TrailFault& fault : faults)
        all.add(findingOf(fault));
    return all;
}

} // namespace lorvan
