#pragma once

#include "platform/work_pace.h"
#include "platform/work_watch.h"

#include <QString>

#include <chrono>
#include <optional>
#include <ostream>

namespace lorvan {

struct ToolContext;

/// A line "Ελέγχονται οι κινήσεις… [#####.....]  50%, ακόμη περίπου 2 λεπτά" on the terminal of the error stream, for
/// work that the user waits for. It appears once the work has lasted one interval, is redrawn at most once per
/// interval, tells each step of the work as it begins, and disappears at the end. If the error stream is not a
/// terminal, nothing is written. Do not write anything else to the terminal during its lifetime. From the work's
/// decision on (see decideOrGiveUp()) a signal no longer interrupts it, and the line says so; at the end of the
/// object's lifetime signals count again. To be used where an Interruption is.
class ProgressBar {
public:
    static constexpr std::chrono::milliseconds usualInterval{200};

    ProgressBar(const ToolContext& context, QString label, std::chrono::milliseconds interval = usualInterval);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// How much is done, in any unit; more than the whole counts as the whole, which is 0 if unknown. Cheap enough to
    /// be called for every row.
    void show(std::int64_t done, std::int64_t whole);

private:
    [[nodiscard]] bool decide();
    void begin(const QString& label);
    void draw();

    std::ostream& m_out;
    QString m_label;
    int m_columns;
    std::chrono::milliseconds m_interval;
    WorkPace::Time m_next;
    WorkPace m_pace;
    bool m_drawn = false;
    WorkWatch m_watch;
};

/// The line that a ProgressBar draws, for a terminal of so many columns, whose last one stays free. What does not fit
/// is left out: first the time, then the bar, then the end of the label. Without a percentage it is the label alone.
[[nodiscard]] QString progressLine(
    const QString& label, std::optional<int> percent, const QString& timeLeft, int columns);

} // namespace lorvan
