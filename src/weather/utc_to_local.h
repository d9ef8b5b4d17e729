#pragma once

#include "weather/date_time_text.h"

/// Shifts a UTC moment to local time by the offset from UTC that is in effect *now*, whatever it
/// was or will be at the moment itself.
///
/// @param utcOffsetSeconds local time minus UTC in seconds, positive east of Greenwich.
[[nodiscard]] constexpr Moment ConvertUtcToLocal(Moment moment, int utcOffsetSeconds)
{
    return Moment{moment.seconds + utcOffsetSeconds};
}
