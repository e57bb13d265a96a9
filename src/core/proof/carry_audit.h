#pragma once

#include "audit/cash_day_audit.h"
#include "cashbook/day_seal.h"
#include "journal/journal.h"

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

namespace lorvan {

/// What is carried into a day, as the cash days and the opening differences stand.
class CarriedBalances {
public:
    CarriedBalances() = default;
    CarriedBalances(std::vector<CashDayRow> rows, OpeningDifferences differences);

    struct Carried {
        std::int64_t from = 0; ///< The latest cash day before; 0 if there is none.
        Currency balance;
    };
    /// No value if it is out of range.
    [[nodiscard]] std::optional<Carried> into(std::int64_t day) const;

private:
    std::vector<CashDayRow> m_rows; ///< By day.
    OpeningDifferences m_differences;
};

/// Holds what was carried into sealed days against the journal: since a day was last sealed, its carried balance may
/// have moved only by the changes of movements of earlier days, and of opening differences up to the day, that the
/// journal tells of. Of a day nothing is claimed where a later repair, an import of movements of earlier days, or an
/// acceptance or correction of an earlier day, may have moved it by any amount. Takes the rows of the journal in the
/// order of their ids.
class CarryAudit {
public:
    explicit CarryAudit(const std::vector<DaySeal>& seals);

    void take(const JournalRow& row);

    /// By how much the carried balance of a sealed day has moved without a change that explains it; zero if nothing is
    /// claimed.
    [[nodiscard]] Currency unexplained(const DaySeal& seal, const CarriedBalances::Carried& now) const;

private:
    using Amount = std::uint64_t; ///< Ten-thousandths; sums wrap around, and so do their differences.

    struct Sealing {
        std::int64_t row;
        Amount before; ///< Sum of all that was noted for days up to it.
    };
    struct Unknown {
        std::int64_t row;
        std::int64_t day; ///< The days after it may have moved by any amount.
    };

    void takeMovement(const JournalRow& row);
    void takeOfDay(const JournalRow& row);
    void takeOfBook(const JournalRow& row);
    void takeImport(const JournalRow& row);
    void takeOpening(const std::optional<QString>& state, Amount sign);
    [[nodiscard]] bool takeState(const QString& state, Amount sign);
    void add(std::size_t place, Amount amount);
    [[nodiscard]] Amount sumUpTo(std::size_t place) const;

    std::unordered_map<QString, std::vector<std::int64_t>> m_days; ///< Sealed, by the row that their last seal names.
    std::unordered_map<std::int64_t, Sealing> m_sealings; ///< By day.
    std::unordered_map<std::int64_t, std::int64_t> m_corrected; ///< The last row that corrected the day.
    std::vector<Unknown> m_unknown;
    std::vector<Amount> m_sums; ///< A Fenwick tree over all days.
};

} // namespace lorvan
