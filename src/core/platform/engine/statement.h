#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

struct sqlite3_stmt;

namespace lorvan {

class Connection;

/// One prepared statement on loan from its connection, which must outlive it. When it goes out of scope it is reset, so
/// that it holds no lock, and returned to the connection for reuse.
///
/// Parameters are numbered from 1, columns from 0. Reading NULL yields zero, false, the empty text or an invalid date.
/// Binding and stepping throw SqlError.
class Statement {
public:
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&&) = delete;
    ~Statement();

    /// Binds the values to the parameters 1, 2, 3 and so on.
    template <typename... Values> Statement& bind(const Values&... values)
    {
        int parameter = 0;
        (bindAt(++parameter, values), ...);
        return *this;
    }

    void bindAt(int parameter, const QString& text); ///< Copies the text. A null text is bound as an empty one.
    void bindAt(int parameter, std::nullptr_t); ///< As NULL.
    void bindAt(int parameter, const std::optional<QString>& text); ///< NULL if there is no value.
    void bindAt(int parameter, QDate date); ///< As yyyymmdd.
    void bindAt(int parameter, Currency amount); ///< As ten-thousandths.
    /// A boolean is bound as -1 or 0. There are no other implicit conversions, least of all from floating-point
    /// numbers.
    template <std::integral Integer> void bindAt(int parameter, Integer value)
    {
        if constexpr (std::same_as<Integer, bool>)
            bindInteger(parameter, value ? -1 : 0);
        else
            bindInteger(parameter, static_cast<std::int64_t>(value));
    }
    void bindAt(int parameter, std::optional<std::int64_t> value); ///< NULL if there is no value.

    /// True if there is a row, false if there are no more.
    [[nodiscard]] bool step();
    /// For a statement that returns no rows: runs it to the end and returns how many rows it changed.
    int run();
    /// Makes it ready to run again; the bound values are kept.
    void reset();

    enum class StoredType { Null, Integer, Fraction, Text, Bytes };

    /// The type of the value as stored in the file. Call it before the value is read, which may convert it.
    [[nodiscard]] StoredType storedType(int column) const;
    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] qint32 number(int column) const; ///< Truncated to 32 bits, the width that the files promise.
    [[nodiscard]] Currency currency(int column) const;
    [[nodiscard]] QDate date(int column) const;
    [[nodiscard]] bool boolean(int column) const; ///< Any non-zero value is true.
    [[nodiscard]] QString text(int column) const;
    /// The bytes of text(), valid until the next step.
    [[nodiscard]] std::string_view utf8(int column) const;

private:
    friend class Connection;
    /// Rows that are not returned until it is known that they belong together.
    struct Ahead;
    Statement(Connection& connection, sqlite3_stmt* handle);

    [[nodiscard]] bool stepEngine();
    [[nodiscard]] bool stepAhead();
    [[nodiscard]] std::unique_ptr<Ahead> fetch();

    void bindInteger(int parameter, std::int64_t value);
    void check(int code) const;

    Connection* m_connection;
    sqlite3_stmt* m_handle;
    std::unique_ptr<Ahead> m_ahead;
};

} // namespace lorvan
