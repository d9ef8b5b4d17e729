#pragma once

#include "profiles/weather_profile.h"
#include "store/min_max_store.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

/// A reply that is being read.
///
/// Reading takes two steps, because the temperature must be in the min/max store before the second
/// step shows the store's extremes.
struct WeatherReading
{
    bool taken = false;        ///< False: the reply is refused, and no value may change.
    QStringList statuses = {}; ///< For the status line, in order; the last one says why a reply is
                               ///< refused.
    std::optional<double> temperature = {}; ///< A reading for the min/max store, in the profile's
                                            ///< unit; nothing when the profile keeps no extremes.
    QString working = {};                   ///< The reply, cut to the main node.
    WeatherValues values = {};              ///< So far time, location and temperature.
};

/// Reads a service's reply up to the temperature.
///
/// A reply that lacks the profile's main node, or a value that the profile requires, is refused.
///
/// @param profile null if no profile is selected; then every reply is refused. Only its closing
///                tags change: they are resolved in place, as by GetNodeValue().
/// @param now     local date and time, used where the reply has no observation time and in traces.
[[nodiscard]] WeatherReading BeginReading(WeatherProfile *profile, const QString &reply,
                                          const QDateTime &now);

/// Reads the rest of a reply that was not refused.
///
/// @param profile the one that BeginReading() was called with.
/// @param minMax  the store, with the reading's temperature in it.
/// @return all sixteen values.
[[nodiscard]] WeatherValues FinishReading(WeatherReading reading, WeatherProfile &profile,
                                          const MinMaxTemps &minMax, const QDateTime &now);
