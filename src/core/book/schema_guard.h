#pragma once

#include <QString>
#include <QStringList>

#include <stdexcept>

namespace lorvan {

class Connection;

/// A database contains something that no book has and that would run by itself or take the place of a table. what()
/// names it.
class ForeignObjects : public std::runtime_error {
public:
    explicit ForeignObjects(const QStringList& objects);
};

enum class BookDatabase { Main, Auxiliary };

/// What is wrong with the schema of a book's database, in Greek, one line per object. Control characters in names from
/// the file are escaped.
struct SchemaInspection {
    /// Tables that are missing, lack columns or are not tables, and indexes on expressions: the database must not be
    /// queried.
    QStringList unreadable;
    /// Triggers, other views and virtual tables: no book has them, and none is used.
    QStringList foreign;
    /// Tables, columns and indexes that another program has added; they do no harm.
    QStringList others;

    [[nodiscard]] bool isPlain() const { return unreadable.isEmpty() && foreign.isEmpty(); }
};

/// Looks only at the schema; the only table read is taytothta, once it is known to be a table. `schema` is "main" or
/// the name of an attached database. Throws SqlError.
[[nodiscard]] SchemaInspection inspectSchema(Connection& connection, const QString& schema, BookDatabase database);

/// Throws ForeignObjects unless the schema is plain. Throws SqlError.
void requirePlainSchema(Connection& connection, BookDatabase database);

/// For opening a book, before any query on its tables: throws ForeignObjects if a view or a virtual table has the name
/// of one of them, in the main or an attached database. Throws SqlError.
void refuseForeignObjects(Connection& connection);

} // namespace lorvan
