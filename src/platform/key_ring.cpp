#include "platform/key_ring.h"

#include <QFile>

#include <openssl/evp.h>

#include <array>
#include <utility>

namespace lorvan {
namespace {

constexpr int saltBytes = 16;
constexpr int keyBytes = 32;
constexpr int rounds = 64'000;

QByteArray saltOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(saltBytes) : QByteArray();
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

} // namespace lorvan
