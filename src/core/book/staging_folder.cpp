#include "book/staging_folder.h"

#include "platform/files/folder_writing.h"

#include <QFileInfo>

namespace lorvan {
namespace {

constexpr qint64 saltLength = 16; // an encrypted file begins with these bytes; they differ from file to file

const QString noteName = QStringLiteral("moving");

QString namePrefix()
{
    return WorkFolder::prefixHere(QStringLiteral(".lorvan-"));
}

QString nameOf(const QString& path)
{
    return QFileInfo(path).fileName();
}

QByteArray beginningOf(const Folder& folder, const QString& name)
{
    return folder.isFile(name) ? folder.open(name, Folder::Opening::Read).read(saltLength) : QByteArray();
}

/// True if the auxiliary database was moved out of the staging folder, but not the main one, which is the last.
bool wasKilledWhileMoving(const Folder& staged, const Folder& target, const BookFiles& files)
{
    const QByteArray note = beginningOf(staged, noteName);
    const QString main = nameOf(files.mainDatabase());
    const QString auxiliary = nameOf(files.auxiliaryDatabase());
    return note.size() == saltLength && staged.isFile(main) && !staged.exists(auxiliary) && !target.exists(main)
        && beginningOf(target, auxiliary) == note;
}

void takeBackMove(const Folder& staged, const Folder& target, const BookFiles& files)
{
    const QString marker = nameOf(files.usageMarker());
    if (!staged.exists(marker))
        target.remove(marker);
    target.remove(nameOf(files.auxiliaryDatabase()));
    target.sync();
}

} // namespace

StagingFolder::StagingFolder(const QString& dataFolder)
    : m_dataFolder(asWriting(dataFolder, [&] { return Folder(dataFolder); }))
    , m_work(asWriting(dataFolder, [this] { return WorkFolder(m_dataFolder, namePrefix()); }))
{
}

void StagingFolder::noteMove() const
{
    asWriting(folder().path(), [this] {
        for (const QString& name : folder().names())
            folder().open(name, Folder::Opening::Write).sync();
        File note = folder().open(noteName, Folder::Opening::MakeNew, FileAccess::Owner);
        note.write(beginningOf(folder(), nameOf(files().auxiliaryDatabase())));
        note.sync();
        folder().sync();
        m_dataFolder.sync();
    });
}

void removeStagingRemainders(const BookFiles& files)
{
    if (!QFileInfo(files.dataFolder()).isDir())
        return;
    const Folder target(files.dataFolder());
    WorkFolder::removeAbandoned(target, namePrefix(), [&](const QString& name) {
        const Folder staged = target.openFolder(name);
        if (wasKilledWhileMoving(staged, target, files))
            takeBackMove(staged, target, files);
        return true;
    });
}

} // namespace lorvan
