#include "platform/files/new_folder.h"

#include "platform/files/folder_writing.h"
#include "platform/files/system_reason.h"

#include <QDir>
#include <QFileInfo>

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

QString hiddenPrefix()
{
    return WorkFolder::prefixHere(QStringLiteral(".lorvan-export-"));
}

Folder parentOf(const QString& place)
{
    return asWriting(QFileInfo(place).path(), [&] {
        Folder parent(QFileInfo(place).path());
        WorkFolder::removeAbandoned(parent, hiddenPrefix());
        return parent;
    });
}

void confirmFiles(const Folder& folder, const QStringList& names)
{
    for (const QString& name : names)
        folder.open(name, Folder::Opening::Write).sync();
    folder.sync();
}

} // namespace

NewFolder::NewFolder(const QString& place)
    : m_place(emptyPlace(place))
    , m_parent(parentOf(m_place))
    , m_work(asWriting(QFileInfo(m_place).path(), [this] { return WorkFolder(m_parent, hiddenPrefix()); }))
{
}

QStringList NewFolder::keep(const QStringList& files)
{
    QStringList staying;
    try {
        confirmFiles(m_work.folder(), files);
        // One step, which fails if the folder in the place is no longer empty.
        staying = m_work.keepAs(QFileInfo(m_place).fileName(), files);
    } catch (const FileError& error) {
        throw Refused(
            QStringLiteral("Ο φάκελος %1 δεν παίρνει τη θέση του: %2").arg(m_place, withStop(error.reason())));
    }
    m_parent.confirm();
    return staying;
}

} // namespace lorvan
