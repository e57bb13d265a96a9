#pragma once

struct sqlite3;

namespace lorvan {

/// The engine message of amount_add when the sum leaves the range of Currency.
inline constexpr char amountOverflowMessage[] = "amount out of range";

/// Registers on a connection:
/// - cdate('DD-MM-YYYY'): the stored form yyyymmdd, or an SQL error for a text that is no date;
/// - csng('1.234,56'): the stored ten-thousandths, or an SQL error for a text that is no number or out of range;
/// - amount_add(a, b): the checked sum of two stored amounts, NULL counting as zero;
/// - the collation greek (GreekCollation). It is named in queries only, never in a schema.
/// Throws SqlError when the engine refuses a registration.
void registerSqlFunctions(sqlite3* connection);

} // namespace lorvan
