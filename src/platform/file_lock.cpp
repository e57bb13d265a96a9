#include "platform/file_lock.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace lorvan {
namespace {

constexpr std::chrono::milliseconds betweenAttempts{10};

LockRefused refusal(const QString& path, int reason)
{
    return LockRefused((path + QStringLiteral(": ") + qt_error_string(reason)).toStdString());
}

bool isStillNamed(int descriptor, const QString& path)
{
    struct stat open { };
    struct stat named { };
    return ::fstat(descriptor, &open) == 0 && ::stat(QFile::encodeName(path).constData(), &named) == 0
        && open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

} // namespace

FileLock::FileLock(const QString& path, Missing missing, std::chrono::milliseconds patience)
    : m_descriptor(::open(
        QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC | (missing == Missing::Make ? O_CREAT : 0), 0666))
{
    if (m_descriptor < 0)
        throw refusal(path, errno);
    try {
        lock(path, patience);
    } catch (...) {
        ::close(m_descriptor);
        throw;
    }
}

FileLock::~FileLock()
{
    ::close(m_descriptor);
}

void FileLock::lock(const QString& path, std::chrono::milliseconds patience) const
{
    struct flock whole { };
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (::fcntl(m_descriptor, F_OFD_SETLK, &whole) != 0) {
        const bool isHeld = errno == EAGAIN || errno == EACCES || errno == EINTR;
        if (!isHeld || std::chrono::steady_clock::now() >= deadline)
            throw refusal(path, errno);
        std::this_thread::sleep_for(betweenAttempts);
    }
    if (!isStillNamed(m_descriptor, path))
        throw refusal(path, ESTALE);
}

} // namespace lorvan
