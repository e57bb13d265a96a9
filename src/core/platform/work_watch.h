#pragma once

#include <QString>

#include <functional>

namespace lorvan {

/// Follows long work from outside: during its lifetime it is told what its thread is doing. Nested watches are all
/// told. How far the work is comes through StepProgress, and a StopCheck gives it up.
class WorkWatch {
public:
    /// `begun` gets what is being done from now on, in Greek. `decides` is asked before the step that cannot be taken
    /// back, and returns false if the work was given up in the meantime; once it has returned true, it must not be
    /// given up any more.
    WorkWatch(std::function<void(const QString& activity)> begun, std::function<bool()> decides);
    ~WorkWatch();
    WorkWatch(const WorkWatch&) = delete;
    WorkWatch& operator=(const WorkWatch&) = delete;

private:
    friend class PartOfWork;
    friend void beginStep(const QString& activity);
    friend void decideOrGiveUp();

    std::function<void(const QString&)> m_begun;
    std::function<bool()> m_decides;
    const WorkWatch* m_outer;
};

/// During its lifetime, what this thread does is one step of larger work: the watches that existed before are told
/// `activity` alone, and are not asked by decideOrGiveUp(), since the larger work can still be given up.
class PartOfWork {
public:
    explicit PartOfWork(const QString& activity);
    ~PartOfWork();
    PartOfWork(const PartOfWork&) = delete;
    PartOfWork& operator=(const PartOfWork&) = delete;

private:
    const WorkWatch* m_outer;
};

/// Tells the watches of this thread what is being done from now on: "Ελέγχεται το αντίγραφο…".
void beginStep(const QString& activity);

/// To be called just before the commit, or before a file or folder gets its name. Throws GivenUp if the work was given
/// up: nothing has changed then. Afterwards it can no longer be given up.
void decideOrGiveUp();

} // namespace lorvan
