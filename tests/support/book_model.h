#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace lorvan {
class Connection;
}

namespace lorvan::test {

/// What the cash book should hold, worked out without any of its code: amounts are whole cents, days yyyymmdd, and
/// every day is summed from scratch from all movements and opening differences.
struct ModelMovement {
    std::int64_t key = 0;
    int day = 0;
    std::int64_t incomeCents = 0;
    std::int64_t expenseCents = 0;

    friend bool operator==(const ModelMovement&, const ModelMovement&) = default;
};

struct ModelChange {
    enum class Kind : char { Insert = 'i', Modify = 'm', Remove = 'r' };
    Kind kind = Kind::Insert;
    ModelMovement movement; ///< Its key counts for Modify and Remove, its day for Insert.
};

/// The rows of all cash days, one line each, oldest first: "yyyymmdd income expense balance" in cents.
using CashDayLines = std::vector<std::string>;

class BookModel {
public:
    /// An inserted movement gets the key after the greatest ever given.
    void apply(const ModelChange& change);

    /// Makes a movement what it was at some time before; without a state there is none with the key.
    void put(std::int64_t key, const std::optional<ModelMovement>& state);

    /// So much was counted at the end of the day: earlier answers for it and for later days no longer count.
    void count(int day, std::int64_t cents);

    [[nodiscard]] std::vector<ModelMovement> movements() const;
    [[nodiscard]] std::optional<ModelMovement> find(std::int64_t key) const;
    [[nodiscard]] std::int64_t lastKey() const { return m_lastKey; }
    [[nodiscard]] CashDayLines cashDays() const;
    [[nodiscard]] std::int64_t balanceAtEndOf(int day) const; ///< In cents, also of a day without a row.

private:
    std::map<std::int64_t, ModelMovement> m_movements; // by key
    std::map<int, bool> m_days; // every day that ever had a movement keeps its row
    std::map<int, std::int64_t> m_differences; // by day
    std::int64_t m_lastKey = 0;
};

/// What the book holds, read with plain queries. A stored amount that is no whole cent shows as it is, with "!".
[[nodiscard]] std::vector<ModelMovement> storedMovements(Connection& main);
[[nodiscard]] CashDayLines storedCashDays(Connection& main);

} // namespace lorvan::test
