#include "book/pending_restore.h"

#include "book/book_files.h"
#include "marker/usage_marker.h"
#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/transaction.h"
#include "platform/files/file.h"
#include "platform/files/file_lock.h"
#include "platform/files/work_folder.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace lorvan {
namespace {

const QByteArray firstLine = QByteArrayLiteral("Lorvan restore 2\n");
const QByteArray earlierFirstLine = QByteArrayLiteral("Lorvan restore 1\n"); // a single folder name, always the same
const QString earlierStaged = QStringLiteral(".restore");
const QString recordName = QStringLiteral("restore.pending");
const QString markerName = QStringLiteral("lorvan.dat");
constexpr std::chrono::seconds patience{20};
/// The main database comes last: a folder that contains one is a book.
const std::array databases{QStringLiteral("mapcodes.mdb"), QStringLiteral("lorvan.mdb")};

[[noreturn]] void fail(const QString& path, const QString& reason)
{
    throw RestoreUnfinished(QStringLiteral("%1: %2").arg(path, reason).toStdString());
}

/// An old database, locked exclusively so that no change is under way while it is put aside. A damaged one cannot be
/// opened, and nobody works with it.
class ShutDatabase {
public:
    explicit ShutDatabase(const QString& path)
        : m_keys(bookPassword())
    {
        try {
            m_connection = std::make_unique<Connection>(
                Connection::open(path, m_keys.keyFor(path), Connection::Access::ReadWrite));
            m_lock = std::make_unique<Transaction>(*m_connection, Transaction::View::Alone);
        } catch (const SqlError& error) {
            if (error.kind() == SqlError::Kind::Busy || error.kind() == SqlError::Kind::Interrupted)
                fail(path, error.engineMessage());
        }
    }

private:
    KeyRing m_keys;
    std::unique_ptr<Connection> m_connection;
    std::unique_ptr<Transaction> m_lock;
};

/// The names of the two folders that a decided restore uses.
struct Record {
    QString aside;
    QString staged;
};

Record read(File& file)
{
    static const QRegularExpression asideForm(QStringLiteral("\\Areplaced-[-0-9]{1,40}\\z"));
    constexpr qint64 longest = 200;
    const QList<QByteArray> lines = file.read(longest).split('\n');
    const Record record{QString::fromLatin1(lines.value(1)), QString::fromLatin1(lines.value(2))};
    const bool isOurs = lines[0] + '\n' == firstLine && lines.size() == 4 && lines[3].isEmpty()
        && WorkFolder::isName(record.staged, stagedPrefix());
    const bool isEarlier = lines[0] + '\n' == earlierFirstLine && lines.size() == 3 && lines[2].isEmpty();
    if (!(isOurs || isEarlier) || !asideForm.match(record.aside).hasMatch())
        fail(file.path(), QStringLiteral("δεν είναι σημείωμα επαναφοράς."));
    return isOurs ? record : Record{record.aside, earlierStaged};
}

class PendingRestore {
public:
    PendingRestore(const Folder& data, Record record)
        : m_data(data)
        , m_record(std::move(record))
    {
        if (m_data.kindOf(m_record.staged) != Folder::Kind::Nothing)
            m_staged = m_data.openFolder(m_record.staged);
    }

    void finish() const
    {
        m_data.sync(); // before anything moves, the decision must be on the disk
        putOldAside();
        for (const QString& name : databases) {
            if (isStaged(name))
                m_staged->rename(name, m_data, name);
        }
        if (m_staged)
            m_staged->sync();
        m_data.sync();
        freeMarker();
        m_data.removeTree(m_record.staged);
        m_data.sync();
        m_data.remove(recordName);
        m_data.confirm();
    }

private:
    [[nodiscard]] bool isStaged(const QString& name) const { return m_staged && m_staged->isFile(name); }

    /// Only files that have not been replaced yet are old. A journal goes first: it must never meet the new file.
    void putOldAside() const
    {
        if (!isStaged(databases.back()))
            return;
        const Folder aside = m_data.openOrMakeFolder(m_record.aside);
        m_data.sync();
        std::vector<std::unique_ptr<ShutDatabase>> shut;
        for (const QString& name : databases) {
            if (isStaged(name) && m_data.isFile(name))
                shut.push_back(std::make_unique<ShutDatabase>(m_data.pathOf(name)));
        }
        if (!shut.empty())
            copyMarker(aside);
        for (const QString& name : databases) {
            if (isStaged(name))
                moveAside(name, aside);
        }
        aside.sync();
        m_data.sync();
        m_data.removeEmpty(m_record.aside); // stays if anything was put there
    }

    void moveAside(const QString& name, const Folder& aside) const
    {
        for (const QString& each : {name + QStringLiteral("-journal"), name}) {
            if (m_data.exists(each))
                m_data.rename(each, aside, each);
        }
    }

    /// The marker itself stays: it keeps the others out in the meantime. The copy is free.
    void copyMarker(const Folder& aside) const
    {
        constexpr qint64 longest = 4096;
        constexpr char isFree = '0';
        if (!m_data.isFile(markerName) || aside.exists(markerName))
            return;
        QByteArray marker = m_data.open(markerName, Folder::Opening::Read).read(longest);
        if (!marker.isEmpty())
            marker[0] = isFree;
        aside.replace(markerName, marker);
    }

    /// A link or the like in its place is not ours.
    void freeMarker() const
    {
        if (m_data.kindOf(markerName) == Folder::Kind::Other)
            m_data.remove(markerName);
        if (m_data.isFile(markerName))
            UsageMarker::unlock(m_data.pathOf(markerName));
        else
            UsageMarker::create(m_data.pathOf(markerName));
    }

    const Folder& m_data;
    Record m_record;
    std::optional<Folder> m_staged;
};

/// True also if the system reported that the file could not be renamed although it was.
bool isDecided(const Folder& data, const QByteArray& record)
{
    try {
        return data.isFile(recordName) && data.open(recordName, Folder::Opening::Read).read(record.size()) == record;
    } catch (const FileError&) {
        return false;
    }
}

} // namespace

QString stagedPrefix()
{
    return QStringLiteral(".restore-");
}

void decideRestore(const Folder& data, const QString& staged, const QString& aside)
{
    const QByteArray record = firstLine + aside.toUtf8() + '\n' + staged.toUtf8() + '\n';
    if (data.exists(recordName))
        throw FileError(data.pathOf(recordName), QStringLiteral("υπάρχει ήδη."));
    try {
        data.replace(recordName, record);
    } catch (const FileError&) {
        if (!isDecided(data, record))
            throw;
    }
}

void finishRestore(const BookFiles& book)
{
    const QFileInfo record(book.dataFolder() + u'/' + recordName);
    if (!record.exists() && !record.isSymLink())
        return;
    try {
        const Folder data(book.dataFolder());
        if (!data.exists(recordName))
            return;
        try {
            FileLock lock(data, recordName, FileLock::Missing::Refuse, patience);
            PendingRestore(data, read(lock.file())).finish();
        } catch (const LockRefused&) {
            if (data.exists(recordName)) // otherwise somebody else has finished it in the meantime
                throw;
        }
    } catch (const RestoreUnfinished&) {
        throw;
    } catch (const std::exception& failure) {
        throw RestoreUnfinished(failure.what());
    }
}

void removeUndecidedRestores(const Folder& data) noexcept
{
    const auto isUndecided = [&data](const QString&) { return !data.exists(recordName); };
    WorkFolder::removeAbandoned(data, stagedPrefix(), isUndecided);
    WorkFolder::removeIfAbandoned(data, earlierStaged, isUndecided);
}

} // namespace lorvan
