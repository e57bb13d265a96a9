#pragma once

#include <QString>

#include <chrono>
#include <optional>

namespace lorvan {

/// How far work is and how long it still takes, judged by how far it has come since its present step began.
class WorkPace {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// How far the work is now. When less is done than before, or of another whole, a new step has begun.
    void note(qint64 done, qint64 whole, Time now);

    /// "ακόμη περίπου 2 λεπτά". Empty in the first seconds of a step, while hardly anything of it is done, when its end
    /// is not known, and once all of it is done. Changes at most once a second.
    [[nodiscard]] QString timeLeft() const { return m_text; }
    /// From 0 to 100; no value when the end is not known.
    [[nodiscard]] std::optional<int> percent() const;
    /// "40%, ακόμη περίπου 2 λεπτά"; less, or nothing, when less is known.
    [[nodiscard]] QString advance() const;

private:
    [[nodiscard]] QString estimate(std::chrono::milliseconds elapsed) const;

    qint64 m_done = 0;
    qint64 m_whole = 0;
    qint64 m_before = 0; ///< What was done when the step was first seen.
    Time m_begun = {};
    Time m_told = {};
    QString m_text;
};

/// "λίγα δευτερόλεπτα", "περίπου 20 δευτερόλεπτα", "περίπου 1 λεπτό", "περίπου 2 ώρες": rounded up.
[[nodiscard]] QString roughDuration(std::chrono::seconds duration);

} // namespace lorvan
