#include "tools/new_folder.h"

#include "platform/durable_files.h"
#include "tools/refused.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace lorvan {
namespace {

QString emptyPlace(const QString& place)
{
    const QFileInfo info(QDir::cleanPath(QFileInfo(place).absoluteFilePath()));
    if (info.isSymLink() || (info.exists() && !info.isDir()))
        throw Refused(QStringLiteral("Το %1 υπάρχει ήδη και δεν είναι φάκελος.").arg(info.filePath()));
    if (info.isDir()
        && !QDir(info.filePath()).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System))
        throw Refused(QStringLiteral("Ο φάκελος %1 δεν είναι κενός. Τίποτα δεν αντικαθίσταται.").arg(info.filePath()));
    if (!QFileInfo(info.path()).isDir())
        throw Refused(QStringLiteral("Δεν υπάρχει ο φάκελος %1.").arg(info.path()));
    return info.filePath();
}

/// The hidden name without the part that differs from one to the next.
QString hiddenPrefix()
{
    return QStringLiteral(".lorvan-export-%1-").arg(QSysInfo::machineHostName());
}

/// A descriptor that holds the lock; -1 when it cannot be had.
int lockFolder(const QString& folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor == -1 || ::flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return descriptor;
    ::close(descriptor);
    return -1;
}

void removeRemainders(const QString& folder)
{
    const QStringList names = QDir(folder).entryList(
        {hiddenPrefix() + QStringLiteral("??????")}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    for (const QString& name : names) {
        const QString path = folder + u'/' + name;
        const int lock = lockFolder(path);
        if (lock == -1)
            continue;
        QDir(path).removeRecursively();
        ::close(lock);
    }
}

/// Throws Refused when the disk does not confirm a file.
void confirmFiles(const QString& folder)
{
    try {
        for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files))
            syncFile(file.filePath());
    } catch (const std::runtime_error& failure) {
        throw Refused(QString::fromUtf8(failure.what()));
    }
    syncFolder(folder);
}

} // namespace

NewFolder::NewFolder(const QString& place)
    : m_place(emptyPlace(place))
    , m_staging(QFileInfo(m_place).path() + u'/' + hiddenPrefix() + QStringLiteral("XXXXXX"))
    , m_lock(lockFolder(m_staging.path()))
{
    if (!m_staging.isValid())
        throw Refused(QStringLiteral("Στον φάκελο %1 δεν γράφονται αρχεία. %2")
                          .arg(QFileInfo(m_place).path(), m_staging.errorString()));
    removeRemainders(QFileInfo(m_place).path());
}

NewFolder::~NewFolder()
{
    if (m_staging.autoRemove())
        m_staging.remove();
    if (m_lock != -1)
        ::close(m_lock);
}

void NewFolder::keep()
{
    confirmFiles(m_staging.path());
    // In one step, and only over a folder that is empty still.
    if (::rename(QFile::encodeName(m_staging.path()).constData(), QFile::encodeName(m_place).constData()) != 0)
        throw Refused(QStringLiteral("Ο φάκελος %1 δεν παίρνει τη θέση του. %2").arg(m_place, qt_error_string(errno)));
    m_staging.setAutoRemove(false);
    syncFolder(QFileInfo(m_place).path());
}

} // namespace lorvan
