#pragma once

#include <QByteArray>
#include <QString>

#include <future>
#include <map>
#include <mutex>
#include <utility>

#include <sys/types.h>

namespace lorvan {

/// The key of one database file, derived from the password and the file's salt.
class FileKey {
public:
    /// Derives the key from the password and the 16 bytes of salt at the start of the file: 64,000 rounds, about 40 ms.
    static FileKey derive(const QByteArray& password, const QByteArray& salt);

    /// The text to give to the engine instead of a password: x'…'.
    [[nodiscard]] const QByteArray& engineText() const { return m_engineText; }

private:
    QByteArray m_engineText;
};

/// Derives each file's key only once in the process, however many connections are opened. Safe to use from several
/// threads. Keys are stored by salt, so a file that was replaced gets its own key.
class KeyRing {
public:
    explicit KeyRing(QByteArray password);
    ~KeyRing();
    KeyRing(const KeyRing&) = delete;
    KeyRing& operator=(const KeyRing&) = delete;

    /// Starts deriving the file's key in the background; ignores a file that cannot be read.
    void prepare(const QString& path);

    /// The file's key; waits if it is still being derived. A missing file, or one too short to hold a salt, gets a key
    /// that opens nothing: opening the file then reports what is wrong. May be called while connections of the process
    /// hold locks on the file: the key ring keeps the file open, since closing it would drop those locks.
    [[nodiscard]] FileKey keyFor(const QString& path);

    /// The same for a copy, which nobody has locked and which may be deleted later: the file is not kept open.
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
