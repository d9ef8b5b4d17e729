#pragma once

#include "profiles/weather_profile.h"

#include <QString>

#include <optional>

/// One decoded airport report: what each of its lines holds, and beside it what a profile has to
/// show of it, worked out by hand. A line that is not there is nothing.
struct AirportReport
{
    struct Wind
    {
        QString line = {};   ///< As in the report, without the ":0" at its end; shown so.
        QString metric = {}; ///< "N/A" for calm wind, which has no number.
    };

    /// A temperature of whatever kind.
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
    std::optional<QString> visibility = {}; ///< Without the ":0" at its end; shown so.
    std::optional<QString> sky = {};
    std::optional<QString> weather = {};
    std::optional<QString> precipitation = {};
    std::optional<Degrees> temperature = {};
    std::optional<Degrees> windChill = {};
    std::optional<Degrees> heatIndex = {};
    std::optional<Degrees> dewPoint = {}; ///< Comes together with the humidity.
    QString humidity = {};                ///< With its "%"; shown so.
    std::optional<Pressure> pressure = {};
    std::optional<QString> tendency = {};
};

/// A report with every line, and one with none but the temperature.
[[nodiscard]] AirportReport FullReport();
[[nodiscard]] AirportReport BareReport();

/// The report as the service sends it, raw report and cycle included.
/// @param station the ICAO code in the raw report.
[[nodiscard]] QString ReplyText(const AirportReport &report, const QString &station = "EDXX");

/// What the profiles show of a report that they take.
[[nodiscard]] WeatherValues ValuesInUsUnits(const AirportReport &report);
[[nodiscard]] WeatherValues MetricValues(const AirportReport &report);
[[nodiscard]] WeatherValues MetricValuesWithConditions(const AirportReport &report);

/// Whether the profile with conditions takes a report.
[[nodiscard]] bool IsTakenWithConditions(const AirportReport &report);
