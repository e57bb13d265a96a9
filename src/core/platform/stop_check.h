#pragma once

#include <functional>

namespace lorvan {

/// While it lives, what its thread has the engine compute, and what it waits for (a lock, a journal to go), asks from
/// time to time whether it is to go on; where not, it ends with the error of a wait that was in vain, or with an
/// SqlError of kind Interrupted. A commit is not asked once it writes. One inside another asks both.
class StopCheck {
public:
    explicit StopCheck(std::function<bool()> goesOn);
    ~StopCheck();
    StopCheck(const StopCheck&) = delete;
    StopCheck& operator=(const StopCheck&) = delete;

    /// What the checks of this thread say; true where there is none.
    [[nodiscard]] static bool goesOn();

private:
    std::function<bool()> m_goesOn;
    const StopCheck* m_outer;
};

/// While it lives, its thread asks no check that was there before: for what is decided, and is finished first.
class Undisturbed {
public:
    Undisturbed();
    ~Undisturbed();
    Undisturbed(const Undisturbed&) = delete;
    Undisturbed& operator=(const Undisturbed&) = delete;

private:
    const StopCheck* m_outer;
};

/// While it lives, a file that the engine reads on this thread cannot be read any more once a check says no. For long
/// readings within one step of the engine, which asks nobody meanwhile; never where a change is made or taken back.
class StoppableReading {
public:
    StoppableReading();
    ~StoppableReading();
    StoppableReading(const StoppableReading&) = delete;
    StoppableReading& operator=(const StoppableReading&) = delete;

    [[nodiscard]] static bool isStopped();
};

} // namespace lorvan
