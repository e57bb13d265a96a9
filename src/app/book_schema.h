#pragma once

namespace lorvan {

class Connection;

inline constexpr int currentSchemaVersion = 3;

/// Makes the tables and indexes of an empty main database at the current version. One transaction.
void createMainSchema(Connection& connection);

/// Makes the tables and indexes of an empty auxiliary database. One transaction.
void createAuxiliarySchema(Connection& connection);

/// Makes the indexes that a book made elsewhere may lack, under whatever names it has its own, and this program's own
/// table `taken_imports`; an index counts as there when one begins with the wanted column. Writes nothing, and begins
/// no transaction, when all are there.
void ensureMainSchema(Connection& connection);
void ensureAuxiliaryIndexes(Connection& connection);

} // namespace lorvan
