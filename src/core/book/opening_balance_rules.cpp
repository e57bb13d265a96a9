#include "book/opening_balance_rules.h"

#include "platform/amount_text.h"
#include "platform/date_text.h"

namespace lorvan {

std::variant<OpeningBalance, OpeningBalanceFault> readOpeningBalance(
    const QString& dateText, const QString& amountText, QDate today)
{
    const auto day = readDate(dateText, today);
    if (!day)
        return OpeningBalanceFault::DateIsInvalid;
    if (amountText.trimmed().isEmpty())
        return OpeningBalance{*day, {}};
    const AmountReading amount = readAmount(amountText);
    if (!amount)
        return OpeningBalanceFault::AmountIsNoNumber;
    return OpeningBalance{*day, amount.amount};
}

} // namespace lorvan
