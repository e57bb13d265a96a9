#include "platform/durable_files.h"

#include <QFile>
#include <QSaveFile>

#include <cerrno>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

namespace lorvan {

void syncFolder(const QString& folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

void syncFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) || ::fsync(file.handle()) != 0)
        throw std::runtime_error((path + QStringLiteral(": ") + qt_error_string(errno)).toStdString());
}

bool commitConfirmed(QSaveFile& file)
{
    const bool isWritten = file.flush();
    const bool isRefused = ::fsync(file.handle()) != 0 && errno != EINVAL && errno != ENOSYS; // unknown to some disks
    return isWritten && !isRefused && file.commit(); // without the commit the object removes what it wrote
}

} // namespace lorvan
