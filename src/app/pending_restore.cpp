#include "app/pending_restore.h"

#include "app/book_files.h"
#include "app/usage_marker.h"
#include "platform/connection.h"
#include "platform/durable_files.h"
#include "platform/file_lock.h"
#include "platform/sql_error.h"
#include "platform/transaction.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <vector>

namespace lorvan {
namespace {

const QByteArray firstLine = QByteArrayLiteral("Lorvan restore 1\n");
constexpr std::chrono::seconds patience{20};

QString recordOf(const BookFiles& book)
{
    return book.dataFolder() + QStringLiteral("/restore.pending");
}

[[noreturn]] void fail(const QString& path, const QString& reason)
{
    throw RestoreUnfinished(QStringLiteral("%1: %2").arg(path, reason).toStdString());
}

/// An old database, shut for everyone, so that no change is under way while it is put aside. A damaged one cannot be
/// opened, and nobody works with it.
class ShutDatabase {
public:
    explicit ShutDatabase(const QString& path)
        : m_keys(bookPassword())
    {
        try {
            m_connection = std::make_unique<Connection>(
                Connection::open(path, m_keys.keyFor(path), Connection::Access::ReadWrite));
            m_lock = std::make_unique<Transaction>(*m_connection, Transaction::Mode::Exclusive);
        } catch (const SqlError& error) {
            if (error.kind() == SqlError::Kind::Busy)
                fail(path, error.engineMessage());
        }
    }

private:
    KeyRing m_keys;
    std::unique_ptr<Connection> m_connection;
    std::unique_ptr<Transaction> m_lock;
};

/// Over a network or not, never over a file that is there.
void move(const QString& from, const QString& to)
{
    if (QFileInfo::exists(to))
        fail(to, QStringLiteral("υπάρχει ήδη."));
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        fail(from, qt_error_string(errno));
}

class PendingRestore {
public:
    PendingRestore(const BookFiles& book, const QString& aside)
        : m_book(book)
        , m_staged(stagedBook(book))
        , m_aside(book.dataFolder() + u'/' + aside)
    {
    }

    void finish() const
    {
        putOldAside();
        for (const auto& [old, staged] : m_pairs) {
            if (QFileInfo::exists(staged))
                move(staged, old);
        }
        syncFolder(m_book.dataFolder());
        freeMarker();
        QDir(m_staged.dataFolder()).removeRecursively();
        if (!QFile::remove(recordOf(m_book)))
            fail(recordOf(m_book), qt_error_string(errno));
        syncFolder(m_book.dataFolder());
    }

private:
    struct Pair {
        QString old;
        QString staged;
    };

    /// Only what the new file has not replaced yet is old. A journal goes first: it must never meet the new file.
    void putOldAside() const
    {
        if (!QFileInfo::exists(m_staged.mainDatabase()))
            return;
        if (!QDir().mkpath(m_aside))
            fail(m_aside, qt_error_string(errno));
        std::vector<std::unique_ptr<ShutDatabase>> shut;
        for (const auto& [old, staged] : m_pairs) {
            if (QFileInfo::exists(staged) && QFileInfo::exists(old))
                shut.push_back(std::make_unique<ShutDatabase>(old));
        }
        if (!shut.empty())
            copyMarker();
        for (const auto& [old, staged] : m_pairs) {
            if (!QFileInfo::exists(staged))
                continue;
            for (const QString& path : {old + QStringLiteral("-journal"), old}) {
                if (QFileInfo::exists(path))
                    move(path, m_aside + u'/' + QFileInfo(path).fileName());
            }
        }
        syncFolder(m_aside);
        syncFolder(m_book.dataFolder());
        QDir(m_book.dataFolder()).rmdir(m_aside); // stays when there was anything to put there
    }

    /// The marker itself stays: it keeps the others out meanwhile.
    void copyMarker() const
    {
        const QString copy = m_aside + u'/' + QFileInfo(m_book.usageMarker()).fileName();
        if (!BookFiles::exists(m_book.usageMarker()) || QFileInfo::exists(copy))
            return;
        if (!QFile::copy(m_book.usageMarker(), copy))
            fail(copy, qt_error_string(errno));
        UsageMarker::unlock(copy);
    }

    void freeMarker() const
    {
        if (BookFiles::exists(m_book.usageMarker()))
            UsageMarker::unlock(m_book.usageMarker());
        else
            UsageMarker::create(m_book.usageMarker());
    }

    BookFiles m_book;
    BookFiles m_staged;
    QString m_aside;
    /// The main database comes last: a folder that holds one is a book.
    std::array<Pair, 2> m_pairs{Pair{m_book.auxiliaryDatabase(), m_staged.auxiliaryDatabase()},
        Pair{m_book.mainDatabase(), m_staged.mainDatabase()}};
};

QString asideIn(const QString& record)
{
    static const QRegularExpression form(QStringLiteral("\\Areplaced-[-0-9]+\\z"));
    QFile file(record);
    if (!file.open(QIODevice::ReadOnly))
        fail(record, file.errorString());
    const bool isOurs = file.readLine() == firstLine;
    const QString aside = QString::fromUtf8(file.readLine()).trimmed();
    if (!isOurs || !form.match(aside).hasMatch())
        fail(record, QStringLiteral("δεν είναι σημείωμα επαναφοράς."));
    return aside;
}

} // namespace

BookFiles stagedBook(const BookFiles& book)
{
    return BookFiles(book.dataFolder() + QStringLiteral("/.restore"));
}

void decideRestore(const BookFiles& book, const QString& aside)
{
    syncFolder(stagedBook(book).dataFolder());
    Folder(book.dataFolder()).replace(QFileInfo(recordOf(book)).fileName(), firstLine + aside.toUtf8() + '\n');
}

void finishRestore(const BookFiles& book)
{
    const QString record = recordOf(book);
    if (!QFileInfo::exists(record))
        return;
    try {
        const FileLock lock(
            Folder(book.dataFolder()), QFileInfo(record).fileName(), FileLock::Missing::Refuse, patience);
        PendingRestore(book, asideIn(record)).finish();
    } catch (const LockRefused& refusal) {
        if (QFileInfo::exists(record)) // otherwise somebody else has finished it meanwhile
            throw RestoreUnfinished(refusal.what());
    } catch (const MarkerError& error) {
        throw RestoreUnfinished(error.what());
    }
}

} // namespace lorvan
