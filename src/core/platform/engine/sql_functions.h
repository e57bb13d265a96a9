#pragma once

struct sqlite3;

namespace lorvan {

/// The engine's message for amount_add when the sum is outside the range of Currency.
inline constexpr char amountOverflowMessage[] = "amount out of range";

/// Registers on a connection:
/// - cdate('DD-MM-YYYY'): the stored form yyyymmdd, or an SQL error if the text is not a date;
/// - csng('1.234,56'): the stored ten-thousandths, or an SQL error if the text is not a number or is out of range;
/// - amount_add(a, b): the checked sum of two stored amounts, with NULL counting as zero;
/// - the collation greek (GreekCollation), which is used in queries only, never in a schema.
/// Throws SqlError when the engine refuses a registration.
void registerSqlFunctions(sqlite3* connection);

} // namespace lorvan
