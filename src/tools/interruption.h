#pragma once

#include <csignal>
#include <vector>

namespace lorvan {

/// While it lives, SIGINT, SIGTERM and SIGHUP do not end the process: a long command asks from time to time whether one
/// came, and ends by itself, so that what it was making is cleared away. A signal that is ignored stays ignored.
/// One object at a time.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    [[nodiscard]] bool hasCome() const;
    /// Throws Refused when a signal has come.
    void check() const;

private:
    struct Before {
        int signal;
        struct sigaction action;
    };
    std::vector<Before> m_before;
};

} // namespace lorvan
