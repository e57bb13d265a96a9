#pragma once

#include <QString>
#include <QStringList>

#include <stdexcept>

namespace lorvan {

class Connection;

/// A database holds something that no book has, and that would act or stand in for its tables. what() names it.
class ForeignObjects : public std::runtime_error {
public:
    explicit ForeignObjects(const QStringList& objects);
};

enum class BookDatabase { Main, Auxiliary };

/// What is wrong with the schema of a book's database, in Greek, a line for each object. Names from the file are shown
/// with their control characters escaped.
struct SchemaInspection {
    QStringList unreadable; ///< A table is missing, lacks columns or is none, or an index computes: not to be queried.
    QStringList foreign; ///< Triggers, other views and virtual tables: no book has them, and none is used.
    QStringList others; ///< Tables, columns and indexes that another program has added; they do no harm.

    [[nodiscard]] bool isPlain() const { return unreadable.isEmpty() && foreign.isEmpty(); }
};

/// Looks at the schema alone; of the tables only taytothta is read, once it is known to be one. `schema` is "main" or
/// the name of an attached database. Throws SqlError.
[[nodiscard]] SchemaInspection inspectSchema(Connection& connection, const QString& schema, BookDatabase database);

/// Throws ForeignObjects unless the schema is plain; SqlError.
void requirePlainSchema(Connection& connection, BookDatabase database);

/// For the opening of a book, before any query on its tables: throws ForeignObjects where a view or a virtual table has
/// the name of one of them, in the main or an attached database; SqlError.
void refuseForeignObjects(Connection& connection);

} // namespace lorvan
