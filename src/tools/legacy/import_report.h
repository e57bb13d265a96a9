#pragma once

#include "cashbook/cash_day_audit.h"

#include <QString>

#include <ostream>
#include <vector>

namespace lorvan {

class Book;
class JetDamage;
struct LegacyBook;

/// What an import has brought over, counted and summed on both sides.
class ImportReport {
public:
    /// Holds the new book's cash days against its movements too. Throws SqlError, and CurrencyOverflow where the
    /// movements' sums are beyond its range.
    ImportReport(const LegacyBook& legacy, Book& made);

    /// True when the new book holds as many rows and the same sums as were read.
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
    std::vector<AuditedDay> m_differingDays; ///< Whose row is missing or says something else than the movements.
    std::uint64_t m_finerAmounts = 0;
    std::uint64_t m_droppedTimes = 0;
    bool m_asksForOpeningBalance;
};

/// The damage that was passed over, a line each.
void printDamage(const JetDamage& damage, std::ostream& out);

} // namespace lorvan
