#pragma once

#include "station/station_view.h"

#include <QStringList>

/// Keeps what a station tells, in order.
class RecordedView final : public StationView
{
public:
    void SetStatus(const QString &text) override
    {
        statuses.append(text);
        told.append("status");
    }
    void WeatherChanged() override { told.append("weather"); }
    void ForecastChanged() override { told.append("forecast"); }
    void ProfilesChanged() override { told.append("profiles"); }
    void CountdownsChanged() override { told.append("countdowns"); }
    void RequestStarted() override { told.append("request"); }
    void RawReply(const QString &text) override
    {
        replies.append(text);
        told.append("reply");
    }
    void ZoneCodes(const QString &text) override
    {
        zoneCodes.append(text);
        told.append("zone codes");
    }

    QStringList told;
    QStringList statuses;
    QStringList replies;
    QStringList zoneCodes;
};
