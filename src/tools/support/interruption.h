#pragma once

#include <QString>

namespace lorvan {

/// While one lives, a signal that asks the process to end (SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE) does not end it:
/// a command asks from time to time whether one came, and ends by itself, so that what it was making is cleared away
/// and what is being committed is finished. A signal that is ignored stays ignored. Only one lives at a time; its end
/// gives the signals back.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    [[nodiscard]] static bool hasCome();
    /// What the user is told then.
    [[nodiscard]] static QString message();
    /// Throws Refused with the message when a signal has come.
    static void throwIfCome();
};

} // namespace lorvan
