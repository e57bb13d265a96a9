#pragma once

#include <QStringList>

namespace lorvan {

class Connection;
struct OpeningSteps;

inline constexpr int currentSchemaVersion = 3;

/// Makes the tables and indexes of an empty main database at the current version. One transaction.
void createMainSchema(Connection& connection);

/// Makes the tables and indexes of an empty auxiliary database. One transaction.
void createAuxiliarySchema(Connection& connection);

/// This program's own tables in the main database, which not every book has: a book made elsewhere, or not opened for
/// writing since, may lack them.
inline constexpr auto openingDifferenceTable = "opening_difference";
inline constexpr auto journalTable = "journal";
/// And the one in the auxiliary database.
inline constexpr auto sealsTable = "seals";
[[nodiscard]] const QStringList& ownTables();
/// True for those and for the one in the auxiliary database.
[[nodiscard]] bool isOwnTable(const QString& name);

/// The cheques have an index of their own with this condition.
inline constexpr auto chequeCondition = "epitagh<>0";
/// The condition at the end of a statement that makes an index, in lower case and without blanks; empty if it has none.
[[nodiscard]] QString indexCondition(const QString& statement);

/// Makes those of its own tables that are missing, inside the caller's transaction.
void createOwnTables(Connection& connection);
/// The same for the journal alone.
void createJournalTable(Connection& connection);

/// Makes the indexes that a book made elsewhere may lack, and the program's own tables, beginning the journal and
/// adopting the opening balance. An index of any name counts as present if its first column and its condition are the
/// wanted ones. If nothing is missing, it writes nothing and begins no transaction. The auxiliary database is only
/// read; it may be on the same connection.
void ensureMainSchema(Connection& main, Connection& auxiliary, const OpeningSteps& steps);
void ensureAuxiliarySchema(Connection& connection);

/// Makes the table of the seals, if there is none, in a database of the connection. Inside the caller's transaction.
void createSealsTable(Connection& connection, const QString& database);

} // namespace lorvan
