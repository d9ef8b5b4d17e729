#pragma once

#include <sys/resource.h>
#include <sys/time.h>

#include <algorithm>
#include <vector>

// What the benchmarks without a library of their own share.

/// How often each thing is measured; the middle figure counts.
inline constexpr int kRuns = 11;

/// The middle one of an odd number of figures.
[[nodiscard]] inline double Median(std::vector<double> figures)
{
    const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2);
    std::nth_element(figures.begin(), middle, figures.end());
    return *middle;
}

/// Processor time so far, in milliseconds, of this process (RUSAGE_SELF) or of those that it has
/// started and that have ended (RUSAGE_CHILDREN).
[[nodiscard]] inline double ProcessorMilliseconds(int who)
{
    rusage used{};
    getrusage(who, &used);
    const auto milliseconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return milliseconds(used.ru_utime) + milliseconds(used.ru_stime);
}
