#pragma once

#include <QString>

#include <chrono>
#include <ostream>

namespace lorvan {

struct ToolContext;

/// A line "label [#####.....]  50%" on the terminal that the error stream goes to, for work that the user waits for.
/// It appears once the work has taken the interval, is drawn anew once in each, and is gone at its end. Where the
/// error stream goes to no terminal, nothing is written at all. Write nothing else to the terminal while it lives.
class ProgressBar {
public:
    static constexpr std::chrono::milliseconds usualInterval{200};

    ProgressBar(const ToolContext& context, QString label, std::chrono::milliseconds interval = usualInterval);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// So much of the whole is done, in any unit; more than the whole counts as all of it. Cheap: to be called for
    /// every row.
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
