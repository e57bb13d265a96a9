#pragma once

#include <QDate>

#include <optional>

namespace lorvan {

class EntryField;

/// Judges a date field that was left: rewrites a valid date as "DD-MM-YYYY" and returns it. Anything else gets its
/// message and stays as it is.
[[nodiscard]] std::optional<QDate> checkDate(EntryField& field, QDate today);

} // namespace lorvan
