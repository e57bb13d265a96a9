#include "search/movement_search.h"

#include "platform/engine/connection.h"
#include "platform/engine/steady_reading.h"
#include "platform/stop_check.h"

namespace lorvan {
namespace {

using std::chrono::steady_clock;

/// Part of the slice is left for the rows that are being read when time is up, and for the lock.
constexpr std::chrono::milliseconds readingTime = MovementSearch::slice * 7 / 10;
constexpr std::chrono::milliseconds firstReadingTime = readingTime / 3; // something is shown soon
constexpr int rowsBetweenLooks = 16; // at the clock

} // namespace

MovementSearch::MovementSearch(SearchQuery query)
    : m_match(std::move(query))
{
    m_state.counts.resize(m_match.query().terms.size());
    m_state.isAtEnd = m_match.query().isEmpty();
}

SearchBatch MovementSearch::readOn(Connection& main)
{
    SearchBatch batch;
    if (m_state.isAtEnd)
        return batch;
    State state;
    readSteadily(main, [&] {
        batch = {};
        state = m_state;
        readSlice(main, state, batch);
    });
    m_state = std::move(state);
    m_isFirst = false;
    return batch;
}

void MovementSearch::readSlice(Connection& main, State& state, SearchBatch& batch)
{
    const auto deadline = steady_clock::now() + (m_isFirst ? firstReadingTime : readingTime);
    auto rows = main.prepare("SELECT aa, kvdikos, hmeromhnia, perigrafh, esoda, ejoda, epitagh FROM kinhseis"
                             " WHERE aa<=? ORDER BY aa DESC");
    rows.bind(state.next);
    int untilLook = rowsBetweenLooks;
    while (true) {
        if (!rows.step()) {
            state.isAtEnd = true;
            return;
        }
        const SearchedRow row{
            rows.integer(2), rows.number(1), rows.currency(4), rows.currency(5), rows.boolean(6), rows.utf8(3)};
        const std::int64_t key = rows.integer(0);
        state.greatest = std::max(state.greatest, key);
        if (m_match.accepts(row, state.counts))
            batch.add(
                {key, static_cast<qint32>(row.day), row.code, row.income, row.expense, row.cheque, row.description});
        state.isAtEnd = key == std::numeric_limits<std::int64_t>::min();
        state.next = state.isAtEnd ? key : key - 1;
        if (state.isAtEnd)
            return;
        if (--untilLook == 0) {
            untilLook = rowsBetweenLooks;
            if (steady_clock::now() >= deadline || !StopCheck::goesOn())
                return;
        }
    }
}

} // namespace lorvan
