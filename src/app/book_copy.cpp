#include "app/book_copy.h"

#include "app/book_files.h"
#include "platform/connection.h"
#include "platform/durable_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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
        throw BookCopyFailed(m_current, file.errorString());
    m_isOurs = true;
    file.setPermissions(QFile::permissions(m_original));
    book.readFile(schema, [&file](const QByteArray& block) {
        writeAll(file, block.constData(), block.size());
        return true;
    });
    closeConfirmed(file);
    proveDatabase(m_current, keys);
}

void CopiedFile::complete()
{
    QFile file(m_current);
    if (!file.rename(m_path))
        throw BookCopyFailed(m_path, file.errorString());
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
