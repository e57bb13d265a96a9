#include "book/book_files.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

namespace lorvan {

BookFiles::BookFiles(QString dataFolder)
    : m_dataFolder(std::move(dataFolder))
{
    const QString resolved = QFileInfo(m_dataFolder).canonicalFilePath();
    if (!resolved.isEmpty())
        m_dataFolder = resolved;
}

QString BookFiles::mainDatabase() const
{
    return m_dataFolder + QStringLiteral("/lorvan.mdb");
}

QString BookFiles::auxiliaryDatabase() const
{
    return m_dataFolder + QStringLiteral("/mapcodes.mdb");
}

QString BookFiles::usageMarker() const
{
    return m_dataFolder + QStringLiteral("/lorvan.dat");
}

bool BookFiles::exists(const QString& path)
{
    const QFileInfo info(path);
    return info.isFile() && !info.isSymLink();
}

bool BookFiles::isOldFormat() const
{
    constexpr QByteArrayView jetMark = "Standard Jet DB";
    constexpr int markOffset = 4;
    QFile file(mainDatabase());
    return exists(mainDatabase()) && file.open(QIODevice::ReadOnly)
        && file.read(markOffset + jetMark.size()).mid(markOffset) == jetMark;
}

QByteArray bookPassword()
{
    return QByteArrayLiteral("TelmaHarbor");
}

} // namespace lorvan
