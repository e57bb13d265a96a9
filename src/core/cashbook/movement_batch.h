#pragma once

#include "movements/movement_validation.h"
#include "platform/authority.h"
#include "platform/currency.h"

#include <map>
#include <vector>

namespace lorvan {

class Connection;

/// Adds many movements at once, inside the caller's write transaction on the main database.
///
/// Days and balances end up as if CashBook::insert() had added the movements one by one, oldest day first, but each day
/// is recalculated, and each later balance shifted, only once. Unlike a typed movement, one in a batch may have an
/// inactive code. No code may be changed, and no day be closed, while the object exists. All operations throw SqlError.
class MovementBatch {
public:
    /// The auxiliary database may be attached to the main one; then both parameters are the same connection.
    /// The journal is left to the caller.
    MovementBatch(Connection& main, Connection& auxiliary, Authority authority);

    /// Why the movement may not be stored; closed days are checked first, then the content.
    [[nodiscard]] std::optional<MovementRefusal> refusalOf(const MovementDraft& draft);

    /// Stores a movement if nothing stands in its way; its day is left to settle(). Throws CurrencyOverflow.
    [[nodiscard]] std::optional<MovementRefusal> add(const MovementDraft& draft);

    /// Writes the rows of all days with new movements and shifts the balances of the days after them. To be called
    /// once, after the last add(). `progress` is called with the number of days done and the total. Returns how many of
    /// the movements equal one that their day already held. Throws CurrencyOverflow.
    [[nodiscard]] qint64 settle(const std::function<void(qint64, qint64)>& progress = {});

    /// The days to which movements were added.
    [[nodiscard]] std::vector<QDate> days() const;
    /// The greatest key of a movement that was there before; 0 if there was none.
    [[nodiscard]] qint64 lastKeyBefore() const { return m_lastKeyBefore; }

private:
    [[nodiscard]] bool mayChange(QDate day);
    [[nodiscard]] std::variant<MovementCode, MovementRefusal> validate(const MovementDraft& draft);
    struct Added {
        Currency income;
        Currency expense;
    };
    [[nodiscard]] bool hadMovements(QDate day);
    [[nodiscard]] qint64 settleDay(QDate day, const Added& added);

    Connection& m_main;
    Connection& m_auxiliary;
    const Authority m_authority;
    const qint64 m_lastKeyBefore;
    std::map<qint32, std::optional<MovementCode>> m_codes;
    std::map<QDate, bool> m_mayChange;
    std::map<QDate, Added> m_added; ///< The sums of the movements that each day got.
};

} // namespace lorvan
