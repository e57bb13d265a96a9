#pragma once

#include <QString>

namespace lorvan {

/// While the object exists, a signal that asks the process to end (SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE) is only
/// recorded. The command asks from time to time whether there was one, and ends by itself, after it has completed a
/// commit and removed unfinished files. Signals that are ignored remain ignored. There is one object at a time; its
/// destructor restores the signals.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    [[nodiscard]] static bool hasCome();
    /// What to tell the user if there was a signal.
    [[nodiscard]] static QString message();
    /// Throws Refused with the message if there was a signal.
    static void throwIfCome();
};

} // namespace lorvan
