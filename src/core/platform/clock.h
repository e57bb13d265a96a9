#pragma once

#include <QDateTime>

#include <functional>

namespace lorvan {

/// The only source of the current time, so that a test can set it to midnight or to the turn of a month.
class Clock {
public:
    /// The computer's own clock, in local time.
    Clock();
    /// A clock that stands still.
    explicit Clock(QDateTime fixed);

    [[nodiscard]] QDateTime now() const { return m_now(); }
    [[nodiscard]] QDate today() const { return m_now().date(); }

private:
    std::function<QDateTime()> m_now;
};

} // namespace lorvan
