#pragma once

#include <QByteArray>
#include <QString>

#include <stdexcept>
#include <sys/stat.h>

namespace lorvan {

/// Who may read and write a file that is made.
enum class FileAccess {
    Owner, ///< Its owner alone.
    LikeFolder, ///< Group and others as the folder says, in the folder's group where that can be had.
    Umask ///< As the user's umask says.
};

/// An open file of the program's own, closed with the object. All operations throw FileError.
class File {
public:
    /// Takes the descriptor over. `path` names the file in failures.
    File(int descriptor, QString path);
    ~File();
    File(File&& other) noexcept;
    File& operator=(File&& other) noexcept;

    [[nodiscard]] int descriptor() const { return m_descriptor; }
    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] struct stat status() const;
    [[nodiscard]] qint64 size() const { return status().st_size; }

    /// Up to `most` bytes from where the file stands, and goes on behind them; fewer at its end alone.
    [[nodiscard]] QByteArray read(qint64 most);
    /// All of the bytes where the file stands, and goes on behind them.
    void write(const QByteArray& bytes) { write(bytes.constData(), bytes.size()); }
    void write(const char* bytes, qint64 size);
    void seek(qint64 place) { m_place = place; }
    void truncate(qint64 size);
    /// Has the disk confirm all that was written.
    void sync();

    /// Takes the mode of the file that this one replaces, and its owner and group as far as the system lets us. With
    /// FileAccess::Owner others get nothing whatever they had.
    void takeAccessOf(const struct stat& replaced, FileAccess access = FileAccess::LikeFolder);

private:
    [[noreturn]] void fail() const;

    int m_descriptor = -1;
    QString m_path;
    qint64 m_place = 0;
};

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
