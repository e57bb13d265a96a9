#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <exception>
#include <optional>

namespace lorvan {

/// A place in a database file of the older format; members that do not apply or are unknown are empty.
struct JetPlace {
    QString file; ///< Its name without the folder.
    QString table;
    std::optional<std::uint32_t> page; ///< Counted from 0, as in the file.
    std::optional<int> row; ///< The slot in the page, counted from 0.
    QString column;
};

/// Something in a file of the older format that is invalid or cannot be imported: what, in Greek, and where.
class JetError : public std::exception {
public:
    explicit JetError(const QString& reason);

    /// Adds those parts of the place that are not known yet.
    void locate(const JetPlace& place);

    [[nodiscard]] const JetPlace& place() const { return m_place; }
    [[nodiscard]] const QString& reason() const { return m_reason; }
    /// Place and reason on one line.
    [[nodiscard]] const char* what() const noexcept override { return m_line.constData(); }

private:
    void compose();

    QString m_reason;
    JetPlace m_place;
    QByteArray m_line;
};

/// A file that is not in the older format.
class NotAJetFile : public JetError {
    using JetError::JetError;
};

/// Runs `work`; adds `place` to any JetError that it throws.
template <typename Work> decltype(auto) locating(const JetPlace& place, const Work& work)
{
    try {
        return work();
    } catch (JetError& error) {
        error.locate(place);
        throw;
    }
}

} // namespace lorvan
