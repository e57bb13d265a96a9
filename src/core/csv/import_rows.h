#pragma once

#include "csv/csv_table.h"
#include "movements/movement.h"

#include <vector>

namespace lorvan {

/// The columns of the files that an import reads.
extern const std::vector<CsvColumn> groupColumns;
extern const std::vector<CsvColumn> codeColumns;
extern const std::vector<CsvColumn> movementColumns;
extern const std::vector<CsvColumn> openingColumns;
extern const std::vector<CsvColumn> counterColumns;

/// The movement in a row of `kinhseis.csv`. Throws BadRow.
[[nodiscard]] MovementDraft movementIn(const CsvTable& row);

} // namespace lorvan
