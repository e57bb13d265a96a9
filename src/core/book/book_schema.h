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

/// This program's own tables of the main database, which stand beside those of every book: one made elsewhere, or not
/// opened for writing since, may lack them.
inline constexpr auto openingDifferenceTable = "opening_difference";
[[nodiscard]] const QStringList& ownTables();

/// True when the main database has a table of that name, in any letter case.
[[nodiscard]] bool hasTable(Connection& connection, const QString& name);

/// Makes the own tables that are missing, inside the caller's transaction.
void createOwnTables(Connection& connection);

/// Makes the indexes that a book made elsewhere may lack, under whatever names it has its own, and the own tables, the
/// opening balance adopted; an index counts as there when one begins with the wanted
/// column. Writes nothing, and begins no transaction, when all are there.
void ensureMainSchema(Connection& connection, const OpeningSteps& steps);
void ensureAuxiliaryIndexes(Connection& connection);

} // namespace lorvan
