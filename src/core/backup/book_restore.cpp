#include "backup/book_restore.h"

#include "backup/book_archive.h"
#include "backup/book_proof.h"
#include "backup/copy_writing.h"
#include "backup/restore_record.h"
#include "book/book_files.h"
#include "book/pending_restore.h"
#include "platform/authority.h"
#include "platform/engine/key_ring.h"
#include "platform/files/durable_files.h"
#include "platform/files/work_folder.h"
#include "platform/stop_check.h"

#include <QDir>

#include <array>

namespace lorvan {
namespace {

/// A name (without path) that no folder has yet.
QString asideFor(const Folder& data, QDateTime now)
{
    for (;; now = now.addSecs(1)) {
        const QString name = QStringLiteral("replaced-") + now.toString(QStringLiteral("yyyy-MM-dd-HHmmss"));
        if (!data.exists(name))
            return name;
    }
}

/// Gives the new file the owner and the permissions of the old one, as far as the system permits it.
void takeOverAccess(const Folder& data, const Folder& staged, const QString& name)
{
    File file = staged.open(name, Folder::Opening::Write);
    if (const auto old = statusOf(data, name))
        file.takeAccessOf(*old);
    else
        data.give(file, FileAccess::LikeFolder);
    file.sync();
}

/// The folders that were made for the book. The destructor removes them, unless they are kept.
class MadeFolders {
public:
    explicit MadeFolders(const QString& path)
        : m_paths(makeFolders(path, FileAccess::Owner))
    {
    }
    ~MadeFolders()
    {
        for (const QString& path : m_paths)
            QDir().rmdir(path);
    }
    MadeFolders(const MadeFolders&) = delete;
    MadeFolders& operator=(const MadeFolders&) = delete;

    void keep() { m_paths.clear(); }

private:
    QStringList m_paths;
};

} // namespace

QString RestoreFailed::plainText() const
{
    return QStringLiteral("Η επαναφορά δεν έγινε. Το βιβλίο έμεινε όπως ήταν.");
}

struct RestoredBook::Staging {
    Staging(const QString& from, const BookFiles& target)
        : backup(from)
        , made(target.dataFolder())
        , book(target.dataFolder())
        , data(book.dataFolder())
        , work((removeUndecidedRestores(data), data), stagedPrefix())
        , staged(work.folder().path())
    {
    }

    QString backup;
    MadeFolders made;
    BookFiles book;
    Folder data;
    WorkFolder work;
    BookFiles staged;
};

RestoredBook::RestoredBook(const QString& backup, const BookFiles& book)
{
    try {
        m_staging = std::make_unique<Staging>(backup, book);
        unpackBook(backup, m_staging->work.folder());
    } catch (const FileError& failure) {
        throw RestoreFailed(failure.what());
    } catch (const LockRefused& failure) {
        throw RestoreFailed(failure.what());
    } catch (const BookCopyFailed& failure) {
        throw RestoreFailed(failure.what());
    }
    try {
        KeyRing keys(bookPassword());
        proveBook(m_staging->staged, keys);
    } catch (const BookCopyFailed& failure) {
        throw BackupUnusable(backup, QString::fromUtf8(failure.what()).remove(m_staging->staged.dataFolder() + u'/'));
    }
}

RestoredBook::~RestoredBook() = default;

const BookFiles& RestoredBook::staged() const
{
    return m_staging->staged;
}

std::optional<QString> RestoredBook::replace(const Authority& authority)
{
    const Folder& data = m_staging->data;
    QString aside;
    try {
        recordRestore(m_staging->staged, m_staging->book, m_staging->backup, authority);
        aside = asideFor(data, authority.now());
        for (const auto& name : {QStringLiteral("lorvan.mdb"), QStringLiteral("mapcodes.mdb")})
            takeOverAccess(data, m_staging->work.folder(), name);
        m_staging->work.folder().sync();
        data.sync();
        decideRestore(data, m_staging->work.name(), aside);
    } catch (const std::runtime_error& failure) {
        throw RestoreFailed(failure.what());
    }
    const Undisturbed undisturbed;
    m_staging->work.keep();
    m_staging->made.keep();
    finishRestore(m_staging->book);
    try {
        return data.exists(aside) ? std::optional(data.pathOf(aside)) : std::nullopt;
    } catch (const FileError&) {
        return data.pathOf(aside);
    }
}

} // namespace lorvan
