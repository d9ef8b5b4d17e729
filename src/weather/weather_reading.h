#pragma once

#include "profiles/weather_profile.h"
#include "store/min_max_store.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

/// A reply on its way to values.
///
/// It is read in two steps, because the temperature of the first one goes into the min/max store
/// before the second one shows the store's extremes.
struct WeatherReading
{
    bool taken = false;        ///< False: the reply is refused, and no value may change.
    QStringList statuses = {}; ///< For the status line, in order; the last one says why a reply is
                               ///< refused.
    std::optional<double> temperature = {}; ///< A reading for the min/max store, in the profile's
                                            ///< unit; nothing when the profile keeps no extremes.
    QString working = {};                   ///< The reply, cut to what the values are in.
    WeatherValues values = {};              ///< So far time, location and temperature.
};

/// Reads a service's reply up to the temperature.
///
/// A reply is refused when the profile's main node, or a value that the profile requires, is not in
/// it.
///
/// @param profile null when no profile is selected; then every reply is refused. Its closing tags
///                are resolved in place, as GetNodeValue() does it; nothing else of it changes.
/// @param now     local date and time, used where the reply has no observation time and in traces.
[[nodiscard]] WeatherReading BeginReading(WeatherProfile *profile, const QString &reply,
                                          const QDateTime &now);

/// Reads the rest of a reply that was taken.
///
/// @param profile the one that the reading began with.
/// @param minMax  the store, with the reading's temperature in it.
/// @return all sixteen values.
[[nodiscard]] WeatherValues FinishReading(WeatherReading reading, WeatherProfile &profile,
                                          const MinMaxTemps &minMax, const QDateTime &now);
