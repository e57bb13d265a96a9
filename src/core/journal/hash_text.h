#pragma once

#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct evp_md_ctx_st;

namespace lorvan {

/// SHA-256 of bytes that come piece by piece.
class Sha256 {
public:
    Sha256();
    void add(std::string_view bytes);
    /// Of all that was added, in 64 hexadecimal digits. Nothing can be added any more.
    [[nodiscard]] QString hash();

private:
    struct Free {
        void operator()(evp_md_ctx_st* context) const noexcept;
    };
    std::unique_ptr<evp_md_ctx_st, Free> m_context;
};

/// The text that a hash is taken of: lines "name=value" in UTF-8, each ended by a line feed. In a value a backslash is
/// doubled and a line feed written as backslash and n. A value that is missing has no line.
class HashText {
public:
    HashText& add(const char* name, const QString& value);
    HashText& add(const char* name, std::int64_t value);
    HashText& add(const char* name, const std::optional<QString>& value);
    HashText& add(const char* name, const std::optional<std::int64_t>& value);

    [[nodiscard]] const std::string& text() const { return m_text; }
    /// Begins anew.
    void clear() { m_text.clear(); }
    /// SHA-256 in 64 hexadecimal digits.
    [[nodiscard]] QString hash() const;

private:
    std::string m_text;
};

} // namespace lorvan
