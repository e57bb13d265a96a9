#include "platform/files/file_lock.h"

#include "platform/files/file.h"
#include "platform/files/file_calls.h"
#include "platform/files/system_reason.h"
#include "platform/stop_check.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <thread>

namespace lorvan {
namespace {

constexpr std::chrono::milliseconds betweenAttempts{10};

LockRefused refusal(const QString& path, int reason)
{
    return LockRefused((path + QStringLiteral(": ") + systemReason(reason)).toStdString());
}

File opened(const Folder& folder, const QString& name, FileLock::Missing missing, FileAccess access)
{
    const auto how = missing == FileLock::Missing::Make ? Folder::Opening::WriteOrMake : Folder::Opening::Write;
    try {
        return folder.open(name, how, access);
    } catch (const FileError& error) {
        throw LockRefused(error.what());
    }
}

bool isStillNamed(const File& file, const Folder& folder, const QString& name)
{
    struct stat named { };
    const struct stat open = file.status();
    return ::fstatat(folder.descriptor(), QFile::encodeName(name).constData(), &named, AT_SYMLINK_NOFOLLOW) == 0
        && open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

void lockWithin(const File& file, std::chrono::milliseconds patience)
{
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (FileCalls::current().lock(file.descriptor(), F_WRLCK, 0, 0) != 0) {
        const bool isHeld = errno == EAGAIN || errno == EACCES || errno == EINTR;
        if (!isHeld || std::chrono::steady_clock::now() >= deadline || !StopCheck::goesOn())
            throw refusal(file.path(), errno);
        std::this_thread::sleep_for(betweenAttempts);
    }
}

} // namespace

FileLock::FileLock(
    const Folder& folder, const QString& name, Missing missing, std::chrono::milliseconds patience, FileAccess access)
    : m_file(opened(folder, name, missing, access))
{
    lockWithin(m_file, patience);
    if (!isStillNamed(m_file, folder, name))
        throw refusal(m_file.path(), ESTALE);
}

} // namespace lorvan
