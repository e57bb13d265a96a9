#pragma once

#include "cashbook/movement_check.h"
#include "platform/currency.h"
#include "users/sign_in.h"

#include <map>

namespace lorvan {

class Connection;

/// Many movements entered in one go, inside the caller's write transaction on the main database.
///
/// Days and balances come out as if CashBook::insert() had taken the movements one by one, those of the oldest day
/// first; but each day is rebuilt, and each later balance moved, once. Unlike a typed movement one of a batch may carry
/// an inactive code. No code may change, and no day be closed, while the object lives. All operations throw SqlError.
class MovementBatch {
public:
    /// The auxiliary database may be attached to the main one; then both are the same connection.
    MovementBatch(Connection& main, Connection& auxiliary, Rights rights);

    /// Why the movement may not be stored; closed days come first, then its content.
    [[nodiscard]] std::optional<Refusal> check(const MovementDraft& draft);

    /// Stores a movement, if check() allows, and leaves its day to settle(). Throws CurrencyOverflow.
    [[nodiscard]] std::optional<Refusal> add(const MovementDraft& draft);

    /// Writes the rows of all days that got movements and moves the balances of the days after them. To be called once,
    /// after the last add(). `progress` is told the days that are done, and all. Returns how many of the movements
    /// equal one that their day held before. Throws CurrencyOverflow.
    [[nodiscard]] qint64 settle(const std::function<void(qint64, qint64)>& progress = {});

private:
    [[nodiscard]] bool mayChange(QDate day);
    [[nodiscard]] std::variant<MovementCode, Refusal> checked(const MovementDraft& draft);
    [[nodiscard]] qint64 settleDay(QDate day);

    Connection& m_main;
    Connection& m_auxiliary;
    const Rights m_rights;
    const qint64 m_lastKeyBefore;
    std::map<qint32, std::optional<MovementCode>> m_codes;
    std::map<QDate, bool> m_mayChange;
    std::map<QDate, Currency> m_differences; ///< By how much each day's movements move the balance.
};

} // namespace lorvan
