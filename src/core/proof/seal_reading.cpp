#include "proof/seal_reading.h"

#include "cashbook/cash_closing.h"
#include "journal/journal.h"
#include "movements/movement_store.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"

#include <map>
#include <set>

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
    m_openings = alteredOpenings(m_book);
    m_pass.emplace(m_seals, JournalAuditing::Claims::ChainAlone);
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
    for (rows.bind(m_nextRow); rows.step();) {
        const JournalRow row = journalRowIn(rows);
        m_pass->take(row);
        if (row.id == std::numeric_limits<std::int64_t>::max())
            return true;
        m_nextRow = row.id + 1;
        if (++m_journalRows % rowsBetweenLooks == 0 && isOver(deadline))
            return false;
    }
    return true;
}

/// Also those that were once seen to be altered.
std::vector<TrailFault> SealReading::alteredDays() const
{
    std::map<std::int64_t, TrailFault> days;
    const auto last = lastSeals(m_seals);
    for (const std::int64_t day : m_pass->promises().altered()) {
        if (const auto seal = last.find(day); seal != last.end())
            days[day] = {FindingKind::SealedDayAltered, seal->second->id, day};
    }
    for (const TrailFault& fault : m_altered)
        days[fault.day] = fault;
    std::vector<TrailFault> faults;
    for (const auto& [day, fault] : days)
        faults.push_back(fault);
    return faults;
}

std::optional<TrailFault> SealReading::movedCarry(
    const CarriedBalances& balances, const std::vector<TrailFault>& altered) const
{
    std::set<std::int64_t> others;
    for (const TrailFault& fault : altered)
        others.insert(fault.day);
    std::optional<TrailFault> moved;
    for (const auto& [day, seal] : lastSeals(m_seals)) {
        const auto now = balances.into(day);
        if (now && !others.contains(day))
            (void)noteUnexplained(m_pass->carries(), *seal, *now, moved);
    }
    return moved;
}

BookFindings SealReading::findings(const CarriedBalances& balances) const
{
    BookFindings all;
    if (!m_pass)
        return all;
    for (const TrailFault& fault : brokenLinks(m_seals, *m_pass))
        all.add(findingOf(fault));
    const std::vector<TrailFault> altered = alteredDays();
    for (const auto& faults : {altered, m_openings}) {
        for (const TrailFault& fault : faults)
            all.add(findingOf(fault));
    }
    for (const std::int64_t day : m_pass->counts().altered(m_seals))
        all.add(findingOf({FindingKind::CountAltered, 0, day}));
    if (const auto moved = movedCarry(balances, altered))
        all.add(findingOf(*moved));
    return all;
}

} // namespace lorvan
