#include "graph/day_temps.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace {

constexpr qint16 kLastHour = 23;

} // namespace

DayTemps::DayTemps()
{
    ClearReadings(*this);
}

void ClearReadings(DayTemps &day)
{
    day.TempArray.fill(kNoReading);
}

void StoreReading(DayTemps &day, double temperature, qint16 hour)
{
    if (hour >= 0 && hour <= kLastHour)
        day.TempArray[std::size_t(hour)] = temperature;
}

bool IsReading(double temperature)
{
    return std::isfinite(temperature) && temperature != kNoReading;
}

std::optional<DayExtremes> FindExtremes(const DayTemps &day)
{
    std::optional<DayExtremes> found;
    for (const double temperature : day.TempArray) {
        if (!IsReading(temperature))
            continue;
        const DayExtremes sofar = found.value_or(DayExtremes{temperature, temperature});
        found = {std::min(sofar.lowest, temperature), std::max(sofar.highest, temperature)};
    }
    return found;
}

double ScaleRange(const DayTemps &day)
{
    const double range = day.MaxTemp - day.MinTemp;
    if (!std::isfinite(range))
        throw std::overflow_error("the range of the temperature scale is not finite");
    return range;
}
