#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <variant>

struct sqlite3;
struct sqlite3_stmt;

namespace lorvan::bench {

using BareValue = std::variant<std::int64_t, const char*>;

/// The engine's own calls and nothing else: what an operation costs before any program is around it. Failures end the
/// process.
class BareConnection {
public:
    /// `key` is the password, or x'…' for a derived key. Same pragmas as the program's.
    BareConnection(const QString& path, const QByteArray& key);

    [[nodiscard]] sqlite3* handle() const { return m_handle.get(); }
    void execute(const char* sql) const;

private:
    struct Close {
        void operator()(sqlite3* handle) const noexcept;
    };
    std::unique_ptr<sqlite3, Close> m_handle;
};

/// A statement prepared once. Must not outlive its connection.
class BareStatement {
public:
    BareStatement(const BareConnection& connection, const char* sql);

    /// Binds, steps to the end, touching every column of every row, and resets. Returns the sum of the whole numbers.
    std::int64_t run(std::initializer_list<BareValue> values = {}) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* handle) const noexcept;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_handle;
};

} // namespace lorvan::bench
