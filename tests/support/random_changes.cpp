#include "support/random_changes.h"

#include "platform/date_text.h"
#include "support/temporary_book.h"

namespace lorvan::test {

MovementDraft draftOf(const ModelMovement& movement)
{
    const bool income = movement.incomeCents != 0;
    return {income ? TemporaryBook::incomeCode : TemporaryBook::expenseCode, dateFromStored(movement.day), "κίνηση",
        cents(movement.incomeCents), cents(movement.expenseCents), {}, false};
}

RandomChanges::RandomChanges(unsigned seed)
    : m_random(seed)
{
}

std::int64_t RandomChanges::below(std::int64_t limit)
{
    return static_cast<std::int64_t>(m_random() % static_cast<std::uint64_t>(limit));
}

std::int64_t RandomChanges::amount()
{
    switch (below(10)) {
    case 0:
        return 0;
    case 1:
        return 13'107'200'001 + below(1000); // cents that a 32-bit float cannot hold
    default:
        return below(100'000);
    }
}

ModelChange RandomChanges::next(const std::vector<ModelMovement>& movements)
{
    ModelChange change;
    if (!movements.empty() && below(2) == 0) {
        change.kind = below(2) == 0 ? ModelChange::Kind::Modify : ModelChange::Kind::Remove;
        const auto chosen = static_cast<std::size_t>(below(static_cast<std::int64_t>(movements.size())));
        change.movement = movements[chosen];
    } else {
        change.movement.day = storedDate(QDate(2023, 12, 1).addDays(below(60)));
    }
    if (change.kind == ModelChange::Kind::Remove)
        return change;
    const std::int64_t drawn = amount();
    const bool income = below(2) == 0;
    change.movement.incomeCents = income ? drawn : 0;
    change.movement.expenseCents = income ? 0 : drawn;
    return change;
}

ChangeOutcome makeChange(CashBook& cashBook, const ModelChange& change)
{
    switch (change.kind) {
    case ModelChange::Kind::Insert:
        return cashBook.insert(draftOf(change.movement));
    case ModelChange::Kind::Modify:
        return cashBook.modify(change.movement.key, draftOf(change.movement));
    case ModelChange::Kind::Remove:
        break;
    }
    return cashBook.remove(change.movement.key);
}

} // namespace lorvan::test
