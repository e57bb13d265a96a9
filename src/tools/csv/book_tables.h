#pragma once

#include <QString>

#include <vector>

namespace lorvan {

/// A column of a book's tables, and what its stored number or text stands for.
struct BookColumn {
    enum class Kind {
        Whole,
        Amount,
        Date,
        Flag,
        Text,
        Password ///< A text that is exported only where that is asked for.
    };

    const char* name;
    Kind kind;
};

struct BookTable {
    enum class Database { Main, Auxiliary };

    const char* name;
    Database database;
    std::vector<BookColumn> columns; ///< In their stored order.
};

/// All tables of a book, the engine's one of the counters of the main database included.
[[nodiscard]] const std::vector<BookTable>& bookTables();

} // namespace lorvan
