// Measures how long a backup keeps a writer waiting.
//
//   lorvan-backup-bench BOOK_FOLDER [ROUNDS]
//
// A thread commits a small change every few milliseconds, first alone and then while backups are made beside it.

#include "backup/book_backup.h"
#include "book/book_files.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>

namespace {

using namespace lorvan;
using Clock = std::chrono::steady_clock;

double milliseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

/// Commits until it goes, and knows the longest commit.
class Writer {
public:
    Writer(const BookFiles& book, KeyRing& keys)
        : m_thread([this, book, &keys] { run(book, keys); })
    {
    }
    ~Writer()
    {
        m_ended = true;
        m_thread.join();
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    [[nodiscard]] Clock::duration takeLongest() { return m_longest.exchange({}); }

private:
    void run(const BookFiles& book, KeyRing& keys)
    {
        Connection main =
            Connection::open(book.mainDatabase(), keys.keyFor(book.mainDatabase()), Connection::Access::ReadWrite);
        while (!m_ended) {
            const auto begin = Clock::now();
            Transaction change(main, Authority::companion());
            main.execute("UPDATE taytothta SET ariumos=ariumos"); // leaves the book as it is, and writes all the same
            change.commit();
            m_longest = std::max(m_longest.load(), Clock::now() - begin);
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

    std::atomic<bool> m_ended = false;
    std::atomic<Clock::duration> m_longest{};
    std::thread m_thread;
};

void run(const BookFiles& book, int rounds)
{
    KeyRing keys(bookPassword());
    const QTemporaryDir folder(book.dataFolder() + QStringLiteral("/bench-XXXXXX"));
    std::printf("book of %.1f MB\n", static_cast<double>(QFile(book.mainDatabase()).size()) / 1e6);
    Writer writer(book, keys);
    std::this_thread::sleep_for(std::chrono::seconds(3));
    std::printf("longest commit, writer alone:        %8.1f ms\n", milliseconds(writer.takeLongest()));
    for (int round = 0; round < rounds; ++round) {
        const auto begin = Clock::now();
        const QString path = folder.filePath(QStringLiteral("%1.tar").arg(round));
        const CopyEffort effort = makeBackup(book, path, keys);
        std::printf("longest commit, beside a backup:     %8.1f ms; locked %.1f ms, %d attempts, all %.1f ms\n",
            milliseconds(writer.takeLongest()), static_cast<double>(effort.longestLock.count()) / 1e3, effort.attempts,
            milliseconds(Clock::now() - begin));
        QFile::remove(path);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    try {
        run(BookFiles(arguments.value(1)), std::max(1, arguments.value(2).toInt()));
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
