#include "demo_host/day_weather.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr std::array<Station, 7> kStations{{
    {.code = u"KSEA",
     .place = u"Seattle-Tacoma International Airport, WA",
     .position = u"47-27N 122-19W 132M",
     .latitude = 47.45,
     .longitude = -122.31,
     .utcOffsetMinutes = -480,
     .zone = u"PST",
     .meanC = 12.5,
     .swingC = 4.7,
     .dewPointC = 7.2,
     .windDegrees = 200,
     .windKnots = 9,
     .pressureHpa = 1016.4,
     .visibilityMiles = 10,
     .rainyAfternoon = true},
    {.code = u"KBWI",
     .place = u"Baltimore-Washington International Airport, MD",
     .position = u"39-10N 076-41W 45M",
     .latitude = 39.17,
     .longitude = -76.68,
     .utcOffsetMinutes = -300,
     .zone = u"EST",
     .meanC = 17.0,
     .swingC = 6.0,
     .dewPointC = 9.0,
     .windDegrees = 300,
     .windKnots = 12,
     .pressureHpa = 1013.0,
     .visibilityMiles = 10},
    {.code = u"PAFA",
     .place = u"Fairbanks International Airport, AK",
     .position = u"64-48N 147-53W 134M",
     .latitude = 64.8,
     .longitude = -147.88,
     .utcOffsetMinutes = -540,
     .zone = u"AKST",
     .meanC = -18.0,
     .swingC = 5.0,
     .dewPointC = -26.0,
     .windDegrees = 20,
     .windKnots = 6,
     .pressureHpa = 987.0,
     .visibilityMiles = 6},
    {.code = u"EGLL",
     .place = u"London Heathrow Airport, United Kingdom",
     .position = u"51-29N 000-27W 24M",
     .latitude = 51.48,
     .longitude = -0.45,
     .utcOffsetMinutes = 0,
     .zone = u"GMT",
     .meanC = 11.0,
     .swingC = 4.0,
     .dewPointC = 6.0,
     .windDegrees = 240,
     .windKnots = 11,
     .pressureHpa = 1009.0,
     .visibilityMiles = 7,
     .rainyAfternoon = true},
    // Always calm.
    {.code = u"EDDH",
     .place = u"Hamburg-Fuhlsbuettel, Germany",
     .position = u"53-38N 010-00E 15M",
     .latitude = 53.63,
     .longitude = 10.0,
     .utcOffsetMinutes = 60,
     .zone = u"CET",
     .meanC = 10.0,
     .swingC = 5.0,
     .dewPointC = 4.0,
     .pressureHpa = 1020.0,
     .visibilityMiles = 7},
    // Its instruments for sky and visibility are broken.
    {.code = u"EKCH",
     .place = u"Copenhagen Airport, Denmark",
     .position = u"55-37N 012-39E 5M",
     .latitude = 55.62,
     .longitude = 12.65,
     .utcOffsetMinutes = 60,
     .zone = u"CET",
     .meanC = 9.0,
     .swingC = 3.0,
     .dewPointC = 5.0,
     .windDegrees = 260,
     .windKnots = 14,
     .pressureHpa = 1012.0,
     .visibilityMiles = 7,
     .reportsSky = false},
    // Its thermometer is broken.
    {.code = u"BIKF",
     .place = u"Keflavik Airport, Iceland",
     .position = u"63-58N 022-36W 52M",
     .latitude = 63.97,
     .longitude = -22.6,
     .utcOffsetMinutes = 0,
     .zone = u"GMT",
     .meanC = 4.0,
     .swingC = 2.0,
     .dewPointC = 1.0,
     .windDegrees = 90,
     .windKnots = 20,
     .pressureHpa = 998.0,
     .visibilityMiles = 7,
     .reportsTemperature = false},
}};

constexpr int kHoursOfDay = 24;

double Tenths(double value)
{
    return std::round(value * 10) / 10;
}

/// A wave around the clock: 1 at the hour `crest`, -1 twelve hours from there.
double Wave(QTime time, int crest)
{
    const double hours = time.msecsSinceStartOfDay() / 3'600'000.0;
    return std::cos(2 * std::numbers::pi * (hours - crest) / kHoursOfDay);
}

/// The wind turns clockwise from its direction at noon, 10 degrees every two hours.
int WindDirection(int atNoon, int hour)
{
    const int degrees = (atNoon + (hour - 12) / 2 * 10 + 360) % 360;
    return degrees == 0 ? 360 : degrees;
}

QStringView Sky(int hour)
{
    if (hour < 6)
        return u"clear";
    if (hour < 12)
        return u"partly cloudy";
    return hour < 18 ? u"mostly cloudy" : u"mostly clear";
}

} // namespace

const std::array<Station, 7> &Stations()
{
    return kStations;
}

const Station *FindStation(QStringView code)
{
    const auto *found = std::ranges::find(kStations, code, &Station::code);
    return found == kStations.end() ? nullptr : found;
}

const Station &NearestStation(double latitude, double longitude)
{
    const auto distance = [&](const Station &station) {
        return std::hypot(station.latitude - latitude, station.longitude - longitude);
    };
    return *std::ranges::min_element(kStations, {}, distance);
}

QDateTime LocalTime(const Station &station, const QDateTime &utc)
{
    return utc.toOffsetFromUtc(station.utcOffsetMinutes * 60);
}

DayWeather WeatherAt(const Station &station, QTime local)
{
    DayWeather weather;
    weather.temperatureC = Tenths(station.meanC + station.swingC * Wave(local, 15));
    weather.dewPointC = std::min(station.dewPointC, weather.temperatureC);
    weather.humidity = HumidityPercent(weather.temperatureC, weather.dewPointC);
    // Half of the wind is constant, the other half drops at night.
    weather.windKnots = int(std::lround(station.windKnots * (0.75 + 0.25 * Wave(local, 14))));
    if (weather.windKnots > 0)
        weather.windDegrees = WindDirection(station.windDegrees, local.hour());
    weather.pressureHpa = Tenths(station.pressureHpa + Wave(local, 10));
    const bool rains = station.rainyAfternoon && local.hour() >= 12 && local.hour() < 18;
    weather.sky = rains ? u"overcast" : Sky(local.hour());
    weather.rain = rains ? u"light rain" : u"";
    return weather;
}

int HumidityPercent(double temperatureC, double dewPointC)
{
    // Magnus' formula; the vapour pressures' common factor drops out.
    const auto pressure = [](double celsius) {
        return std::exp(17.625 * celsius / (243.04 + celsius));
    };
    const double percent = 100 * pressure(dewPointC) / pressure(temperatureC);
    return std::clamp(int(std::lround(percent)), 1, 100);
}

double Fahrenheit(double celsius)
{
    return Tenths(celsius * 1.8 + 32);
}

double MilesPerHour(double knots)
{
    return knots * 1.150779;
}

QStringView CompassPoint(int degrees)
{
    constexpr std::array<QStringView, 16> points{u"N",  u"NNE", u"NE", u"ENE", u"E",  u"ESE",
                                                 u"SE", u"SSE", u"S",  u"SSW", u"SW", u"WSW",
                                                 u"W",  u"WNW", u"NW", u"NNW"};
    return points[std::size_t(std::lround(degrees / 22.5)) % points.size()];
}
