#pragma once

#include "jet/jet_row.h"

#include <QDateTime>

#include <variant>

namespace lorvan {

/// A currency value: a count of ten-thousandths.
struct JetMoney {
    std::int64_t tenThousandths;
    friend bool operator==(const JetMoney&, const JetMoney&) = default;
};

/// A value of a row: empty for NULL; all integer kinds give the same type.
using JetValue = std::variant<std::monostate, bool, std::int32_t, JetMoney, float, double, QDateTime, QString>;

/// Throws JetError if the bytes are not a value of the column's kind, or if the kind is not supported.
[[nodiscard]] JetValue valueOf(const JetFile& file, const JetRow& row, const JetColumn& column);

/// Days since 1899-12-30; the fraction is the time of that day, counted forwards for negative numbers too; rounded to
/// the nearest second. Throws JetError outside the years 100 to 9999.
[[nodiscard]] QDateTime dateTimeOf(double days);

} // namespace lorvan
