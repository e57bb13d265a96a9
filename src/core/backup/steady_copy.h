#pragma once

#include <QString>

#include <chrono>
#include <stdexcept>

namespace lorvan {

class BookFiles;
class Folder;
class KeyRing;

/// How long a copy may keep writers waiting.
struct CopyPatience {
    std::chrono::milliseconds firstLock{10}; ///< Longest wait for the first file's lock, after which it tries again.
    std::chrono::milliseconds secondLock{60}; ///< Longest wait for the second file's lock while holding the first.
    std::chrono::milliseconds locked{400}; ///< Longest time with both locks; then they are released.
    int attempts = 6; ///< In the last attempt the locks are held to the end, however long that takes.
    std::chrono::milliseconds between{300}; ///< Pause between two attempts, for writers.
    std::chrono::seconds all{60}; ///< The copy fails if it gets no lock for so long.
    std::chrono::seconds journal{10}; ///< The same while there is a journal, which a reader cannot roll back.
};

/// How long a copy held its locks at most, and how often it took them.
struct CopyEffort {
    std::chrono::microseconds longestLock{0};
    int attempts = 0;
};

/// Copies both databases of a book into the empty folder `copy`, while programs go on reading and writing it. The
/// copies have the state of one moment; only their owner may read them, and the disk has confirmed them. The book is
/// opened read-only.
///
/// Everything is copied without a lock first, which need not give a consistent state. Then both files are locked
/// against writers, everything is read again, now from the system's memory, and what has changed is copied once more.
///
/// Throws SqlError if the book cannot be read, BookCopyFailed if the copies cannot be written, and GivenUp if a
/// StopCheck says no; what was written by then stays.
CopyEffort copyBook(const BookFiles& book, const Folder& copy, KeyRing& keys, const CopyPatience& patience = {});
CopyEffort copyBook(const BookFiles& book, const BookFiles& copy, KeyRing& keys, const CopyPatience& patience = {});

} // namespace lorvan
