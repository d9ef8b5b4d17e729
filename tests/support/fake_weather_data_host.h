#pragma once

#include "weather/weather_data.h"

#include <QList>
#include <QStringList>

/// Records what the parser does to the window and hands it a min/max store.
class FakeWeatherDataHost final : public WeatherDataHost
{
public:
    void SetStatus(const QString &text) override { statuses.append(text); }
    void ShowRawData(const QString &reply) override { rawData.append(reply); }
    void CheckMinMaxTemp(double temp) override { temps.append(temp); }
    [[nodiscard]] const MinMaxTemps &MinMax() const override { return minMax; }

    QStringList statuses;
    QStringList rawData;
    QList<double> temps;
    MinMaxTemps minMax;
};
