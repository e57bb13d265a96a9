#include "app/book_restore.h"

#include "app/book_archive.h"
#include "app/book_files.h"
#include "app/book_proof.h"
#include "app/pending_restore.h"
#include "platform/file_lock.h"
#include "platform/key_ring.h"

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

namespace lorvan {
namespace {

/// The name, not the path, of a folder that is free.
QString asideFor(const BookFiles& book, QDateTime now)
{
    for (;; now = now.addSecs(1)) {
        const QString name = QStringLiteral("replaced-") + now.toString(QStringLiteral("yyyy-MM-dd-HHmmss"));
        if (!QFileInfo::exists(book.dataFolder() + u'/' + name))
            return name;
    }
}

/// Who may read and write the old file may do so with the new one, as far as the system lets us.
void takeOverAccess(const QString& old, const QString& staged)
{
    struct stat access { };
    if (::stat(QFile::encodeName(old).constData(), &access) != 0)
        return;
    const QByteArray target = QFile::encodeName(staged);
    [[maybe_unused]] const int owned = ::chown(target.constData(), access.st_uid, access.st_gid);
    [[maybe_unused]] const int allowed = ::chmod(target.constData(), access.st_mode & 0777U);
}

} // namespace

/// The hidden folder; what a killed restore has left there is removed.
struct RestoredBook::Staging {
    explicit Staging(const BookFiles& target)
        : book(target)
        , staged(stagedBook(target))
        , isNewFolder(!QFileInfo::exists(target.dataFolder()))
    {
        if (!QDir().mkpath(staged.dataFolder()))
            throw RestoreFailed((staged.dataFolder() + QStringLiteral(": ") + qt_error_string(errno)).toStdString());
        try {
            lock.emplace(Folder(staged.dataFolder()), QStringLiteral("lock"));
        } catch (const LockRefused& refusal) {
            throw RestoreFailed(refusal.what());
        }
        QFile::remove(staged.mainDatabase());
        QFile::remove(staged.auxiliaryDatabase());
    }
    ~Staging()
    {
        if (isDecided)
            return;
        QDir(staged.dataFolder()).removeRecursively();
        if (isNewFolder)
            QDir().rmdir(book.dataFolder());
    }
    Staging(const Staging&) = delete;
    Staging& operator=(const Staging&) = delete;

    BookFiles book;
    BookFiles staged;
    bool isNewFolder;
    std::optional<FileLock> lock;
    bool isDecided = false;
};

RestoredBook::RestoredBook(const QString& backup, const BookFiles& book, const std::function<bool()>& goesOn)
    : m_staging(std::make_unique<Staging>(book))
{
    try {
        unpackBook(backup, m_staging->staged, goesOn);
    } catch (const BookCopyFailed& failure) {
        throw RestoreFailed(failure.what());
    }
    try {
        KeyRing keys(bookPassword());
        proveBook(m_staging->staged, keys, goesOn);
    } catch (const BookCopyFailed& failure) {
        throw BackupUnusable(backup, QString::fromUtf8(failure.what()).remove(m_staging->staged.dataFolder() + u'/'));
    }
}

RestoredBook::~RestoredBook() = default;

const BookFiles& RestoredBook::staged() const
{
    return m_staging->staged;
}

std::optional<QString> RestoredBook::replace(const QDateTime& now)
{
    const BookFiles& book = m_staging->book;
    const QString aside = asideFor(book, now);
    takeOverAccess(book.mainDatabase(), staged().mainDatabase());
    takeOverAccess(book.auxiliaryDatabase(), staged().auxiliaryDatabase());
    try {
        decideRestore(book, aside);
    } catch (const std::runtime_error& failure) {
        throw RestoreFailed(failure.what());
    }
    m_staging->isDecided = true;
    finishRestore(book);
    const QString folder = book.dataFolder() + u'/' + aside;
    return QFileInfo::exists(folder) ? std::optional(folder) : std::nullopt;
}

} // namespace lorvan
