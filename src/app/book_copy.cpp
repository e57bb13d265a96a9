#include "app/book_copy.h"

#include "app/book_files.h"
#include "platform/connection.h"
#include "platform/sql_error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

namespace lorvan {
namespace {

QString nameOfCopy(const QString& original, const QDateTime& at)
{
    const QFileInfo info(original);
    return QStringLiteral("%1/%2-%3.%4")
        .arg(info.path(), info.completeBaseName(), at.toString(QStringLiteral("yyyy-MM-dd-HHmmss")), info.suffix());
}

QDateTime firstFreeSecond(const BookFiles& files, QDateTime at)
{
    while (QFileInfo::exists(nameOfCopy(files.mainDatabase(), at))
        || QFileInfo::exists(nameOfCopy(files.auxiliaryDatabase(), at)))
        at = at.addSecs(1);
    return at;
}

/// Of copies that a crash cut short. Nobody else copies this book at the time.
void removeRemains(const QString& original)
{
    const QFileInfo info(original);
    const QString parts = QStringLiteral("%1-[0-9]*.%2.part").arg(info.completeBaseName(), info.suffix());
    QDir folder = info.dir();
    for (const QString& name : folder.entryList({parts}, QDir::Files))
        folder.remove(name);
}

BookCopyFailed failure(const QString& path, const QString& reason)
{
    return BookCopyFailed(QStringLiteral("%1: %2").arg(path, reason).toStdString());
}

void writeAll(QFile& file, const QByteArray& block)
{
    for (qint64 done = 0; done < block.size();) {
        const qint64 written = file.write(block.constData() + done, block.size() - done);
        if (written <= 0)
            throw failure(file.fileName(), file.errorString());
        done += written;
    }
}

void prove(const QString& path, KeyRing& keys)
{
    try {
        Connection copy = Connection::open(path, keys.keyFor(path), Connection::Access::ReadOnly);
        auto check = copy.prepare("PRAGMA quick_check(1)");
        if (!check.step() || check.text(0) != QLatin1String("ok"))
            throw failure(path, check.text(0));
    } catch (const SqlError& error) {
        throw failure(path, error.engineMessage());
    }
}

/// Has the disk confirm the names in a folder. Not every file system can; then the names come with its next write.
void syncFolder(const QString& folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

} // namespace

CopiedFile::CopiedFile(const QString& original, const QDateTime& at)
    : m_original(original)
    , m_path(nameOfCopy(original, at))
    , m_current(m_path + QStringLiteral(".part"))
{
}

CopiedFile::~CopiedFile()
{
    if (m_isOurs)
        QFile::remove(m_current);
}

void CopiedFile::write(Connection& book, const QString& schema, KeyRing& keys)
{
    QFile file(m_current);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        throw failure(m_current, file.errorString());
    m_isOurs = true;
    file.setPermissions(QFile::permissions(m_original));
    book.readFile(schema, [&file](const QByteArray& block) { writeAll(file, block); });
    if (::fsync(file.handle()) != 0)
        throw failure(m_current, qt_error_string(errno));
    file.close();
    prove(m_current, keys);
}

void CopiedFile::complete()
{
    QFile file(m_current);
    if (!file.rename(m_path))
        throw failure(m_path, file.errorString());
    m_current = m_path;
}

BookCopy::BookCopy(const BookFiles& files, const QDateTime& at)
    : m_main(files.mainDatabase(), at)
    , m_auxiliary(files.auxiliaryDatabase(), at)
{
}

BookCopy::BookCopy(Connection& book, const BookFiles& files, KeyRing& keys, const QDateTime& now)
    : BookCopy(files, firstFreeSecond(files, now))
{
    removeRemains(files.mainDatabase());
    removeRemains(files.auxiliaryDatabase());
    m_main.write(book, QStringLiteral("main"), keys);
    m_auxiliary.write(book, QStringLiteral("auxiliary"), keys);
    m_auxiliary.complete();
    m_main.complete();
    syncFolder(files.dataFolder());
}

void BookCopy::keep()
{
    m_main.keep();
    m_auxiliary.keep();
}

} // namespace lorvan
