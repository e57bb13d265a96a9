#pragma once

#include "cashbook/cash_book.h"
#include "support/book_model.h"

#include <random>

namespace lorvan::test {

/// A seeded stream of inserts, modifications and deletions over the days of two months, in no order of days.
class RandomChanges {
public:
    explicit RandomChanges(unsigned seed);

    /// The next change to a book that holds these movements. Every fifth amount is zero or very large.
    [[nodiscard]] ModelChange next(const std::vector<ModelMovement>& movements);

private:
    [[nodiscard]] std::int64_t below(std::int64_t limit);
    [[nodiscard]] std::int64_t amount();

    std::mt19937 m_random;
};

/// What is typed to insert the movement.
[[nodiscard]] MovementDraft draftOf(const ModelMovement& movement);

/// Makes the change through the cash book's own operations.
[[nodiscard]] ChangeOutcome makeChange(CashBook& cashBook, const ModelChange& change);

} // namespace lorvan::test
