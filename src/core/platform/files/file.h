#pragma once

#include <QByteArray>
#include <QString>

#include <stdexcept>
#include <sys/stat.h>

namespace lorvan {

/// Who may read and write a new file.
enum class FileAccess {
    Owner, ///< Its owner only.
    LikeFolder, ///< Group and others as for the folder, and in the folder's group where possible.
    Umask ///< According to the user's umask.
};

/// An open file of the program's own. It is closed when the object is destroyed. All operations throw FileError.
class File {
public:
    /// Takes ownership of the descriptor. `path` names the file in error messages.
    File(int descriptor, QString path);
    ~File();
    File(File&& other) noexcept;
    File& operator=(File&& other) noexcept;

    [[nodiscard]] int descriptor() const { return m_descriptor; }
    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] struct stat status() const;
    [[nodiscard]] qint64 size() const { return status().st_size; }

    /// Reads up to `most` bytes at the current position and advances it; returns fewer only at the end of the file.
    [[nodiscard]] QByteArray read(qint64 most);
    /// Writes all the bytes at the current position and advances it.
    void write(const QByteArray& bytes) { write(bytes.constData(), bytes.size()); }
    void write(const char* bytes, qint64 size);
    void seek(qint64 place) { m_place = place; }
    void truncate(qint64 size);
    /// Waits until the disk has confirmed everything written.
    void sync();

    /// Takes over the mode of the file that this one replaces, and its owner and group as far as the system allows.
    /// With FileAccess::Owner, others get no access whatever they had before.
    void takeAccessOf(const struct stat& replaced, FileAccess access = FileAccess::LikeFolder);

private:
    [[noreturn]] void fail() const;

    int m_descriptor = -1;
    QString m_path;
    qint64 m_place = 0;
};

/// The system refused an operation on a file or folder. what() names it and gives the reason.
class FileError : public std::runtime_error {
public:
    /// `number` is an errno.
    FileError(const QString& path, int number);
    /// For anything that is not a plain file, such as a link or a pipe.
    FileError(const QString& path, const QString& reason, int number = 0);

    [[nodiscard]] int number() const { return m_number; } ///< 0 if it was not the system itself that refused.
    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] const QString& reason() const { return m_reason; }

private:
    QString m_path;
    QString m_reason;
    int m_number = 0;
};

} // namespace lorvan
