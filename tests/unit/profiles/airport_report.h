#pragma once

#include "profiles/weather_profile.h"

#include <QString>

#include <optional>

/// One decoded airport report: what each line holds and, worked out by hand, what a profile must
/// show for it. A missing line is null.
struct AirportReport
{
    struct Wind
    {
        QString line = {};   ///< As in the report and as shown, without the ":0" at its end.
        QString metric = {}; ///< "N/A" for calm wind, which has no number.
    };

    /// A temperature of any kind.
    struct Degrees
    {
        QString line = {};
        QString fahrenheit = {};
        QString celsius = {};
    };

    struct Pressure
    {
        QString line = {};
        QString inches = {};
        QString hectopascals = {};
    };

    std::optional<Wind> wind = {};
    std::optional<QString> visibility = {}; ///< As shown, without the ":0" at its end.
    std::optional<QString> sky = {};
    std::optional<QString> weather = {};
    std::optional<QString> precipitation = {};
    std::optional<Degrees> temperature = {};
    std::optional<Degrees> windChill = {};
    std::optional<Degrees> heatIndex = {};
    std::optional<Degrees> dewPoint = {}; ///< Present only together with the humidity.
    QString humidity = {};                ///< As shown, with its "%".
    std::optional<Pressure> pressure = {};
    std::optional<QString> tendency = {};
};

/// A report with every line, and one with the temperature alone.
[[nodiscard]] AirportReport FullReport();
[[nodiscard]] AirportReport BareReport();

/// The report as the service sends it, raw report and cycle included.
/// @param station the ICAO code in the raw report.
[[nodiscard]] QString ReplyText(const AirportReport &report, const QString &station = "EDXX");

/// What the profiles show for a report that they accept.
[[nodiscard]] WeatherValues ValuesInUsUnits(const AirportReport &report);
[[nodiscard]] WeatherValues MetricValues(const AirportReport &report);
[[nodiscard]] WeatherValues MetricValuesWithConditions(const AirportReport &report);

/// Whether the profile with conditions accepts a report.
[[nodiscard]] bool IsTakenWithConditions(const AirportReport &report);
