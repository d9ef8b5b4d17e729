#pragma once

#include "station/station.h"

/// A station whose internals a test may read and change.
class OpenStation final : public Station
{
public:
    using Station::Station;

    ProgramFiles &files = m_files;
    ProfileTable &profiles = m_profiles;
    MinMaxTemps &minMax = m_minMax;

    [[nodiscard]] TransferHandle WeatherThreadHandle() const
    {
        return m_weather.WeatherThreadHandle();
    }
    [[nodiscard]] TransferHandle ForecastThreadHandle() const
    {
        return m_forecast.ForecastThreadHandle();
    }
    [[nodiscard]] qint16 ForecastRequestCountdown() const
    {
        return m_forecast.ForecastRequestCountdown();
    }
    void SetForecastRequestCountdown(qint16 milliseconds)
    {
        m_forecast.SetForecastRequestCountdown(milliseconds);
    }
};
