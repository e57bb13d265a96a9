#include "platform/files/file.h"

#include "platform/files/file_calls.h"
#include "platform/files/system_reason.h"

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace lorvan {

File::File(int descriptor, QString path)
    : m_descriptor(descriptor)
    , m_path(std::move(path))
{
}

File::~File()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

File::File(File&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
    , m_path(std::move(other.m_path))
    , m_place(other.m_place)
{
}

File& File::operator=(File&& other) noexcept
{
    std::swap(m_descriptor, other.m_descriptor);
    std::swap(m_path, other.m_path);
    std::swap(m_place, other.m_place);
    return *this;
}

void File::fail() const
{
    throw FileError(m_path, errno);
}

struct stat File::status() const
{
    struct stat found { };
    if (::fstat(m_descriptor, &found) != 0)
        fail();
    return found;
}

QByteArray File::read(qint64 most)
{
    QByteArray bytes(most, Qt::Uninitialized);
    qsizetype done = 0;
    while (done < most) {
        const auto length = FileCalls::current().readAt(
            m_descriptor, bytes.data() + done, static_cast<std::size_t>(most - done), m_place + done);
        if (length < 0 && errno == EINTR)
            continue;
        if (length < 0)
            fail();
        if (length == 0)
            break;
        done += length;
    }
    bytes.truncate(done);
    m_place += done;
    return bytes;
}

void File::write(const char* bytes, qint64 size)
{
    while (size > 0) {
        const auto length = FileCalls::current().writeAt(m_descriptor, bytes, static_cast<std::size_t>(size), m_place);
        if (length < 0 && errno == EINTR)
            continue;
        if (length == 0)
            errno = ENOSPC;
        if (length <= 0)
            fail();
        bytes += length;
        size -= length;
        m_place += length;
    }
}

void File::truncate(qint64 size)
{
    if (FileCalls::current().truncate(m_descriptor, size) != 0)
        fail();
}

void File::sync()
{
    if (FileCalls::current().sync(m_descriptor) != 0)
        fail();
}

void File::takeAccessOf(const struct stat& replaced, FileAccess access)
{
    if (::fchown(m_descriptor, replaced.st_uid, replaced.st_gid) != 0) [[maybe_unused]]
        const int grouped = ::fchown(m_descriptor, static_cast<uid_t>(-1), replaced.st_gid);
    const mode_t kept = access == FileAccess::Owner ? 0770 : 0777;
    if (::fchmod(m_descriptor, replaced.st_mode & kept) != 0 && errno != EPERM && errno != ENOTSUP)
        fail();
}

FileError::FileError(const QString& path, int number)
    : FileError(path, systemReason(number), number)
{
}

FileError::FileError(const QString& path, const QString& reason, int number)
    : std::runtime_error((path + QStringLiteral(": ") + reason).toStdString())
    , m_path(path)
    , m_reason(reason)
    , m_number(number)
{
}

} // namespace lorvan
