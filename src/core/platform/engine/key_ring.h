#pragma once

#include <QByteArray>
#include <QString>

#include <future>
#include <map>
#include <mutex>
#include <utility>

#include <sys/types.h>

namespace lorvan {

/// The key of one database file, derived from the password and the file's own salt.
class FileKey {
public:
    /// Derives it from the password and the 16 bytes of salt at the file's start: 64,000 rounds, some 40 ms.
    static FileKey derive(const QByteArray& password, const QByteArray& salt);

    /// The text that the engine takes instead of a password: x'…'.
    [[nodiscard]] const QByteArray& engineText() const { return m_engineText; }

private:
    QByteArray m_engineText;
};

/// Derives each file's key once for the whole process, however many connections are opened. Safe to use from several
/// threads. Keys are kept by the salt, so a file that was replaced gets its own.
class KeyRing {
public:
    explicit KeyRing(QByteArray password);
    ~KeyRing();
    KeyRing(const KeyRing&) = delete;
    KeyRing& operator=(const KeyRing&) = delete;

    /// Starts deriving the file's key in the background; a file that cannot be read is passed over.
    void prepare(const QString& path);

    /// The file's key, waiting for a derivation under way. A file too short to hold a salt, or none, gets a key that
    /// opens nothing: opening it then reports what is wrong. May be called while connections of the process hold locks
    /// on the file: the file that was read stays open with the ring, since closing it would drop them.
    [[nodiscard]] FileKey keyFor(const QString& path);

    /// The same for a copy, on which nobody holds a lock and which may be removed again: it is not kept open.
    [[nodiscard]] FileKey keyForCopy(const QString& path);

private:
    using FileIdentity = std::pair<dev_t, ino_t>;

    std::shared_future<FileKey> derivation(const QByteArray& salt, std::launch policy);
    QByteArray saltOf(const QString& path);

    const QByteArray m_password;
    std::map<FileIdentity, int> m_files; ///< Descriptors of the files that were read.
    std::mutex m_mutex;
    std::map<QByteArray, std::shared_future<FileKey>> m_keys;
};

} // namespace lorvan
