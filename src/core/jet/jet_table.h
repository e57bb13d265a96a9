#pragma once

#include "jet/jet_row.h"

#include <functional>

namespace lorvan {

/// Reads the rows of a table in the order of the file. Damage to a page or a row is passed to `damage` with its place,
/// and so is a JetError thrown by `take`, which means that the row cannot be used, and at the end a number of rows
/// other than the definition's. If the map of the table's pages cannot be read and damage is collected, all pages that
/// name the table as their owner are read instead.
void readRows(const JetFile& file, const JetDefinition& definition, const QString& table, JetDamage& damage,
    const std::function<void(const JetRow& row)>& take);

} // namespace lorvan
