#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <array>

/// A station of the demo host: where it is and what its weather is like.
struct Station
{
    QStringView code = {};     ///< Four capital letters.
    QStringView place = {};    ///< As the services name it.
    QStringView position = {}; ///< Latitude, longitude and elevation of a decoded report.
    double latitude = 0;       ///< Degrees, north positive.
    double longitude = 0;      ///< Degrees, east positive.
    int utcOffsetMinutes = 0;  ///< Of its local time, the whole year.
    QStringView zone = {};     ///< The name of that time.

    double meanC = 0;       ///< Mean temperature of the day, degrees Celsius.
    double swingC = 0;      ///< How far the warmest hour is above the mean.
    double dewPointC = 0;   ///< The air's dew point; must not be above the coldest hour.
    int windDegrees = 0;    ///< Where the wind comes from at noon, a multiple of 10.
    int windKnots = 0;      ///< Of the windiest hour; 0: always calm.
    double pressureHpa = 0; ///< Mean of the day.
    int visibilityMiles = 0;
    bool rainyAfternoon = false;

    bool reportsTemperature = true;
    bool reportsSky = true; ///< Sky conditions and visibility.
};

/// The weather at one moment. All quantities are consistent: the humidity follows from temperature
/// and dew point as printed.
struct DayWeather
{
    double temperatureC = 0; ///< Whole tenths.
    double dewPointC = 0;    ///< Whole tenths, never above the temperature.
    int humidity = 0;        ///< Percent, 1..100.
    int windDegrees = 0;     ///< 10..360, a multiple of 10; 0 if it is calm.
    int windKnots = 0;       ///< 0: calm.
    double pressureHpa = 0;  ///< Whole tenths.
    QStringView sky = {};    ///< In lower case, as in "mostly cloudy".
    QStringView rain = {};   ///< As in "light rain"; empty if it is dry.
};

/// All stations of the host.
[[nodiscard]] const std::array<Station, 7> &Stations();

/// The station with that code, null if there is none.
[[nodiscard]] const Station *FindStation(QStringView code);

/// The station nearest to the given position, in degrees.
[[nodiscard]] const Station &NearestStation(double latitude, double longitude);

/// The moment `utc` in the station's local time.
[[nodiscard]] QDateTime LocalTime(const Station &station, const QDateTime &utc);

/// The station's weather at `local`, its local time of day: warmest at 3 PM, coldest at 3 AM,
/// windiest at 2 PM. Every day is the same.
[[nodiscard]] DayWeather WeatherAt(const Station &station, QTime local);

/// Relative humidity in percent, 1..100, of air with that temperature and dew point.
[[nodiscard]] int HumidityPercent(double temperatureC, double dewPointC);

/// Degrees Fahrenheit of a temperature in degrees Celsius, rounded to a tenth.
[[nodiscard]] double Fahrenheit(double celsius);

/// Miles per hour of a speed in knots, not rounded.
[[nodiscard]] double MilesPerHour(double knots);

/// The compass point, one of sixteen ("NNE"), nearest to a direction of 0..360 degrees.
[[nodiscard]] QStringView CompassPoint(int degrees);
