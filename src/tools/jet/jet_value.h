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

/// A value of a row: nothing for NULL; the whole-number kinds as one.
using JetValue = std::variant<std::monostate, bool, std::int32_t, JetMoney, float, double, QDateTime, QString>;

/// Throws JetError for bytes that are no value of the column's kind, and for kinds that are not read.
[[nodiscard]] JetValue valueOf(const JetFile& file, const JetRow& row, const JetColumn& column);

/// Days since 1899-12-30, whose fraction is the time of that day, forwards for negative numbers too; to the nearest
/// second. Throws JetError outside the years 100 to 9999.
[[nodiscard]] QDateTime dateTimeOf(double days);

} // namespace lorvan
