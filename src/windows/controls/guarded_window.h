#pragma once

#include <exception>

class QWidget;

namespace lorvan {

/// Tells of a failure in a box titled "Προσοχή".
void showFailure(QWidget* parent, const std::exception& failure);

/// Says in such a box that the disk did not confirm what was written, where that was noted since the last time.
void tellUnconfirmed(QWidget* parent);

/// Runs an action that may throw; a failure is told to the user and goes no further, as the event loop cannot carry it.
/// True when the action came to its end.
template <typename Action> bool guarded(QWidget* parent, const Action& action)
{
    try {
        action();
        return true;
    } catch (const std::exception& failure) {
        showFailure(parent, failure);
        return false;
    }
}

/// The box in which the program says why a book cannot be opened at the start: a missing or damaged database, a wrong
/// password, an unusable marker file, an unknown schema version; or why it cannot be upgraded now. The caller ends the
/// program after it.
void showStartFailure(const std::exception& failure);

} // namespace lorvan
