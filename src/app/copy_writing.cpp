#include "app/copy_writing.h"

#include <QFile>

#include <unistd.h>

namespace lorvan {

BookCopyFailed::BookCopyFailed(const QString& path, const QString& reason)
    : std::runtime_error(QStringLiteral("%1: %2").arg(path, reason).toStdString())
{
}

void writeAll(QFile& file, const char* bytes, qint64 size)
{
    for (qint64 done = 0; done < size;) {
        const qint64 written = file.write(bytes + done, size - done);
        if (written <= 0)
            throw BookCopyFailed(file.fileName(), file.errorString());
        done += written;
    }
}

void closeConfirmed(QFile& file)
{
    if (::fsync(file.handle()) != 0)
        throw BookCopyFailed(file.fileName(), qt_error_string(errno));
    file.close();
}

} // namespace lorvan
