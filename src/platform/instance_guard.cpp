#include "platform/instance_guard.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace lorvan {
namespace {

/// A name in the kernel's own socket namespace: it has no file and goes with the process.
QByteArray socketName(const QString& programFile)
{
    const QFileInfo info(programFile);
    const QString canonical = info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
    return QByteArray(1, '\0') + "lorvan-"
        + QCryptographicHash::hash(canonical.toUtf8(), QCryptographicHash::Sha1).toHex();
}

} // namespace

InstanceGuard::InstanceGuard(const QString& programFile)
    : m_programFile(programFile)
{
}

InstanceGuard::~InstanceGuard()
{
    if (m_socket >= 0)
        ::close(m_socket);
}

bool InstanceGuard::isOnlyInstance()
{
    if (m_socket >= 0)
        return true;
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor < 0)
        return true;
    const QByteArray name = socketName(m_programFile);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(name.size()));
    if (::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), length) != 0) {
        const bool taken = errno == EADDRINUSE;
        ::close(descriptor);
        return !taken;
    }
    m_socket = descriptor;
    return true;
}

} // namespace lorvan
