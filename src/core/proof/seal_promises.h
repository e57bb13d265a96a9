#pragma once

#include "cashbook/day_seal.h"
#include "journal/journal.h"

#include <QString>

#include <cstdint>
#include <map>
#include <unordered_map>
#include <vector>

namespace lorvan {

/// Seals of a day that the journal tells of, and that are not there.
struct LostSeals {
    std::int64_t day = 0;
    std::int64_t versions = 0; ///< So many seals of the day does the journal tell of.
    QString found; ///< A hash of the rows whose seals are missing.
};

/// Holds the journal against the seals: each closing, each sealing of days that were closed earlier, each acceptance of
/// a day and each change of a sealed day, an import included, must have its seal, of its version. Not a change of a day
/// that the program saw to be altered, nor its closing: these are not sealed, and the day is altered until that is
/// accepted. A deletion of all data ends all claims. Takes the rows of the journal one by one, in the order of their
/// ids.
class SealPromises {
public:
    explicit SealPromises(const std::vector<DaySeal>& seals);

    /// A row that is not whole accepts nothing.
    void take(const JournalRow& row, bool isWhole);

    [[nodiscard]] std::vector<LostSeals> lost() const; ///< By day.
    [[nodiscard]] bool isAltered(std::int64_t day) const;
    [[nodiscard]] std::vector<std::int64_t> altered() const;

private:
    using Versions = std::unordered_map<std::int64_t, std::int64_t>; ///< Of seals, by their day.

    struct Day {
        std::int64_t versions = 0;
        std::vector<QString> lost; ///< The rows whose seal is missing.
        bool isAltered = false;
    };

    void promise(std::int64_t day, const QString& row);
    void promiseTold(const JournalRow& row);
    void acceptDay(const JournalRow& row);
    void noteDay(const JournalRow& row, bool isWhole);
    void noteMovement(const JournalRow& row);

    std::unordered_map<QString, Versions> m_seals; ///< By the row that they name.
    std::unordered_map<std::int64_t, Day> m_days;
};

} // namespace lorvan
