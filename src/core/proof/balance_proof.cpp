#include "proof/balance_proof.h"

#include "audit/cash_day_findings.h"
#include "movements/movement_store.h"
#include "platform/engine/connection.h"
#include "proof/seal_reading.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>

namespace lorvan {
namespace {

constexpr int rowsBetweenLooks = 16; // at the clock

/// A statement on the movements after a row, in the order in which they are stored.
struct MovementRows {
    std::string sql;
    int row, day, income, expense; ///< Its columns.
};

MovementRows amountRows()
{
    return {
        "SELECT rowid, hmeromhnia, esoda, ejoda FROM kinhseis NOT INDEXED WHERE rowid>? ORDER BY rowid", 0, 1, 2, 3};
}

MovementRows wholeRows()
{
    std::string sql = "SELECT ";
    return {sql.append(movementColumns).append(", rowid FROM kinhseis NOT INDEXED WHERE rowid>? ORDER BY rowid"), 8, 2,
        4, 5};
}

/// About the number of rows; 0 without such a table.
std::int64_t greatestKey(Connection& book, const char* table, const char* key)
{
    constexpr std::int64_t mostRows = std::int64_t(1) << 40; // whatever key somebody has put in
    if (!book.knowsTable(table))
        return 0;
    auto row = book.prepare(std::string("SELECT max(").append(key).append(") FROM ").append(table));
    return row.step() ? std::clamp<std::int64_t>(row.integer(0), 0, mostRows) : 0;
}

bool isWrong(const AuditedDay& day)
{
    return !day.row || !day.repeatedKeys.empty() || day.sumsWrong || day.balanceWrong;
}

/// Everything that is read, from one state of the files, in steps.
class ProofReading {
public:
    enum class Wanted { Balances, BalancesAndSeals };

    ProofReading(Connection& book, Wanted wanted)
        : m_book(book)
        , m_seals(book)
        , m_steps{[this](Deadline until) { return readMovements(until); }, [this](Deadline) { return readDays(); }}
    {
        if (wanted == Wanted::Balances)
            return;
        m_steps.insert(m_steps.begin(), [this](Deadline until) { return m_seals.readSeals(until); });
        m_steps.emplace_back([this](Deadline until) { return m_seals.compareDays(until); });
        m_steps.emplace_back([this](Deadline until) { return m_seals.readJournal(until); });
    }

    [[nodiscard]] bool readOn(Deadline deadline)
    {
        while (m_next < m_steps.size()) {
            if (!m_steps[m_next](deadline))
                return false;
            ++m_next;
            if (isOver(deadline))
                break;
        }
        return m_next == m_steps.size();
    }

    [[nodiscard]] std::int64_t rowsRead() const { return m_proof.movements + m_seals.journalRows(); }
    /// 0 until the movements are read.
    [[nodiscard]] std::int64_t allRows() const { return m_allRows; }

    [[nodiscard]] BalanceProof result()
    {
        m_proof.seals = m_seals.seals();
        const BookFindings broken = m_seals.findings({m_days, m_differences});
        try {
            if (m_isTooLarge)
                throw CurrencyOverflow();
            compareBalances();
        } catch (const CurrencyOverflow&) {
            m_proof.findings.add({FindingKind::SumTooLarge});
        }
        m_proof.wrongDays += broken.count(FindingKind::SealedDayAltered) + broken.count(FindingKind::SealMissing);
        m_proof.findings.merge(broken);
        return std::move(m_proof);
    }

private:
    bool readMovements(Deadline deadline)
    {
        if (m_allRows == 0)
            m_allRows = greatestKey(m_book, "kinhseis", "rowid") + greatestKey(m_book, "journal", "id");
        const MovementRows wanted = m_seals.seals() > 0 ? wholeRows() : amountRows();
        m_sums = nullptr;
        auto rows = m_book.prepare(wanted.sql);
        for (rows.bind(m_lastRow); rows.step();) {
            m_lastRow = rows.integer(wanted.row);
            if (rows.storedType(wanted.day) == Statement::StoredType::Integer)
                take(rows, wanted);
            if (++m_proof.movements % rowsBetweenLooks == 0 && isOver(deadline))
                return false;
        }
        return true;
    }

    void take(const Statement& rows, const MovementRows& wanted)
    {
        if (const std::int64_t day = rows.integer(wanted.day); !m_sums || day != m_day) {
            m_day = day; // mostly the same as in the row before
            m_sums = &m_sumsByDay[day]; // an unordered map does not move its values
            m_content = m_seals.contentOf(day);
        }
        try {
            m_sums->income += rows.currency(wanted.income);
            m_sums->expense += rows.currency(wanted.expense);
        } catch (const CurrencyOverflow&) {
            m_isTooLarge = true;
        }
        if (m_content)
            m_content->add(movementIn(rows));
    }

    bool readDays()
    {
        m_days = readCashDays(m_book, m_proof.findings);
        m_differences = openingDifferences(m_book);
        m_opening = isOpeningKnown(m_book);
        return true;
    }

    void compareBalances()
    {
        const CashDayAudit audit = auditCashDays(std::move(m_days), m_sumsByDay, m_differences, m_opening);
        m_proof.days = static_cast<std::int64_t>(audit.days.size());
        m_proof.wrongDays = std::count_if(audit.days.begin(), audit.days.end(), isWrong);
        m_proof.findings.merge(findingsOf(audit));
    }

    Connection& m_book;
    SealReading m_seals;
    std::vector<std::function<bool(Deadline)>> m_steps;
    std::size_t m_next = 0;
    std::int64_t m_allRows = 0;
    BalanceProof m_proof;
    SumsByDay m_sumsByDay;
    bool m_isTooLarge = false; ///< A sum is out of range.
    std::vector<CashDayRow> m_days;
    OpeningDifferences m_differences;
    Opening m_opening = Opening::Guessed;
    std::int64_t m_lastRow = std::numeric_limits<std::int64_t>::min();
    std::int64_t m_day = 0; ///< Of that row; with its sums and, if it is sealed, its content.
    DaySums* m_sums = nullptr;
    ContentDigest* m_content = nullptr;
};

BalanceProof prove(
    Connection& book, const ProofPace& pace, ProofReading::Wanted wanted, const StepProgress& progress = {})
{
    std::unique_ptr<ProofReading> reading;
    readInSlices(book, pace, [&]() -> ReadSlice {
        reading = std::make_unique<ProofReading>(book, wanted);
        return [&](Deadline deadline) {
            const bool isAll = reading->readOn(deadline);
            if (progress)
                progress(reading->rowsRead(), reading->allRows());
            return isAll;
        };
    });
    return reading->result();
}

} // namespace

bool BalanceProof::isProved() const
{
    return findings.isInOrder() && findings.count(FindingKind::OpeningNotKept) == 0;
}

BalanceProof proveBalances(Connection& main, const ProofPace& pace)
{
    return prove(main, pace, ProofReading::Wanted::Balances);
}

BalanceProof proveBalancesAndSeals(Connection& book, const ProofPace& pace, const StepProgress& progress)
{
    return prove(book, pace, ProofReading::Wanted::BalancesAndSeals, progress);
}

} // namespace lorvan
