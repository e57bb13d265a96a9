#pragma once

#include <QString>

#include <stdexcept>

namespace lorvan {

/// The system refuses something that was to be done with a file or folder. what() names it and gives the reason.
class FileError : public std::runtime_error {
public:
    /// `number` is an errno.
    FileError(const QString& path, int number);
    /// For what is no file of ours, a link or a pipe for example.
    FileError(const QString& path, const QString& reason, int number = 0);

    [[nodiscard]] int number() const { return m_number; } ///< 0 where the system itself did not refuse.
    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] const QString& reason() const { return m_reason; }

private:
    QString m_path;
    QString m_reason;
    int m_number = 0;
};

} // namespace lorvan
