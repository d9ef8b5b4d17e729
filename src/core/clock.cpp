#include "core/clock.h"

#ifdef Q_OS_LINUX
#include <ctime>
#endif

std::chrono::nanoseconds SystemClock::SinceBoot() const
{
#ifdef Q_OS_LINUX
    // The steady clock of the library stands still while the machine sleeps.
    timespec now{};
    if (clock_gettime(CLOCK_BOOTTIME, &now) == 0)
        return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
#endif
    return std::chrono::steady_clock::now().time_since_epoch();
}
