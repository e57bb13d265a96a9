#pragma once

#include <QString>

#include <chrono>
#include <ostream>

namespace lorvan {

struct ToolContext;

/// A line "label [#####.....]  50%" on the terminal of the error stream, for work that the user waits for. It appears
/// once the work has lasted one interval, is redrawn at most once per interval, and disappears at the end. If the error
/// stream is not a terminal, nothing is written. Do not write anything else to the terminal during its lifetime.
class ProgressBar {
public:
    static constexpr std::chrono::milliseconds usualInterval{200};

    ProgressBar(const ToolContext& context, QString label, std::chrono::milliseconds interval = usualInterval);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// How much is done, in any unit; more than the whole counts as the whole. Cheap enough to be called for every row.
    void show(std::int64_t done, std::int64_t whole);

private:
    void draw(int percent);

    std::ostream& m_out;
    QString m_label;
    int m_columns;
    std::chrono::milliseconds m_interval;
    std::chrono::steady_clock::time_point m_next;
    bool m_drawn = false;
};

} // namespace lorvan
