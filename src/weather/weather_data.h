#pragma once

#include "core/status_line.h"
#include "profiles/weather_profile.h"
#include "store/min_max_store.h"

#include <QDateTime>
#include <QString>

/// What the parser meets besides the profile: the window's raw-data box and status label, and the
/// min/max store.
class WeatherDataHost : public StatusLine
{
public:
    /// Takes the reply for the raw-data box, as received.
    virtual void ShowRawData(const QString &reply) = 0;

    /// Takes a new temperature reading into the min/max store.
    virtual void CheckMinMaxTemp(double temp) = 0;

    /// The min/max store as it is now.
    [[nodiscard]] virtual const MinMaxTemps &MinMax() const = 0;
};

/// The reply as the raw-data box shows it: CR LF line ends, five spaces for a tab.
[[nodiscard]] QString RawDataText(QStringView reply);

/// Cuts the values of `profile` out of a service's reply and puts them into `profile.values`.
///
/// @param profile null when no profile is selected; then only the reply is shown.
/// @param now     local date and time, used where the reply has no observation time and in traces.
/// @return true when parsing ran to the end. False when the profile's main node, or a value that it
///         requires, is not in the reply; no value has changed then, and `lblStatus` says why.
[[nodiscard]] bool ParseWeatherData(WeatherProfile *profile, const QString &reply,
                                    const QDateTime &now, WeatherDataHost &host);
