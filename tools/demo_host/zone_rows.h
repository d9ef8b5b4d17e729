#pragma once

#include "demo_host/forecast_zones.h"

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <optional>

/// The page that lists the zone files of a state, one table row each, at the moment `utc`.
[[nodiscard]] QString ZoneListingPage(const ForecastState &state, const QDateTime &utc);

/// The zone file of that name in the state's folder as it is at the moment `utc`; nothing when
/// there is none. Capitals in a name count.
[[nodiscard]] std::optional<QString> ZoneFile(const ForecastState &state, QStringView fileName,
                                              const QDateTime &utc);
