#pragma once

#include <sys/resource.h>
#include <sys/time.h>

#include <algorithm>
#include <vector>

// Shared by the benchmarks that do not use a benchmark library.

/// How often each thing is measured; the median counts.
inline constexpr int kRuns = 11;

/// The median of an odd number of figures.
[[nodiscard]] inline double Median(std::vector<double> figures)
{
    const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2);
    std::nth_element(figures.begin(), middle, figures.end());
    return *middle;
}

/// Processor time so far, in milliseconds, of this process (RUSAGE_SELF) or of the ended processes
/// that it has started (RUSAGE_CHILDREN).
[[nodiscard]] inline double ProcessorMilliseconds(int who)
{
    rusage used{};
    getrusage(who, &used);
    const auto milliseconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return milliseconds(used.ru_utime) + milliseconds(used.ru_stime);
}
