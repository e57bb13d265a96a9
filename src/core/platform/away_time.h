#pragma once

#include <QDateTime>

#include <optional>
#include <utility>

namespace lorvan {

/// Tells whether somebody who comes back to a window was away for a minute or longer, in which case others may have
/// changed what the window shows.
class AwayTime {
public:
    /// If called twice, the first time counts.
    void leave(const QDateTime& now)
    {
        if (!m_left)
            m_left = now;
    }

    /// True after a minute or longer, and if the clock was turned back in the meantime. False if leave() was not
    /// called.
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
