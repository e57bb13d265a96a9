#include "platform/files/folder.h"

#include "platform/confirmation.h"
#include "platform/files/file.h"
#include "platform/files/file_calls.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <array>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <unistd.h>
#include <utility>

namespace lorvan {
namespace {

constexpr mode_t ownerOnly = 0600;
constexpr mode_t ownerOnlyFolder = 0700;
constexpr mode_t groupBits = 0060;
constexpr mode_t groupAndOthers = 0066;
constexpr mode_t everybody = 0666;
constexpr int deepest = 64; ///< Nested folders; ours go two deep.
/// Does not follow a link, and does not wait for the other end of a pipe.
constexpr int plain = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;

QByteArray encoded(const QString& name)
{
    return QFile::encodeName(name);
}

constexpr int randomDigits = 16;

QString randomName(const QString& prefix)
{
    return prefix + QStringLiteral("%1").arg(QRandomGenerator::system()->generate64(), randomDigits, 16, QChar(u'0'));
}

int flagsFor(Folder::Opening how)
{
    switch (how) {
    case Folder::Opening::Read:
        return O_RDONLY;
    case Folder::Opening::Write:
    case Folder::Opening::WriteOrMake:
        break;
    case Folder::Opening::MakeNew:
        return O_RDWR | O_CREAT | O_EXCL;
    }
    return O_RDWR;
}

bool knowsNoSync(int number)
{
    return number == EINVAL || number == ENOSYS;
}

} // namespace

Folder::Folder(int descriptor, QString path)
    : m_descriptor(descriptor)
    , m_path(std::move(path))
{
}

Folder::Folder(const QString& path)
    : m_path(QFileInfo(path).canonicalFilePath())
{
    if (m_path.isEmpty())
        throw FileError(path, ENOENT);
    m_descriptor =
        FileCalls::current().openAt(AT_FDCWD, encoded(m_path).constData(), O_RDONLY | O_DIRECTORY | plain, 0);
    if (m_descriptor < 0)
        throw FileError(m_path, errno);
}

Folder::~Folder()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

Folder::Folder(Folder&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
    , m_path(std::move(other.m_path))
{
}

Folder& Folder::operator=(Folder&& other) noexcept
{
    std::swap(m_descriptor, other.m_descriptor);
    std::swap(m_path, other.m_path);
    return *this;
}

void Folder::fail(const QString& name) const
{
    throw FileError(pathOf(name), errno);
}

int Folder::openInside(const QString& name, int flags, mode_t mode) const
{
    const int descriptor = FileCalls::current().openAt(m_descriptor, encoded(name).constData(), flags | plain, mode);
    if (descriptor < 0 && errno == ELOOP)
        throw FileError(pathOf(name), QStringLiteral("είναι σύνδεσμος (link) και όχι αρχείο του βιβλίου."));
    return descriptor;
}

File Folder::open(const QString& name, Opening how, FileAccess access) const
{
    const mode_t mode = access == FileAccess::Umask ? everybody : ownerOnly;
    int descriptor = openInside(name, flagsFor(how), mode);
    bool isNew = how == Opening::MakeNew;
    if (descriptor < 0 && errno == ENOENT && how == Opening::WriteOrMake) {
        descriptor = openInside(name, flagsFor(Opening::MakeNew), mode);
        isNew = descriptor >= 0;
        if (descriptor < 0 && errno == EEXIST) // somebody else was faster
            descriptor = openInside(name, flagsFor(Opening::Write), mode);
    }
    if (descriptor < 0)
        fail(name);
    File file(descriptor, pathOf(name));
    if (!S_ISREG(file.status().st_mode))
        throw FileError(pathOf(name), QStringLiteral("δεν είναι απλό αρχείο."));
    if (isNew)
        give(file, access);
    return file;
}

void Folder::give(const File& file, FileAccess access) const
{
    if (access == FileAccess::Umask)
        return;
    mode_t mode = ownerOnly;
    struct stat folder { };
    if (access == FileAccess::LikeFolder && ::fstat(m_descriptor, &folder) == 0) {
        mode |= folder.st_mode & groupAndOthers;
        const bool isOfItsGroup = file.status().st_gid == folder.st_gid
            || ::fchown(file.descriptor(), static_cast<uid_t>(-1), folder.st_gid) == 0;
        if (!isOfItsGroup)
            mode &= ~groupBits;
    }
    if (::fchmod(file.descriptor(), mode) != 0 && errno != EPERM && errno != ENOTSUP) // such a disk has no modes
        throw FileError(file.path(), errno);
}

Folder Folder::openFolder(const QString& name) const
{
    const int descriptor = openInside(name, O_RDONLY | O_DIRECTORY);
    if (descriptor < 0)
        fail(name);
    return {descriptor, pathOf(name)};
}

Folder Folder::openOrMakeFolder(const QString& name) const
{
    if (FileCalls::current().makeFolderAt(m_descriptor, encoded(name).constData(), ownerOnlyFolder) != 0
        && errno != EEXIST)
        fail(name);
    return openFolder(name);
}

Folder Folder::makeWorkFolder(const QString& prefix) const
{
    const QString name = randomName(prefix);
    if (FileCalls::current().makeFolderAt(m_descriptor, encoded(name).constData(), ownerOnlyFolder) != 0)
        fail(name);
    return openFolder(name);
}

Folder::Kind Folder::kindOf(const QString& name) const
{
    struct stat found { };
    if (::fstatat(m_descriptor, encoded(name).constData(), &found, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno == ENOENT)
            return Kind::Nothing;
        fail(name);
    }
    if (S_ISREG(found.st_mode))
        return Kind::File;
    return S_ISDIR(found.st_mode) ? Kind::Folder : Kind::Other;
}

QStringList Folder::names() const
{
    const int own = FileCalls::current().openAt(m_descriptor, ".", O_RDONLY | O_DIRECTORY | plain, 0);
    const auto close = [](DIR* stream) { ::closedir(stream); };
    const std::unique_ptr<DIR, decltype(close)> stream(own < 0 ? nullptr : ::fdopendir(own), close);
    if (!stream)
        throw FileError(m_path, errno);
    QStringList found;
    while (const dirent* const entry = ::readdir(stream.get())) {
        const QString name = QFile::decodeName(entry->d_name);
        if (name != QLatin1String(".") && name != QLatin1String(".."))
            found += name;
    }
    found.sort();
    return found;
}

void Folder::rename(const QString& name, const Folder& to, const QString& newName, Taken taken) const
{
    const auto call = [&](unsigned flags) {
        return FileCalls::current().renameAt(
                   m_descriptor, encoded(name).constData(), to.m_descriptor, encoded(newName).constData(), flags)
            == 0;
    };
    if (call(taken == Taken::Refuse ? RENAME_NOREPLACE : 0U))
        return;
    if (taken == Taken::Refuse && (knowsNoSync(errno))) { // not every file system supports this either
        errno = EEXIST;
        if (!to.exists(newName) && call(0))
            return;
    }
    throw FileError(errno == EEXIST ? to.pathOf(newName) : pathOf(name), errno);
}

void Folder::remove(const QString& name) const
{
    if (FileCalls::current().removeAt(m_descriptor, encoded(name).constData(), 0) != 0 && errno != ENOENT)
        fail(name);
}

bool Folder::removeEmpty(const QString& name) const
{
    return FileCalls::current().removeAt(m_descriptor, encoded(name).constData(), AT_REMOVEDIR) == 0;
}

void Folder::removeTree(const QString& name) const
{
    removeTree(name, 0);
}

void Folder::removeTree(const QString& name, int depth) const
{
    if (kindOf(name) != Kind::Folder) {
        remove(name);
        return;
    }
    openFolder(name).removeContents(depth);
    if (!removeEmpty(name))
        fail(name);
}

void Folder::removeContents(int depth) const
{
    struct stat self { };
    struct stat outer { };
    if (::fstat(m_descriptor, &self) != 0 || ::fstatat(m_descriptor, "..", &outer, 0) != 0)
        throw FileError(m_path, errno);
    if (depth == deepest || self.st_dev != outer.st_dev)
        throw FileError(m_path, QStringLiteral("δεν είναι φάκελος του προγράμματος και δεν αφαιρείται."));
    for (const QString& name : names())
        removeTree(name, depth + 1);
}

/// Removes what killed programs have left; a program that is still writing holds the lock of its file.
void Folder::removeParts(const QString& prefix) const noexcept
{
    try {
        for (const QString& each : names()) {
            if (!each.startsWith(prefix) || each.size() != prefix.size() + randomDigits || !isFile(each))
                continue;
            const File part = open(each, Opening::Write);
            if (FileCalls::current().lock(part.descriptor(), F_WRLCK, 0, 0) == 0)
                remove(each);
        }
    } catch (const FileError&) {
        // The next replacement tries again.
    }
}

void Folder::replace(const QString& name, const QByteArray& content, FileAccess access) const
{
    const QString prefix = u'.' + name + u'.';
    removeParts(prefix);
    const QString part = randomName(prefix);
    try {
        File file = open(part, Opening::MakeNew, access);
        (void)FileCalls::current().lock(file.descriptor(), F_WRLCK, 0, 0);
        struct stat replaced { };
        if (::fstatat(m_descriptor, encoded(name).constData(), &replaced, AT_SYMLINK_NOFOLLOW) == 0
            && S_ISREG(replaced.st_mode))
            file.takeAccessOf(replaced, access);
        file.write(content);
        file.sync();
        rename(part, *this, name, Taken::Replace);
    } catch (const FileError& error) {
        FileCalls::current().removeAt(m_descriptor, encoded(part).constData(), 0);
        throw FileError(pathOf(name), error.reason(), error.number());
    }
    confirm();
}

bool Folder::knowsSync() const
{
    if (FileCalls::current().sync(m_descriptor) == 0)
        return true;
    if (!knowsNoSync(errno))
        throw FileError(m_path, errno);
    return false;
}

void Folder::sync() const
{
    (void)knowsSync();
}

void Folder::confirm() const noexcept
{
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (FileCalls::current().sync(m_descriptor) == 0 || knowsNoSync(errno))
            return;
    }
    noteUnconfirmed();
}

} // namespace lorvan
