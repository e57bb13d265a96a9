#pragma once

#include "jet/jet_catalogue.h"
#include "jet/jet_damage.h"
#include "legacy/legacy_table.h"

#include <variant>
#include <vector>

namespace lorvan {

/// A value as stored in the book's own files: none, an integer, a text.
using LegacyCell = std::variant<std::monostate, std::int64_t, QString>;
using LegacyRow = std::vector<LegacyCell>; ///< In the order of LegacyTable::columns.

struct LegacyRows {
    const LegacyTable* table;
    std::vector<LegacyRow> rows; ///< By counter if the table has one, otherwise in the order of the file.
    QStringList missingColumns; ///< Columns that may be missing; amounts are then 0, other cells empty.
    std::uint64_t finerAmounts = 0; ///< Amounts kept to four decimals because no cent was close enough.
    std::uint64_t droppedTimes = 0; ///< Dates with a time of day, which a cash day does not have.
};

/// Reads one table. Amounts that are NULL become 0. Throws JetError for a missing table or column. Anything wrong with
/// a page, a row or the number of rows is damage; so is a row without a number or with one that is taken.
[[nodiscard]] LegacyRows readLegacyRows(
    const JetFile& file, const JetCatalogue& catalogue, const LegacyTable& table, JetDamage& damage);

} // namespace lorvan
