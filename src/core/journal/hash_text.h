#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

namespace lorvan {

/// The text that a hash is taken of: lines "name=value" in UTF-8, each ended by a line feed. In a value a backslash is
/// doubled and a line feed written as backslash and n. A value that is missing has no line.
class HashText {
public:
    HashText& add(const char* name, const QString& value);
    HashText& add(const char* name, std::int64_t value);
    HashText& add(const char* name, const std::optional<QString>& value);
    HashText& add(const char* name, const std::optional<std::int64_t>& value);

    [[nodiscard]] const QByteArray& text() const { return m_text; }
    /// SHA-256 in 64 hexadecimal digits.
    [[nodiscard]] QString hash() const;

private:
    QByteArray m_text;
};

} // namespace lorvan
