#pragma once

#include <chrono>
#include <thread>

/// Waits until `condition` holds, looking again every millisecond.
/// @return false when it does not hold within `longest`.
template <typename Condition>
[[nodiscard]] bool WaitUntil(Condition condition,
                             std::chrono::milliseconds longest = std::chrono::seconds(10))
{
    const auto deadline = std::chrono::steady_clock::now() + longest;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}
