#pragma once

#include "platform/currency.h"

#include <QByteArray>
#include <QDate>
#include <QString>

#include <optional>
#include <stdexcept>

namespace lorvan {

/// A text that is not the value it stands for. what() says why, in Greek.
class CsvValueError : public std::runtime_error {
public:
    explicit CsvValueError(const QString& reason);
};

/// The forms of values in the CSV files of a book. Reading throws CsvValueError.

/// A point, and two decimals or, where these do not tell the amount exactly, four: 1234.50, 0.0001.
[[nodiscard]] QByteArray csvAmount(Currency amount);
/// An optional minus, digits, and one, two or four decimals after a point. Three are refused: 1.234 may be meant as
/// 1234.
[[nodiscard]] Currency amountFromCsv(const QByteArray& text);

/// yyyy-mm-dd; a stored number that is no date stands as it is.
[[nodiscard]] QByteArray csvDate(std::int64_t stored);
[[nodiscard]] QDate dateFromCsv(const QByteArray& text);

/// In quotes where it is empty or holds a separator, a quote, a line end, or blanks at an end.
[[nodiscard]] QByteArray csvText(const QString& text);
/// Refuses what is no UTF-8, and NUL.
[[nodiscard]] QString textFromCsv(const QByteArray& text);

/// A whole number of 32 bits.
[[nodiscard]] qint32 numberFromCsv(const QByteArray& text);
/// 0, 1 or -1.
[[nodiscard]] bool flagFromCsv(const QByteArray& text);

} // namespace lorvan
