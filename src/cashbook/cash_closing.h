#pragma once

#include <QDate>

namespace lorvan {

class Connection;

/// True when the day's cash is closed for good.
[[nodiscard]] bool isClosed(Connection& auxiliary, QDate day);

/// Closes the day's cash; a day that is closed already stays as it is. One transaction.
void closeDay(Connection& auxiliary, QDate day);

} // namespace lorvan
