#include "demo_host/json_replies.h"

#include "demo_host/reply_texts.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kKmPerMile = 1.609344;
constexpr double kKmPerKnot = 1.852;
constexpr int kIntervalSeconds = 900; ///< The service's values change every quarter of an hour.

// The sun rises and sets at these hours everywhere and all year.
constexpr QStringView kSunrise = u"06:30";
constexpr QStringView kSunset = u"18:30";

QString Text(const QString &text)
{
    return u'"' + text + u'"';
}

/// The wind direction as a number; services report calm air as north.
QString Direction(const DayWeather &weather)
{
    return QString::number(weather.windDegrees % 360);
}

double Rain(const DayWeather &weather) // millimetres
{
    return weather.rain.isEmpty() ? 0 : 0.4;
}

/// A temperature in the units that `query` requests.
QString Temperature(double celsius, const AddressQuery &query)
{
    const bool fahrenheit = query[u"temperature_unit"_s] == u"fahrenheit"_s;
    return Number(fahrenheit ? Fahrenheit(celsius) : celsius, 1);
}

QString Speed(double knots, const AddressQuery &query)
{
    const bool miles = query[u"wind_speed_unit"_s] == u"mph"_s;
    return Number(miles ? MilesPerHour(knots) : knots * kKmPerKnot, 1);
}

QString Precipitation(double millimetres, const AddressQuery &query)
{
    if (query[u"precipitation_unit"_s] == u"inch"_s)
        return Number(millimetres / 25.4, 3);
    return Number(millimetres, 2);
}

/// One current quantity of a position reply; nothing for a name that the service does not have.
std::optional<QString> CurrentValue(const QString &name, const Station &station,
                                    const DayWeather &weather, const AddressQuery &query)
{
    if (name == u"temperature_2m"_s)
        return Temperature(weather.temperatureC, query);
    if (name == u"dew_point_2m"_s)
        return Temperature(weather.dewPointC, query);
    if (name == u"relative_humidity_2m"_s)
        return QString::number(weather.humidity);
    if (name == u"precipitation"_s)
        return Precipitation(Rain(weather), query);
    if (name == u"pressure_msl"_s)
        return Number(weather.pressureHpa, 1);
    if (name == u"visibility"_s)
        return Number(station.visibilityMiles * kKmPerMile * 1000, 2);
    if (name == u"wind_speed_10m"_s)
        return Speed(weather.windKnots, query);
    if (name == u"wind_direction_10m"_s)
        return Direction(weather);
    if (name == u"wind_gusts_10m"_s)
        return Speed(weather.windKnots * 1.5, query);
    return {};
}

/// One daily quantity of a position reply, as the list of its one day.
std::optional<QString> DailyValue(const QString &name, const QString &day)
{
    if (name == u"sunrise"_s)
        return u"[\"%1T%2\"]"_s.arg(day, kSunrise);
    if (name == u"sunset"_s)
        return u"[\"%1T%2\"]"_s.arg(day, kSunset);
    if (name == u"uv_index_max"_s)
        return u"[4.5]"_s;
    return {};
}

QString Member(const QString &name, const QString &value)
{
    return u"\"%1\":%2"_s.arg(name, value);
}

/// The members of an object whose names a query lists; nothing if `value` does not know one.
template <typename Value>
std::optional<QStringList> Members(const QString &names, Value value)
{
    QStringList members;
    for (const QString &name : names.split(u',', Qt::SkipEmptyParts)) {
        const std::optional<QString> text = value(name);
        if (!text)
            return {};
        members.append(Member(name, *text));
    }
    return members;
}

/// One quantity of an observation: its unit, and its value or null.
QString Measurement(const QString &name, const QString &unit, const std::optional<QString> &value)
{
    return u"        \"%1\": {\n"
           "            \"unitCode\": \"wmoUnit:%2\",\n"
           "            \"value\": %3,\n"
           "            \"qualityControl\": \"%4\"\n"
           "        },\n"_s.arg(name, unit, value.value_or(u"null"_s), value ? u"V"_s : u"Z"_s);
}

