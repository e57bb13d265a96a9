#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace lorvan::bench {

using Action = std::function<void()>;

/// One side of a comparison. Only `timed` is measured; `restore` brings the file back to what it was.
struct Side {
    Action timed;
    Action restore = [] {};
};

/// The program's way of doing something beside the least that has to be done, both on the same file.
struct Comparison {
    QString name;
    Side floor;
    Side program;
    std::optional<double> target; ///< The greatest ratio that will do.
    int samples = 61;
    double allowance = 0; ///< Microseconds that the program may take beyond that ratio.
};

struct Figures {
    double floorMicroseconds = 0;
    double programMicroseconds = 0;

    [[nodiscard]] double ratio() const { return programMicroseconds / floorMicroseconds; }
};

/// Takes the samples of both sides in turn, each after one untimed run of its own, so that each finds its page cache as
/// it leaves it. The figures are medians; the ratio is that of one run, and does not depend on how busy the machine is.
[[nodiscard]] Figures measure(const Comparison& comparison);

void printHeading();
void printFigures(const QString& book, const Comparison& comparison, const Figures& figures);

} // namespace lorvan::bench
