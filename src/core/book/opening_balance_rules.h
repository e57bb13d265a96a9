#pragma once

#include "book/schema_upgrade.h"

#include <QString>

#include <variant>

namespace lorvan {

enum class OpeningBalanceFault { DateIsInvalid, AmountIsNoNumber };

/// Reads the two answers of the opening-balance window. An amount that is empty or blank is zero.
[[nodiscard]] std::variant<OpeningBalance, OpeningBalanceFault> readOpeningBalance(
    const QString& dateText, const QString& amountText, QDate today);

} // namespace lorvan
