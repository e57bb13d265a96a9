#pragma once

#include "audit/cash_day_audit.h"

#include <QString>

#include <ostream>
#include <vector>

namespace lorvan {

class Book;
class JetDamage;
struct LegacyBook;

/// What an import has transferred, counted and summed on both sides.
class ImportTally {
public:
    /// Also compares the new book's cash days with its movements. Throws SqlError, and CurrencyOverflow if the
    /// movements' sums are out of range.
    ImportTally(const LegacyBook& legacy, Book& made);

    /// True if the new book has the same number of rows and the same sums as were read.
    [[nodiscard]] bool agrees() const;
    void print(std::ostream& out) const;

private:
    struct Rows {
        QString table;
        std::int64_t read;
        std::int64_t stored;
    };
    struct Sums {
        Currency income;
        Currency expense;
        friend bool operator==(const Sums&, const Sums&) = default;
    };

    void printDays(std::ostream& out) const;

    static Sums sumsIn(const LegacyBook& legacy);
    static Sums sumsIn(Book& made);

    std::vector<Rows> m_rows;
    Sums m_old;
    Sums m_new;
    std::vector<AuditedDay> m_differingDays; ///< The row is missing or does not agree with the movements.
    std::uint64_t m_finerAmounts = 0;
    std::uint64_t m_droppedTimes = 0;
    bool m_asksForOpeningBalance;
};

/// Prints the damage that was ignored, one line each.
void printDamage(const JetDamage& damage, std::ostream& out);

} // namespace lorvan
