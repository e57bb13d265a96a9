#pragma once

#include <functional>
#include <stdexcept>

namespace lorvan {

/// During its lifetime, everything that its thread computes in the engine or waits for (a lock, a journal) calls
/// `goesOn` from time to time. When it returns false, a wait ends with the same error as one that timed out, and a
/// computation with SqlError of kind Interrupted. A commit is no longer stopped once it has begun to write. Nested
/// checks are all asked.
class StopCheck {
public:
    explicit StopCheck(std::function<bool()> goesOn);
    ~StopCheck();
    StopCheck(const StopCheck&) = delete;
    StopCheck& operator=(const StopCheck&) = delete;

    /// True if all checks of this thread say yes, or there is none.
    [[nodiscard]] static bool goesOn();

private:
    std::function<bool()> m_goesOn;
    const StopCheck* m_outer;
};

/// The work was cancelled.
class GivenUp : public std::runtime_error {
public:
    GivenUp()
        : std::runtime_error("given up")
    {
    }
};

/// Throws GivenUp if a StopCheck of this thread says no.
void continueOrGiveUp();

/// During its lifetime, the thread does not ask the checks that existed before: for work that has been decided on and
/// must be finished.
class Undisturbed {
public:
    Undisturbed();
    ~Undisturbed();
    Undisturbed(const Undisturbed&) = delete;
    Undisturbed& operator=(const Undisturbed&) = delete;

private:
    const StopCheck* m_outer;
};

/// During its lifetime, the engine's reads of files on this thread fail once a check says no. For long reads within a
/// single step of the engine, which does not ask the checks in the meantime; never while something is changed or rolled
/// back.
class StoppableReading {
public:
    StoppableReading();
    ~StoppableReading();
    StoppableReading(const StoppableReading&) = delete;
    StoppableReading& operator=(const StoppableReading&) = delete;

    [[nodiscard]] static bool isStopped();
};

} // namespace lorvan
