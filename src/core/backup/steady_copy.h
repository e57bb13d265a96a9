#pragma once

#include <QString>

#include <chrono>
#include <stdexcept>

namespace lorvan {

class BookFiles;
class Folder;
class KeyRing;

/// Somebody did not want the work to go on.
class GivenUp : public std::runtime_error {
public:
    GivenUp()
        : std::runtime_error("given up")
    {
    }
};

/// Throws GivenUp when a StopCheck of this thread says no.
void continueOrGiveUp();

/// How long a copy may keep writers waiting.
struct CopyPatience {
    std::chrono::milliseconds firstLock{10}; ///< At a time: the engine asks ever more seldom.
    std::chrono::milliseconds secondLock{60}; ///< For the other file's, with the first in hand.
    std::chrono::milliseconds locked{400}; ///< Then both are given back, and taken again later...
    int attempts = 6; ///< ...but the last time they are held to the end.
    std::chrono::milliseconds between{300}; ///< In which writers get their turn.
    std::chrono::seconds all{60}; ///< Without a lock that long, the copy fails.
    std::chrono::seconds journal{10}; ///< The same where a journal stands, which a reader takes back for nobody.
};

/// What a copy took.
struct CopyEffort {
    std::chrono::microseconds longestLock{0};
    int attempts = 0;
};

/// Copies both databases of a book into the empty folder `copy`, while programs go on reading and writing it. The
/// copies are those of one moment, for their owner alone, and confirmed by the disk. The book is opened to be read
/// alone.
///
/// All is copied first without a lock, which yields anything. Then both files are locked against writers, all is read
/// again, now from the system's memory, and what has changed is copied anew.
///
/// A StopCheck is asked from time to time; when it says no, GivenUp is thrown. Throws SqlError when the book cannot be
/// read, BookCopyFailed when the copies cannot be written; what was written stays.
CopyEffort copyBook(const BookFiles& book, const Folder& copy, KeyRing& keys, const CopyPatience& patience = {});
CopyEffort copyBook(const BookFiles& book, const BookFiles& copy, KeyRing& keys, const CopyPatience& patience = {});

} // namespace lorvan
