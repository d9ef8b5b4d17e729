#pragma once

#include "demo_host/forecast_zones.h"

#include <QDateTime>
#include <QString>

/// When the forecast for `zone` that is current at the moment `utc` was issued: at a full hour of
/// the state's local time that is divisible by three; days ago if the zone is stale. Local time.
[[nodiscard]] QDateTime IssueTime(const ForecastZone &zone, const QDateTime &utc);

/// The seven-day zone forecast product that is current at the moment `utc`, with LF line ends. Each
/// weekday has its own weather, and the temperatures rise and fall with the hour of issue.
[[nodiscard]] QString ZoneProduct(const ForecastZone &zone, const QDateTime &utc);
