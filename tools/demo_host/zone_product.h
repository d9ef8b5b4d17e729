#pragma once

#include "demo_host/forecast_zones.h"

#include <QDateTime>
#include <QString>

/// When the forecast of `zone` that holds at the moment `utc` was issued: at a full hour of the
/// state's local time that three divides; days ago when the zone is stale. In local time.
[[nodiscard]] QDateTime IssueTime(const ForecastZone &zone, const QDateTime &utc);

/// The zone forecast product of seven days that holds at the moment `utc`, LF line ends. Each
/// weekday has its own weather, and the temperatures rise and fall with the hour of issue.
[[nodiscard]] QString ZoneProduct(const ForecastZone &zone, const QDateTime &utc);
