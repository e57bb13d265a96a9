#pragma once

#include <QDateTime>

#include <optional>
#include <utility>

namespace lorvan {

/// Tells whether somebody who comes back to a window was away for a minute or longer, so that what the window shows may
/// have been changed by others.
class AwayTime {
public:
    /// Leaving twice counts from the first time.
    void leave(const QDateTime& now)
    {
        if (!m_left)
            m_left = now;
    }

    /// True after a minute or longer, and where the clock was turned back meanwhile. False without a leave().
    [[nodiscard]] bool comeBack(const QDateTime& now)
    {
        const auto left = std::exchange(m_left, std::nullopt);
        return left && (left->msecsTo(now) >= longTime || now < *left);
    }

private:
    static constexpr qint64 longTime = 60'000; // milliseconds

    std::optional<QDateTime> m_left;
};

} // namespace lorvan
