#include "platform/engine/steady_reading.h"

#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"
#include "platform/stop_check.h"

#include <chrono>
#include <thread>

namespace lorvan {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds betweenAttempts{5};

/// An error although nobody has written is retried once: on a file server, reads may lag behind the file's state.
bool mayPass(const SqlError& error, bool isFirst, bool isUnchanged)
{
    if (error.kind() == SqlError::Kind::Busy)
        return true;
    return error.kind() != SqlError::Kind::Interrupted && (isFirst || !isUnchanged);
}

} // namespace

void readSteadily(Connection& connection, const std::function<void()>& read)
{
    if (!connection.watch() || connection.isReading()) {
        read();
        return;
    }
    const auto deadline = steady_clock::now() + 2 * Connection::usualPatience;
    for (bool isFirst = true;; isFirst = false) {
        const FileWatch::State before = connection.beginReading();
        try {
            read();
            return;
        } catch (const SqlError& error) {
            if (steady_clock::now() >= deadline || !StopCheck::goesOn()
                || !mayPass(error, isFirst, connection.watch()->isAs(before)))
                throw;
        }
        std::this_thread::sleep_for(betweenAttempts);
    }
}

} // namespace lorvan
