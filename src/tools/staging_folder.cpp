#include "tools/staging_folder.h"

#include "tools/refused.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace lorvan {
namespace {

constexpr qint64 saltLength = 16; // the first bytes of an encrypted file, which no two files share

/// The folder's name without the part that differs from one to the next.
QString namePrefix()
{
    return QStringLiteral(".lorvan-%1-").arg(QSysInfo::machineHostName());
}

QString notePath(const BookFiles& staged)
{
    return staged.dataFolder() + QStringLiteral("/moving");
}

QByteArray beginningOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(saltLength) : QByteArray();
}

/// A file descriptor that holds the lock; -1 when it cannot be had.
int lockFolder(const QString& folder)
{
    const int descriptor = open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor == -1 || flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return descriptor;
    close(descriptor);
    return -1;
}

/// True where the auxiliary database came out of the staging folder and the main one, which follows last, did not.
bool wasKilledWhileMoving(const BookFiles& staged, const BookFiles& target)
{
    const QByteArray note = beginningOf(notePath(staged));
    return note.size() == saltLength && BookFiles::exists(staged.mainDatabase())
        && !BookFiles::exists(staged.auxiliaryDatabase()) && !QFileInfo::exists(target.mainDatabase())
        && beginningOf(target.auxiliaryDatabase()) == note;
}

void takeBackMove(const BookFiles& staged, const BookFiles& target)
{
    if (!BookFiles::exists(staged.usageMarker()))
        QFile::remove(target.usageMarker());
    QFile::remove(target.auxiliaryDatabase());
}

} // namespace

StagingFolder::StagingFolder(const QString& dataFolder)
    : m_folder(dataFolder + u'/' + namePrefix() + QStringLiteral("XXXXXX"))
{
    if (!m_folder.isValid())
        throw Refused(
            QStringLiteral("Στον φάκελο %1 δεν γράφονται αρχεία. %2").arg(dataFolder, m_folder.errorString()));
    m_lock = lockFolder(m_folder.path());
}

StagingFolder::~StagingFolder()
{
    m_folder.remove();
    if (m_lock != -1)
        close(m_lock);
}

void StagingFolder::noteMove() const
{
    const QByteArray salt = beginningOf(files().auxiliaryDatabase());
    QFile note(notePath(files()));
    if (!note.open(QIODevice::WriteOnly) || note.write(salt) != salt.size() || !note.flush())
        throw Refused(
            QStringLiteral("Στον φάκελο %1 δεν γράφονται αρχεία. %2").arg(m_folder.path(), note.errorString()));
}

void removeStagingRemainders(const BookFiles& files)
{
    const QDir folder(files.dataFolder());
    const QStringList names =
        folder.entryList({namePrefix() + QStringLiteral("??????")}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    for (const QString& name : names) {
        const QString path = folder.filePath(name);
        const int lock = lockFolder(path);
        if (lock == -1)
            continue;
        const BookFiles staged(path);
        if (wasKilledWhileMoving(staged, files))
            takeBackMove(staged, files);
        QDir(path).removeRecursively();
        close(lock);
    }
}

} // namespace lorvan
