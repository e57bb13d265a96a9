#pragma once

#include <QDate>

#include <string_view>

namespace lorvan {

class Connection;

/// The movements' table as a FROM clause names it for a selection by period. Through the date index a movement costs
/// three times what it costs in the stored order, so a period with more than a third of all movements is read in that
/// order.
[[nodiscard]] std::string_view movementsTableFor(Connection& main, QDate start, QDate end);

} // namespace lorvan
