#pragma once

#include "weather/weather_reading.h"

#include <QList>

/// What came of reading a reply from beginning to end.
struct ReadWeather
{
    bool taken = false;
    QStringList statuses = {};
    QList<double> temps = {}; ///< Readings for the min/max store: one at most.
};

/// Reads `reply` in both steps and puts the values into the profile, as the program does, with a
/// min/max store that ignores the reading.
inline ReadWeather ReadInto(WeatherProfile *profile, const QString &reply, const QDateTime &now,
                            const MinMaxTemps &minMax = {})
{
    WeatherReading reading = BeginReading(profile, reply, now);
    ReadWeather read{.taken = reading.taken, .statuses = reading.statuses};
    if (reading.temperature)
        read.temps.append(*reading.temperature);
    if (reading.taken)
        profile->values = FinishReading(std::move(reading), *profile, minMax, now);
    return read;
}
