#pragma once

#include "jet/jet_catalogue.h"
#include "jet/jet_damage.h"
#include "legacy/legacy_table.h"

#include <variant>
#include <vector>

namespace lorvan {

/// A value in the form in which the book's own files keep it: nothing, a whole number, a text.
using LegacyCell = std::variant<std::monostate, std::int64_t, QString>;
using LegacyRow = std::vector<LegacyCell>; ///< In the order of LegacyTable::columns.

struct LegacyRows {
    const LegacyTable* table;
    std::vector<LegacyRow> rows; ///< By counter where the table has one, otherwise as they lie in the file.
    QStringList missingColumns; ///< Of those that may be; amounts are 0 there, other cells empty.
    std::uint64_t finerAmounts = 0; ///< Amounts kept to four decimals, because no cent was near enough.
    std::uint64_t droppedTimes = 0; ///< Dates with a time of day, which a cash day has not.
};

/// Reads one table. Amounts that are NULL become 0. Throws JetError for a table or column that is missing; what is
/// wrong with a page, a row or the number of rows is damage: so are a row without a number and one whose number is
/// taken.
[[nodiscard]] LegacyRows readLegacyRows(
    const JetFile& file, const JetCatalogue& catalogue, const LegacyTable& table, JetDamage& damage);

} // namespace lorvan
