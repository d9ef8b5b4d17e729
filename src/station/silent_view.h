#pragma once

#include "station/station_view.h"

/// A view that shows nothing: used when there is none, and a base for views that need only some
/// calls.
class SilentView : public StationView
{
public:
    void SetStatus(const QString & /*text*/) override {}
    void WeatherChanged() override {}
    void ForecastChanged() override {}
    void ProfilesChanged() override {}
    void CountdownsChanged() override {}
    void RequestStarted() override {}
    void RawReply(const QString & /*text*/) override {}
    void ZoneCodes(const QString & /*text*/) override {}
};
