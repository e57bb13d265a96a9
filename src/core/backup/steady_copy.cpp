#include "backup/steady_copy.h"

#include "backup/copy_writing.h"
#include "book/book_files.h"
#include "book/lock_trust.h"
#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/transaction.h"
#include "platform/stop_check.h"

#include <openssl/evp.h>

#include <algorithm>
#include <array>
#include <functional>
#include <thread>
#include <vector>

namespace lorvan {
namespace {

using Clock = std::chrono::steady_clock;
using Digest = std::array<unsigned char, 32>;

constexpr std::chrono::milliseconds betweenLocks{1};

Digest digestOf(const QByteArray& block)
{
    Digest digest{};
    EVP_Digest(
        block.constData(), static_cast<std::size_t>(block.size()), digest.data(), nullptr, EVP_sha256(), nullptr);
    return digest;
}

/// The copy of one database's file. It can be brought up to date any number of times.
class FileCopy {
public:
    FileCopy(QString schema, const Folder& folder, const QString& name)
        : m_schema(std::move(schema))
        , m_file(asCopy([&] { return folder.open(name, Folder::Opening::MakeNew, FileAccess::Owner); }))
    {
    }

    /// Reads all of the database, and writes what differs from the last time. Returns false if `hasTime` ended it
    /// early.
    bool update(Connection& book, const std::function<bool()>& hasTime)
    {
        std::size_t count = 0;
        bool isWhole = true;
        m_size = 0;
        book.readFile(m_schema, [&](const QByteArray& block) {
            take(count++, block);
            continueOrGiveUp();
            return isWhole = hasTime();
        });
        if (isWhole)
            m_digests.resize(count);
        return isWhole;
    }

    void complete()
    {
        asCopy([this] {
            m_file.truncate(m_size);
            m_file.sync();
        });
    }

private:
    void take(std::size_t number, const QByteArray& block)
    {
        const Digest digest = digestOf(block);
        if (number == m_digests.size())
            m_digests.emplace_back(); // zeros, which no block has as its digest
        if (m_digests[number] != digest) {
            m_file.seek(m_size);
            asCopy([&] { m_file.write(block); });
            m_digests[number] = digest;
        }
        m_size += block.size();
    }

    QString m_schema;
    File m_file;
    std::vector<Digest> m_digests;
    qint64 m_size = 0;
};

/// Shared locks on both databases: others may read, but not write.
class SharedLock {
public:
    SharedLock(Connection& book, const CopyPatience& patience)
        : m_transaction(book, Transaction::View::Steady)
    {
        book.setBusyTimeout(patience.firstLock);
        (void)book.prepare("SELECT count(*) FROM main.sqlite_master").step();
        m_since = Clock::now();
        book.setBusyTimeout(patience.secondLock);
        (void)book.prepare("SELECT count(*) FROM auxiliary.sqlite_master").step();
    }

    [[nodiscard]] Clock::duration age() const { return Clock::now() - m_since; }

private:
    Transaction m_transaction;
    Clock::time_point m_since;
};

class SteadyCopy {
public:
    SteadyCopy(const BookFiles& book, const Folder& copy, KeyRing& keys, const CopyPatience& patience)
        : m_patience(patience)
        , m_book(open(book, keys))
        , m_main(QStringLiteral("main"), copy, QStringLiteral("lorvan.mdb"))
        , m_auxiliary(QStringLiteral("auxiliary"), copy, QStringLiteral("mapcodes.mdb"))
    {
    }

    CopyEffort run()
    {
        copyUnlocked();
        while (!untilUnlocked([this] { return copyLocked(); }))
            giveWritersTheirTurn();
        m_main.complete();
        m_auxiliary.complete();
        return m_effort;
    }

private:
    /// Tries the action every millisecond until no other program's lock prevents it. The engine's own waiting soon
    /// tries only ten times a second, and a busy writer leaves only moments.
    template <typename Action> auto untilUnlocked(const Action& action) const -> decltype(action())
    {
        const auto since = Clock::now();
        for (;;) {
            continueOrGiveUp();
            try {
                return action();
            } catch (const SqlError& error) {
                if (Clock::now() - since > patienceWith(error.kind()))
                    throw;
            }
            std::this_thread::sleep_for(betweenLocks);
        }
    }

    /// A journal belongs to a writer that has just begun, or to one that was killed.
    [[nodiscard]] Clock::duration patienceWith(SqlError::Kind trouble) const
    {
        if (trouble == SqlError::Kind::Busy)
            return m_patience.all;
        const bool isJournal = trouble == SqlError::Kind::JournalStands;
        return isJournal ? Clock::duration(std::min(m_patience.all, m_patience.journal)) : Clock::duration(-1);
    }

    [[nodiscard]] Connection open(const BookFiles& book, KeyRing& keys) const
    {
        const FileKey key = keys.keyFor(book.mainDatabase());
        const FileKey auxiliaryKey = keys.keyFor(book.auxiliaryDatabase());
        Connection connection = untilUnlocked([&] {
            return Connection::open(
                book.mainDatabase(), key, Connection::Access::ReadOnly, m_patience.firstLock, lockReachOf(book));
        });
        untilUnlocked([&] { connection.attach(book.auxiliaryDatabase(), auxiliaryKey, QStringLiteral("auxiliary")); });
        return connection;
    }

    [[nodiscard]] bool update(const std::function<bool()>& hasTime)
    {
        return m_main.update(m_book, hasTime) && m_auxiliary.update(m_book, hasTime);
    }

    void copyUnlocked()
    {
        try {
            (void)update([] { return true; });
        } catch (const SqlError&) {
            // A file that became shorter meanwhile. If it is really damaged, the reading under the lock fails too.
        }
    }

    /// Returns false if the locks had to be released before everything was copied.
    [[nodiscard]] bool copyLocked()
    {
        const SharedLock lock(m_book, m_patience);
        const bool toTheEnd = ++m_effort.attempts >= m_patience.attempts;
        const bool isWhole = update([&] { return toTheEnd || lock.age() < m_patience.locked; });
        m_book.refuseDisturbed();
        m_effort.longestLock =
            std::max(m_effort.longestLock, std::chrono::duration_cast<std::chrono::microseconds>(lock.age()));
        return isWhole;
    }

    void giveWritersTheirTurn() const
    {
        constexpr std::chrono::milliseconds betweenQuestions{50};
        for (auto waited = betweenQuestions; waited <= m_patience.between; waited += betweenQuestions) {
            continueOrGiveUp();
            std::this_thread::sleep_for(betweenQuestions);
        }
    }

    CopyPatience m_patience;
    CopyEffort m_effort;
    Connection m_book;
    FileCopy m_main;
    FileCopy m_auxiliary;
};

} // namespace

CopyEffort copyBook(const BookFiles& book, const Folder& copy, KeyRing& keys, const CopyPatience& patience)
{
    const CopyEffort effort = SteadyCopy(book, copy, keys, patience).run();
    asCopy([&] { copy.sync(); });
    return effort;
}

CopyEffort copyBook(const BookFiles& book, const BookFiles& copy, KeyRing& keys, const CopyPatience& patience)
{
    return copyBook(book, asCopy([&] { return Folder(copy.dataFolder()); }), keys, patience);
}

} // namespace lorvan
