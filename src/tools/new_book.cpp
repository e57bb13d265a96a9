#include "tools/new_book.h"

#include "app/pending_restore.h"
#include "platform/key_ring.h"
#include "tools/refused.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <utility>

namespace lorvan {
namespace {

/// The main database comes last: a folder that holds one is a book.
std::array<QString, 3> pathsOf(const BookFiles& files)
{
    return {files.auxiliaryDatabase(), files.usageMarker(), files.mainDatabase()};
}

Refused unwritable(const QString& folder, const QString& systemReason)
{
    return Refused(QStringLiteral("Στον φάκελο %1 δεν γράφονται αρχεία. %2").arg(folder, systemReason).trimmed());
}

Book openBook(const BookFiles& files)
{
    KeyRing keys(bookPassword());
    const QString main = files.mainDatabase();
    const QString auxiliary = files.auxiliaryDatabase();
    keys.prepare(auxiliary);
    return {Connection::open(main, keys.keyFor(main), Connection::Access::ReadWrite),
        Connection::open(auxiliary, keys.keyFor(auxiliary), Connection::Access::ReadWrite)};
}

} // namespace

void refuseExistingBook(const BookFiles& files)
{
    finishRestore(files);
    removeStagingRemainders(files);
    for (const QString& path : {files.mainDatabase(), files.auxiliaryDatabase(), files.usageMarker()}) {
        if (QFileInfo::exists(path))
            throw BookExists(path.toStdString());
    }
}

NewBook::NewBook(const QString& dataFolder)
    : m_target(QFileInfo(dataFolder).absoluteFilePath())
{
    refuseExistingBook(m_target);
    try {
        makeFolders();
        m_staging.emplace(m_target.dataFolder());
        const BookFiles staged = m_staging->files();
        createBook(staged);
        m_book.emplace(openBook(staged));
    } catch (...) {
        removeFolders();
        throw;
    }
}

NewBook::~NewBook()
{
    m_book.reset();
    if (!m_kept)
        removeFolders();
}

void NewBook::makeFolders()
{
    QString folder = m_target.dataFolder();
    while (!QFileInfo::exists(folder)) {
        m_madeFolders += folder;
        folder = QFileInfo(folder).path();
    }
    if (!QDir().mkpath(m_target.dataFolder()))
        throw unwritable(m_target.dataFolder(), QString());
}

void NewBook::removeFolders()
{
    m_staging.reset();
    for (const QString& folder : std::as_const(m_madeFolders))
        QDir().rmdir(folder);
}

void NewBook::keep()
{
    m_book.reset();
    m_staging->noteMove();
    moveIntoPlace();
    m_staging.reset();
    m_kept = true;
}

void NewBook::moveIntoPlace()
{
    const auto from = pathsOf(m_staging->files());
    const auto to = pathsOf(m_target);
    for (std::size_t i = 0; i < to.size(); ++i) {
        QFile file(from[i]);
        if (file.rename(to[i]))
            continue;
        const bool taken = QFileInfo::exists(to[i]);
        for (std::size_t moved = 0; moved < i; ++moved)
            QFile::remove(to[moved]);
        if (taken)
            throw BookExists(to[i].toStdString());
        throw unwritable(m_target.dataFolder(), file.errorString());
    }
}

} // namespace lorvan
