#include "books/new_book.h"

#include "book/pending_restore.h"
#include "cashbook/journal_keeping.h"
#include "platform/engine/key_ring.h"
#include "platform/engine/sql_error.h"
#include "platform/files/durable_files.h"
#include "platform/files/folder_writing.h"

#include <QDir>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <utility>

namespace lorvan {
namespace {

/// The main database comes last: a folder that contains one is a book.
std::array<QString, 3> pathsOf(const BookFiles& files)
{
    return {files.auxiliaryDatabase(), files.usageMarker(), files.mainDatabase()};
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

void fillHidden(const std::function<void()>& fill)
{
    try {
        fill();
    } catch (const CommitUnknown& failure) {
        throw SqlError(failure.code(), failure.engineMessage(), failure.statement());
    }
}

NewBook::NewBook(const QString& dataFolder)
    : m_target(QFileInfo(dataFolder).absoluteFilePath())
    , m_keys(bookPassword())
{
    refuseExistingBook(m_target);
    try {
        const QString folder = m_target.dataFolder();
        m_madeFolders = asWriting(folder, [&] { return makeFolders(folder, FileAccess::Owner); });
        m_staging.emplace(folder);
        const BookFiles staged = m_staging->files();
        fillHidden([&] { createBook(staged); });
        m_keys.prepare(staged.auxiliaryDatabase());
        m_book.emplace(staged, m_keys, Connection::Access::ReadWrite);
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

void NewBook::removeFolders()
{
    m_staging.reset();
    for (const QString& folder : std::as_const(m_madeFolders))
        QDir().rmdir(folder);
}

void NewBook::keep()
{
    fillHidden([this] { keepJournal(m_book->main(), m_book->auxiliary()); });
    m_book.reset();
    m_staging->noteMove();
    asWriting(m_target.dataFolder(), [this] { moveIntoPlace(); });
    m_kept = true;
    m_staging->dataFolder().confirm();
    m_staging.reset();
}

void NewBook::moveIntoPlace()
{
    const Folder& from = m_staging->folder();
    const Folder& to = m_staging->dataFolder();
    QStringList moved;
    try {
        for (const QString& path : pathsOf(m_target)) {
            const QString name = QFileInfo(path).fileName();
            if (path == m_target.mainDatabase())
                to.sync(); // never the main database without the others
            to.give(from.open(name, Folder::Opening::Read), FileAccess::LikeFolder);
            from.rename(name, to, name, Folder::Taken::Refuse);
            moved += name;
        }
    } catch (const FileError& error) {
        for (const QString& name : std::as_const(moved))
            to.remove(name);
        if (error.number() == EEXIST)
            throw BookExists(error.path().toStdString());
        throw;
    }
}

} // namespace lorvan
