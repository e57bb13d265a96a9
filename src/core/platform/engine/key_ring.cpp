#include "platform/engine/key_ring.h"

#include "platform/files/file.h"
#include "platform/files/folder.h"

#include <QFile>
#include <QFileInfo>

#include <openssl/evp.h>

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace lorvan {
namespace {

constexpr int saltBytes = 16;
constexpr int keyBytes = 32;
constexpr int rounds = 64'000;

QByteArray saltIn(int descriptor)
{
    QByteArray salt(saltBytes, '\0');
    const auto length = ::pread(descriptor, salt.data(), saltBytes, 0);
    salt.truncate(std::max<qsizetype>(0, length));
    return salt;
}

} // namespace

FileKey FileKey::derive(const QByteArray& password, const QByteArray& salt)
{
    std::array<unsigned char, keyBytes> raw{};
    PKCS5_PBKDF2_HMAC_SHA1(password.constData(), static_cast<int>(password.size()),
        reinterpret_cast<const unsigned char*>(salt.constData()), static_cast<int>(salt.size()), rounds, keyBytes,
        raw.data());
    FileKey key;
    key.m_engineText = "x'" + QByteArray(reinterpret_cast<const char*>(raw.data()), keyBytes).toHex() + "'";
    return key;
}

KeyRing::KeyRing(QByteArray password)
    : m_password(std::move(password))
{
}

std::shared_future<FileKey> KeyRing::derivation(const QByteArray& salt, std::launch policy)
{
    const std::scoped_lock lock(m_mutex);
    auto& key = m_keys[salt];
    if (!key.valid())
        key = std::async(policy, &FileKey::derive, m_password, salt).share();
    return key;
}

KeyRing::~KeyRing()
{
    for (const auto& [identity, descriptor] : m_files)
        ::close(descriptor);
}

/// As long as a descriptor is open, the inode number is not given to another file. It also allows the salt to be read
/// again.
QByteArray KeyRing::saltOf(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat found { };
    if (::lstat(name.constData(), &found) != 0 || !S_ISREG(found.st_mode) || found.st_size < saltBytes)
        return {};
    const std::scoped_lock lock(m_mutex);
    const auto kept = m_files.find({found.st_dev, found.st_ino});
    if (kept != m_files.end())
        return saltIn(kept->second);
    const int descriptor = ::open(name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return {};
    if (::fstat(descriptor, &found) != 0) {
        ::close(descriptor);
        return {};
    }
    const auto [added, isNew] = m_files.try_emplace({found.st_dev, found.st_ino}, descriptor);
    if (!isNew)
        ::close(descriptor); // the name now belongs to a file that is kept already
    return saltIn(added->second);
}

void KeyRing::prepare(const QString& path)
{
    const QByteArray salt = saltOf(path);
    if (salt.size() == saltBytes)
        derivation(salt, std::launch::async);
}

FileKey KeyRing::keyFor(const QString& path)
{
    return derivation(saltOf(path), std::launch::deferred).get();
}

FileKey KeyRing::keyForCopy(const QString& path)
{
    QByteArray salt;
    try {
        const QFileInfo info(path);
        salt = Folder(info.path()).open(info.fileName(), Folder::Opening::Read).read(saltBytes);
    } catch (const FileError&) {
        // Opening the file will report what is wrong.
    }
    return derivation(salt, std::launch::deferred).get();
}

} // namespace lorvan
