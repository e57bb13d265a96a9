#pragma once

#include <QString>

#include <vector>

namespace lorvan {

/// A column of a book's tables, and what its stored number or text means.
struct BookColumn {
    enum class Kind {
        Whole,
        Amount,
        Date,
        Flag,
        Text,
        Password ///< A text that is exported only on request.
    };

    const char* name;
    Kind kind;
};

struct BookTable {
    enum class Database { Main, Auxiliary };

    const char* name;
    Database database;
    std::vector<BookColumn> columns; ///< In stored order.
};

/// All tables of a book, including the engine's table of counters in the main database.
[[nodiscard]] const std::vector<BookTable>& bookTables();

} // namespace lorvan
