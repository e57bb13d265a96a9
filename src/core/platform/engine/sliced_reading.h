#pragma once

#include "platform/engine/file_watch.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

namespace lorvan {

class Connection;

/// How a long reading keeps out of the way of those who change the book.
struct SlicePace {
    std::chrono::milliseconds slice{40}; ///< After that long the lock is given back, with the row that is being read.
    int hurried = 3; ///< So often it begins again at once after a change,
    std::chrono::milliseconds quiet{60'000}; ///< then only when nothing was changed for that long.
    std::chrono::milliseconds betweenLooks{1'000}; ///< While it waits for that.
};

/// Two equal ones mean that nobody else has changed the files in between.
struct FileState {
    std::vector<std::int64_t> versions; ///< As the engine counts the changes of others, under a lock;
    FileWatch::State files = {}; ///< where locks are not trusted, the files themselves.

    friend bool operator==(const FileState&, const FileState&) = default;
};

/// The state of all databases of the connection, inside the caller's transaction, which takes the lock on each.
[[nodiscard]] FileState stateOf(Connection& book);

using Deadline = std::chrono::steady_clock::time_point;

[[nodiscard]] inline bool isOver(Deadline deadline)
{
    return std::chrono::steady_clock::now() >= deadline;
}

/// Goes on reading where the last slice ended, until about the deadline; true if that was all. Reads something in any
/// case.
using ReadSlice = std::function<bool(Deadline deadline)>;

/// Reads one state of all databases of the connection in slices, between which others may write; if one of them did, it
/// begins again with what `begin` returns. Returns that state. Throws SqlError, of kind Interrupted if a StopCheck says
/// no.
FileState readInSlices(Connection& book, const SlicePace& pace, const std::function<ReadSlice()>& begin);

} // namespace lorvan
