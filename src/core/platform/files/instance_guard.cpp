#include "platform/files/instance_guard.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace lorvan {
namespace {

constexpr qsizetype longestToken = 512; // bytes

/// A name in the kernel's abstract socket namespace: it has no file and disappears with the process.
QByteArray socketName(const QString& programFile)
{
    const QFileInfo info(programFile);
    const QString canonical = info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
    return QByteArray(1, '\0') + "lorvan-"
        + QCryptographicHash::hash(canonical.toUtf8(), QCryptographicHash::Sha1).toHex();
}

struct SocketAddress {
    sockaddr_un address{};
    socklen_t length = 0;

    [[nodiscard]] const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&address); }
};

SocketAddress addressOf(const QString& programFile)
{
    const QByteArray name = socketName(programFile);
    SocketAddress socket;
    socket.address.sun_family = AF_UNIX;
    std::memcpy(socket.address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    socket.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(name.size()));
    return socket;
}

int openSocket()
{
    return ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

/// The kernel guarantees who the sender is.
bool isFromThisUser(msghdr& message)
{
    const cmsghdr* const part = CMSG_FIRSTHDR(&message);
    if (!part || part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_CREDENTIALS)
        return false;
    ucred sender{};
    std::memcpy(&sender, CMSG_DATA(part), sizeof sender);
    return sender.uid == ::getuid();
}

} // namespace

InstanceGuard::InstanceGuard(const QString& programFile)
    : m_programFile(programFile)
{
}

InstanceGuard::~InstanceGuard()
{
    m_calls.reset();
    if (m_socket >= 0)
        ::close(m_socket);
}

bool InstanceGuard::isOnlyInstance()
{
    if (m_socket >= 0)
        return true;
    const int descriptor = openSocket();
    if (descriptor < 0)
        return true;
    const SocketAddress own = addressOf(m_programFile);
    if (::bind(descriptor, own.get(), own.length) != 0) {
        const bool taken = errno == EADDRINUSE;
        ::close(descriptor);
        return !taken;
    }
    m_socket = descriptor;
    return true;
}

bool InstanceGuard::runsElsewhere() const
{
    const int descriptor = m_socket < 0 ? openSocket() : -1;
    if (descriptor < 0)
        return false;
    const SocketAddress other = addressOf(m_programFile);
    const bool isThere = ::connect(descriptor, other.get(), other.length) == 0;
    ::close(descriptor);
    return isThere;
}

void InstanceGuard::callOther(const QByteArray& activationToken) const
{
    const int descriptor = openSocket();
    if (descriptor < 0)
        return;
    const SocketAddress other = addressOf(m_programFile);
    const QByteArray token = activationToken.left(longestToken);
    ::sendto(
        descriptor, token.constData(), static_cast<std::size_t>(token.size()), MSG_DONTWAIT, other.get(), other.length);
    ::close(descriptor);
}

void InstanceGuard::whenCalled(std::function<void(const QByteArray&)> answer)
{
    const int on = 1;
    if (m_socket < 0 || ::setsockopt(m_socket, SOL_SOCKET, SO_PASSCRED, &on, sizeof on) != 0)
        return;
    m_answer = std::move(answer);
    m_calls = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    QObject::connect(m_calls.get(), &QSocketNotifier::activated, m_calls.get(), [this] { receive(); });
}

void InstanceGuard::receive() const
{
    QByteArray token(longestToken, '\0');
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(ucred))> sender{};
    iovec bytes{token.data(), static_cast<std::size_t>(token.size())};
    msghdr message{};
    message.msg_iov = &bytes;
    message.msg_iovlen = 1;
    message.msg_control = sender.data();
    message.msg_controllen = sender.size();
    const ssize_t size = ::recvmsg(m_socket, &message, MSG_DONTWAIT | MSG_CMSG_CLOEXEC);
    if (size < 0 || !isFromThisUser(message))
        return;
    token.truncate(size);
    m_answer(token);
}

} // namespace lorvan
