#pragma once

#include "profiles/forecast_profile.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>
#include <cstddef>

/// The quantities that a profile locates in a reply, in the order of the record.
enum class Quantity
{
    Temperature,
    Conditions,
    WindSpeed,
    WindDir,
    Humidity,
    AtmosPress,
    DewPoint,
    WindChill,
    HeatIndex,
    Visibility,
    Sunrise,
    Sunset,
    MinTemp,
    MaxTemp,
    Precip,
    Time,
    Location,
};

inline constexpr std::size_t kQuantityCount = 17;

/// Key stems of the quantities in the profile file; the key is the stem followed by "Open" and so
/// on. The mixed case is what the profile files use.
inline constexpr std::array<QStringView, kQuantityCount> kQuantityStems{
    u"temperature", u"conditions", u"windspeed", u"windDir",    u"humidity", u"atmosPress",
    u"dewPoint",    u"windchill",  u"heatindex", u"visibility", u"sunrise",  u"sunset",
    u"minTemp",     u"maxTemp",    u"precip",    u"time",       u"location"};

/// Where one quantity stands in a reply and how it is dressed for display.
struct QuantityTags
{
    QString Open = {};
    QString Close = {};
    QString Prefix = {};
    QString Suffix = {};
    QString Units = {};
    QString Factor = {};
};

/// The last parsed value of each quantity as display-ready text, in the order of the record. Wind
/// speed and direction share one.
struct WeatherValues
{
    QString temperatureValue = {};
    QString conditionsValue = {};
    QString windSpeedDirValue = {};
    QString humidityValue = {};
    QString atmosPressValue = {};
    QString dewPointValue = {};
    QString windchillValue = {};
    QString heatindexValue = {};
    QString visibilityValue = {};
    QString sunriseValue = {};
    QString sunsetValue = {};
    QString minTempValue = {};
    QString maxTempValue = {};
    QString precipValue = {};
    QString timeValue = {};
    QString locationValue = {};

    [[nodiscard]] bool operator==(const WeatherValues &) const = default;
};

/// One value field: its name in the record and the member that holds it.
struct WeatherValueField
{
    QStringView name = {};
    QString WeatherValues::*value = nullptr;
};

/// The sixteen value fields in the order of the record.
inline constexpr std::array<WeatherValueField, 16> kWeatherValueFields{{
    {u"temperatureValue", &WeatherValues::temperatureValue},
    {u"conditionsValue", &WeatherValues::conditionsValue},
    {u"windSpeedDirValue", &WeatherValues::windSpeedDirValue},
    {u"humidityValue", &WeatherValues::humidityValue},
    {u"atmosPressValue", &WeatherValues::atmosPressValue},
    {u"dewPointValue", &WeatherValues::dewPointValue},
    {u"windchillValue", &WeatherValues::windchillValue},
    {u"heatindexValue", &WeatherValues::heatindexValue},
    {u"visibilityValue", &WeatherValues::visibilityValue},
    {u"sunriseValue", &WeatherValues::sunriseValue},
    {u"sunsetValue", &WeatherValues::sunsetValue},
    {u"minTempValue", &WeatherValues::minTempValue},
    {u"maxTempValue", &WeatherValues::maxTempValue},
    {u"precipValue", &WeatherValues::precipValue},
    {u"timeValue", &WeatherValues::timeValue},
    {u"locationValue", &WeatherValues::locationValue},
}};

/// One weather information service profile: how to ask a service for the current weather and where
/// the values stand in its reply.
struct WeatherProfile
{
    double timeStamp = 0; ///< Days since 30 December 1899; cleared only.
    QString baseURL = {}; ///< Address template with %PORT% and %LOC1%..%LOC4%.
    QString description = {};
    QString title = {}; ///< Empty: the slot is not used.
    QString copyright = {};
    QString copyrightURL = {};
    std::array<QString, 4> location = {};      ///< location1..location4, kept per session.
    std::array<QString, 4> locationTitle = {}; ///< location1Title..location4Title.
    bool concatinateWindSpeedDir = false;      ///< The profile files spell it so.
    QString windSpeedDirFormat = {};           ///< Pattern with %SPEED% and %DIR%.
    QString mainNodeOpen = {};
    QString mainNodeClose = {};
    WeatherValues values = {};
    std::array<QuantityTags, kQuantityCount> tags = {};
    QStringList required = {}; ///< Key stems whose values a reply must have; empty: none.

    [[nodiscard]] QuantityTags &operator[](Quantity quantity)
    {
        return tags[static_cast<std::size_t>(quantity)];
    }
    [[nodiscard]] const QuantityTags &operator[](Quantity quantity) const
    {
        return tags[static_cast<std::size_t>(quantity)];
    }
};

/// The ten weather profiles, which of them is current, and the forecast profile.
struct ProfileTable
{
    std::array<WeatherProfile, 10> weather = {};
    qint16 currentWeatherProfile = 0; ///< 0..9; -1 when no profile is there to choose.
    ForecastProfile forecast = {};

    /// The current profile; null when the index names none.
    [[nodiscard]] WeatherProfile *Selected()
    {
        const auto index = static_cast<std::size_t>(currentWeatherProfile);
        return currentWeatherProfile >= 0 && index < weather.size() ? &weather[index] : nullptr;
    }
};
