#include "stopwatch.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace lorvan::bench {
namespace {

double sample(const Side& side)
{
    using Clock = std::chrono::steady_clock;
    side.timed();
    side.restore();
    const auto start = Clock::now();
    side.timed();
    const std::chrono::duration<double, std::micro> elapsed = Clock::now() - start;
    side.restore();
    return elapsed.count();
}

double median(std::vector<double>& samples)
{
    const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end());
    return *middle;
}

} // namespace

Figures measure(const Comparison& comparison)
{
    std::vector<double> floor;
    std::vector<double> program;
    for (int i = 0; i < comparison.samples; ++i) {
        floor.push_back(sample(comparison.floor));
        program.push_back(sample(comparison.program));
    }
    return {median(floor), median(program)};
}

void printHeading()
{
    std::printf(
        "%-12s %-34s %12s %12s %7s %7s\n", "movements", "operation", "floor us", "lorvan us", "ratio", "target");
}

void printFigures(const QString& book, const Comparison& comparison, const Figures& figures)
{
    std::printf("%-12s %-34s %12.1f %12.1f %7.2f", qPrintable(book), qPrintable(comparison.name),
        figures.floorMicroseconds, figures.programMicroseconds, figures.ratio());
    if (comparison.target) {
        const double limit = *comparison.target * figures.floorMicroseconds + comparison.allowance;
        std::printf(" %7.2f%s", *comparison.target, figures.programMicroseconds > limit ? "  MISSED" : "");
    }
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace lorvan::bench
