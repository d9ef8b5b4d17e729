#pragma once

#include "demo_host/forecast_zones.h"

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <optional>

/// The page that lists the zone files of a state at the moment `utc`, one table row each.
[[nodiscard]] QString ZoneListingPage(const ForecastState &state, const QDateTime &utc);

/// The zone file with that name in the state's folder at the moment `utc`; nothing if there is
/// none. Names are case-sensitive.
[[nodiscard]] std::optional<QString> ZoneFile(const ForecastState &state, QStringView fileName,
                                              const QDateTime &utc);
