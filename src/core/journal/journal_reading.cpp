#include "journal/journal_reading.h"

#include "platform/engine/connection.h"
#include "platform/engine/steady_reading.h"

#include <algorithm>
#include <functional>

namespace lorvan {
namespace {

/// Row numbers of a kind that are looked up at once, in some 10 ms.
constexpr std::int64_t fewRows = 20'000;

/// Part of the slice is left for the row that is being read when time is up, and for the lock.
constexpr std::chrono::milliseconds readingTime = JournalReading::slice * 7 / 10;

bool isOver(std::chrono::steady_clock::time_point deadline)
{
    return std::chrono::steady_clock::now() >= deadline;
}

bool isSingleSubject(const JournalFilter& filter)
{
    return !filter.subject.isEmpty() || filter.kind == JournalKind::Book;
}

} // namespace

JournalReading::JournalReading(JournalFilter filter)
    : m_match(std::move(filter))
{
}

std::vector<JournalRow> JournalReading::readOn(Connection& main, std::size_t most)
{
    m_isAtEnd = m_isAtEnd || !keepsJournal(main);
    if (m_isAtEnd)
        return {};
    if (!m_hasBegun) {
        findRareKind(main);
        m_hasBegun = true;
    }
    Found found;
    readSteadily(main, [&] {
        const Deadline deadline = std::chrono::steady_clock::now() + readingTime;
        found = m_ofKind ? readRareKind(main, most, deadline) : readBackwards(main, most, deadline);
    });
    m_next = found.next;
    m_nextOfKind = found.nextOfKind;
    m_isAtEnd = found.isAtEnd;
    return std::move(found.rows);
}

/// A kind of which there are few rows may stand far back; its subjects are found through their index.
void JournalReading::findRareKind(Connection& main)
{
    const JournalFilter& filter = m_match.filter();
    if (!filter.kind || filter.day || isSingleSubject(filter))
        return;
    const auto subjects = journalSubjects(*filter.kind);
    std::vector<std::int64_t> rows;
    bool isRare = false;
    readSteadily(main, [&] {
        rows.clear();
        const Deadline deadline = std::chrono::steady_clock::now() + readingTime;
        isRare = false;
        auto found = main.prepare("SELECT id FROM main.journal WHERE subject>=? AND subject<? LIMIT ?");
        found.bind(subjects.first, subjects.second, fewRows + 1);
        while (!isRare && !isOver(deadline)) {
            if (found.step())
                rows.push_back(found.integer(0));
            else
                isRare = true;
        }
    });
    if (!isRare || std::int64_t(rows.size()) > fewRows)
        return;
    std::sort(rows.begin(), rows.end(), std::greater<>());
    m_ofKind = std::move(rows);
}

Statement JournalReading::rowsFrom(Connection& main) const
{
    const JournalFilter& filter = m_match.filter();
    if (isSingleSubject(filter)) {
        auto rows = selectJournal(main, "WHERE subject=? AND id<=? ORDER BY id DESC");
        rows.bind(filter.subject.isEmpty() ? journal_subject::book() : filter.subject, m_next);
        return rows;
    }
    if (filter.day) {
        auto rows = selectJournal(main, "WHERE day=? AND id<=? ORDER BY id DESC");
        rows.bind(*filter.day, m_next);
        return rows;
    }
    auto rows = selectJournal(main, "WHERE id<=? ORDER BY id DESC");
    rows.bind(m_next);
    return rows;
}

JournalReading::Found JournalReading::readBackwards(Connection& main, std::size_t most, Deadline deadline) const
{
    Found found{{}, m_next, 0, false};
    auto rows = rowsFrom(main);
    while (!found.isAtEnd && found.rows.size() < most && !isOver(deadline)) {
        if (!rows.step()) {
            found.isAtEnd = true;
            break;
        }
        JournalRow row = journalRowIn(rows);
        found.isAtEnd = row.id == std::numeric_limits<std::int64_t>::min();
        found.next = found.isAtEnd ? row.id : row.id - 1;
        if (m_match.accepts(row))
            found.rows.push_back(std::move(row));
    }
    return found;
}

JournalReading::Found JournalReading::readRareKind(Connection& main, std::size_t most, Deadline deadline) const
{
    Found found{{}, m_next, m_nextOfKind, false};
    auto rows = selectJournal(main, "WHERE id=?");
    while (found.rows.size() < most && found.nextOfKind < m_ofKind->size() && !isOver(deadline)) {
        rows.bind((*m_ofKind)[found.nextOfKind++]);
        if (rows.step() && m_match.accepts(journalRowIn(rows)))
            found.rows.push_back(journalRowIn(rows));
        rows.reset();
    }
    found.isAtEnd = found.nextOfKind == m_ofKind->size();
    return found;
}

} // namespace lorvan
