#pragma once

#include <exception>

class QWidget;

namespace lorvan {

/// Reports a failure in a box titled "Προσοχή".
void showFailure(QWidget* parent, const std::exception& failure);

/// Says in such a box that the disk did not confirm what was written, if that has been noted since the last time.
void tellUnconfirmed(QWidget* parent);

/// Runs an action that may throw. A failure is shown to the user and not passed on, since exceptions must not reach the
/// event loop. Returns true if the action was completed.
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

/// Says in a box why a book cannot be opened at the start: a missing or damaged database, a wrong password, an unusable
/// marker file, an unknown schema version; or why it cannot be upgraded now. The caller then ends the program.
void showStartFailure(const std::exception& failure);

} // namespace lorvan