QString ObservationWarmth(const Station &station, const DayWeather &weather)
{
    std::optional<QString> temperature;
    std::optional<QString> dewPoint;
    std::optional<QString> humidity;
    if (station.reportsTemperature) {
        temperature = Number(weather.temperatureC, 1);
        dewPoint = Number(weather.dewPointC, 1);
        humidity = QString::number(weather.humidity);
    }
    return Measurement(u"temperature"_s, u"degC"_s, temperature)
         + Measurement(u"dewpoint"_s, u"degC"_s, dewPoint)
         + Measurement(u"windDirection"_s, u"degree_(angle)"_s, Direction(weather))
         + Measurement(u"windSpeed"_s, u"km_h-1"_s, Number(weather.windKnots * kKmPerKnot, 3))
         + Measurement(u"windGust"_s, u"km_h-1"_s, {})
         + Measurement(u"barometricPressure"_s, u"Pa"_s, Number(weather.pressureHpa * 100, 0))
         + Measurement(u"seaLevelPressure"_s, u"Pa"_s, {})
         + Measurement(u"visibility"_s, u"m"_s,
                       station.reportsSky
                           ? std::optional(Number(station.visibilityMiles * kKmPerMile * 1000, 0))
                           : std::nullopt)
         + Measurement(u"relativeHumidity"_s, u"percent"_s, humidity)
         + Measurement(u"windChill"_s, u"degC"_s, {}) + Measurement(u"heatIndex"_s, u"degC"_s, {});
}

QString Sentence(QStringView words)
{
    QString text = words.toString();
    if (!text.isEmpty())
        text[0] = text[0].toUpper();
    return text;
}

/// The quantities of a place reply, which are texts in alphabetical order.
QString PlaceValues(const Station &station, const DayWeather &weather, const QDateTime &local,
                    const QDateTime &utc)
{
    const auto member = [](const QString &name, const QString &value) {
        return u"          \"%1\": \"%2\",\n"_s.arg(name, value);
    };
    const QString words = Sentence(weather.rain.isEmpty() ? weather.sky : weather.rain);
    return member(u"humidity"_s, QString::number(weather.humidity))
         + member(u"localObsDateTime"_s, Date(local, u"yyyy-MM-dd hh:mm AP"_s))
         + member(u"observation_time"_s, Date(utc, u"hh:mm AP"_s))
         + member(u"precipMM"_s, Number(Rain(weather), 1))
         + member(u"pressure"_s, Number(weather.pressureHpa, 0))
         + member(u"temp_C"_s, Number(weather.temperatureC, 0))
         + member(u"temp_F"_s, Number(Fahrenheit(weather.temperatureC), 0))
         + member(u"visibility"_s, Number(station.visibilityMiles * kKmPerMile, 0))
         + u"          \"weatherDesc\": [\n              {\n"
           "                  \"value\": \"%1\"\n              }\n          ],\n"_s.arg(words)
         + member(u"winddir16Point"_s, CompassPoint(weather.windDegrees).toString())
         + member(u"winddirDegree"_s, Direction(weather))
         + member(u"windspeedKmph"_s, Number(weather.windKnots * kKmPerKnot, 0))
         + u"          \"windspeedMiles\": \"%1\"\n"_s.arg(
             Number(MilesPerHour(weather.windKnots), 0));
}

} // namespace

