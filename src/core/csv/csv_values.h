#pragma once

#include "platform/currency.h"

#include <QByteArray>
#include <QDate>
#include <QString>

#include <optional>
#include <stdexcept>

namespace lorvan {

/// A text is not a valid value. what() says why, in Greek.
class CsvValueError : public std::runtime_error {
public:
    explicit CsvValueError(const QString& reason);
};

/// The formats of values in the CSV files of a book. Reading throws CsvValueError.

/// With a decimal point and two decimals or, if these do not give the exact amount, four: 1234.50, 0.0001.
[[nodiscard]] QByteArray csvAmount(Currency amount);
/// An optional minus, digits, and one, two or four decimals after a point. Three decimals are refused: 1.234 may be
/// meant as 1234.
[[nodiscard]] Currency amountFromCsv(const QByteArray& text);

/// yyyy-mm-dd; a stored number that is not a date is written as it is.
[[nodiscard]] QByteArray csvDate(std::int64_t stored);
[[nodiscard]] QDate dateFromCsv(const QByteArray& text);

/// In quotes if it is empty or contains a separator, a quote, a line end, or blanks at either end.
[[nodiscard]] QByteArray csvText(const QString& text);
/// Refuses NUL and anything that is not UTF-8.
[[nodiscard]] QString textFromCsv(const QByteArray& text);

/// A 32-bit integer.
[[nodiscard]] qint32 numberFromCsv(const QByteArray& text);
/// 0, 1 or -1.
[[nodiscard]] bool flagFromCsv(const QByteArray& text);

} // namespace lorvan
