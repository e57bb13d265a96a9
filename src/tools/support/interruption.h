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
    /// From now on a signal does not count. Returns false, and changes nothing, if one has come before.
    [[nodiscard]] static bool ignoreFromNow();
    /// Signals count again; one that has come in the meantime counts from now on.
    static void countAgain();
    /// What to tell the user if a signal ended the command.
    [[nodiscard]] static QString message();
};

} // namespace lorvan