std::optional<QString> PositionReply(const AddressQuery &query, const QDateTime &utc)
{
    bool isLatitude = false;
    bool isLongitude = false;
    const double latitude = query[u"latitude"_s].toDouble(&isLatitude);
    const double longitude = query[u"longitude"_s].toDouble(&isLongitude);
    if (!isLatitude || !isLongitude)
        return {};

    const Station &station = NearestStation(latitude, longitude);
    const qint64 seconds = utc.toSecsSinceEpoch() / kIntervalSeconds * kIntervalSeconds;
    const QDateTime local = LocalTime(station, QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC));
    const DayWeather weather = WeatherAt(station, local.time());
    const QString day = Date(local, u"yyyy-MM-dd"_s);
    const auto current = Members(query[u"current"_s], [&](const QString &name) {
        return CurrentValue(name, station, weather, query);
    });
    const auto daily =
        Members(query[u"daily"_s], [&](const QString &name) { return DailyValue(name, day); });
    if (!current || !daily)
        return {};

    const QStringList head{
        Member(u"latitude"_s, QString::number(station.latitude)),
        Member(u"longitude"_s, QString::number(station.longitude)),
        Member(u"utc_offset_seconds"_s, QString::number(station.utcOffsetMinutes * 60)),
        Member(u"current_units"_s, u"{\"time\":\"iso8601\",\"interval\":\"seconds\"}"_s)};
    const QStringList now{Member(u"time"_s, Text(Date(local, u"yyyy-MM-dd'T'HH:mm"_s))),
                          Member(u"interval"_s, QString::number(kIntervalSeconds))};
    const QStringList today{Member(u"time"_s, u"[\"%1\"]"_s.arg(day))};
    return u"{%1,\"current\":{%2},\"daily_units\":{\"time\":\"iso8601\"},\"daily\":{%3}}"_s.arg(
        head.join(u','), (now + *current).join(u','), (today + *daily).join(u','));
}

QString ObservationJson(const Station &station, const QDateTime &utc)
{
    const DayWeather weather = WeatherAt(station, LocalTime(station, utc).time());
    const QString words = Sentence(weather.rain.isEmpty() ? weather.sky : weather.rain);
    return u"{\n"
           "    \"id\": \"http://127.0.0.1/stations/%1/observations\",\n"
           "    \"type\": \"Feature\",\n"
           "    \"properties\": {\n"
           "        \"stationId\": \"%1\",\n"
           "        \"stationName\": \"%2\",\n"
           "        \"timestamp\": \"%3\",\n"
           "        \"rawMessage\": \"\",\n"
           "        \"textDescription\": \"%4\",\n"
           "        \"presentWeather\": [],\n"
           "%5"
           "        \"cloudLayers\": []\n"
           "    }\n"
           "}\n"_s.arg(station.code, station.place, Date(utc, u"yyyy-MM-dd'T'HH:mm:ss'+00:00'"_s),
                       station.reportsSky ? words : QString(), ObservationWarmth(station, weather));
}

QString PlaceReply(const Station &station, const QDateTime &utc)
{
    const QDateTime local = LocalTime(station, utc);
    const DayWeather weather = WeatherAt(station, local.time());
    const QString town = station.place.toString().section(u' ', 0, 0).section(u'-', 0, 0);
    return u"{\n"
           "  \"current_condition\": [\n"
           "      {\n"
           "%1"
           "      }\n"
           "  ],\n"
           "  \"nearest_area\": [\n"
           "      {\n"
           "          \"areaName\": [\n"
           "              {\n"
           "                  \"value\": \"%2\"\n"
           "              }\n"
           "          ]\n"
           "      }\n"
           "  ],\n"
           "  \"weather\": [\n"
           "      {\n"
           "          \"astronomy\": [\n"
           "              {\n"
           "                  \"sunrise\": \"06:30 AM\",\n"
           "                  \"sunset\": \"06:30 PM\"\n"
           "              }\n"
           "          ],\n"
           "          \"date\": \"%3\",\n"
           "          \"sunHour\": \"9.0\",\n"
           "          \"totalSnow_cm\": \"0.0\",\n"
           "          \"uvIndex\": \"4\"\n"
           "      }\n"
           "  ]\n"
           "}\n"_s.arg(PlaceValues(station, weather, local, utc), town,
                       Date(local, u"yyyy-MM-dd"_s));
}

const Station *FindPlace(QStringView place)
{
    if (const Station *station = FindStation(place))
        return station;
    const auto &stations = Stations();
    const auto *found = std::ranges::find_if(
        stations, [&](const Station &station) { return station.place.startsWith(place); });
    return place.isEmpty() || found == stations.end() ? nullptr : found;
}
