#pragma once

#include "support/disk_log.h"

#include <limits>

namespace lorvan::test {

/// Which calls to the disk fail, counted from 1: opening, reading, writing, cutting, syncing, renaming and removing.
struct DiskFault {
    int at = std::numeric_limits<int>::max();
    int error = 0; ///< An errno.
    bool isLasting = false; ///< All calls from there on, not this one alone.
    int calls = 0; ///< How many there were.

    /// Counts a call; true with errno set when it is to fail.
    [[nodiscard]] bool strikes();
};

/// While it lives, all that the process does to its files, through the engine or by itself, goes into the log and
/// fails as the fault says. Either may be null. One object at a time; connections that were opened before the first
/// one are not seen.
class WatchedDisk {
public:
    explicit WatchedDisk(DiskLog* log, DiskFault* fault = nullptr);
    ~WatchedDisk();
    WatchedDisk(const WatchedDisk&) = delete;
    WatchedDisk& operator=(const WatchedDisk&) = delete;

    /// Puts the tests' way to the disk in the place of the engine's and the program's own, once for the process.
    static void install();
};

} // namespace lorvan::test
