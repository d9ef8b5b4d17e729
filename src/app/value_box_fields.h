#pragma once

#include "profiles/weather_profile.h"

#include <QString>
#include <QStringView>

#include <array>

/// One of the boxes that show a value of the current weather.
struct ValueBoxField
{
    QStringView name = {};
    QStringView caption = {};
    QString WeatherValues::*value = nullptr;
    Quantity quantity = {};
    bool hasUnit = false;
    QStringView meaning = {}; ///< For the tool tip.
};

/// The sixteen boxes in the order of the page: the first four have a line of their own, the others
/// stand in pairs.
inline constexpr std::array<ValueBoxField, 16> kValueBoxFields{{
    {u"txtLocation", u"Location:", &WeatherValues::locationValue, Quantity::Location, false,
     u"Place of the observation, as the service names it."},
    {u"txtTime", u"Time:", &WeatherValues::timeValue, Quantity::Time, false,
     u"Time of the observation; of the reply where the service gives none."},
    {u"txtCurrentConditions", u"Conditions:", &WeatherValues::conditionsValue, Quantity::Conditions,
     false, u"The weather in the service's words."},
    {u"txtWindSpeedDir", u"Wind:", &WeatherValues::windSpeedDirValue, Quantity::WindSpeed, true,
     u"Wind speed and the direction it comes from."},
    {u"txtCurrentTemp", u"Temperature:", &WeatherValues::temperatureValue, Quantity::Temperature,
     true, u"Air temperature."},
    {u"txtHumidity", u"Humidity:", &WeatherValues::humidityValue, Quantity::Humidity, true,
     u"Relative humidity of the air."},
    {u"txtDewPoint", u"Dew Point:", &WeatherValues::dewPointValue, Quantity::DewPoint, true,
     u"Temperature at which dew begins to form."},
    {u"txtAtmosPress", u"Pressure:", &WeatherValues::atmosPressValue, Quantity::AtmosPress, true,
     u"Air pressure."},
    {u"txtWindChill", u"Wind Chill:", &WeatherValues::windchillValue, Quantity::WindChill, true,
     u"How cold it feels in the wind."},
    {u"txtHeatIndex", u"Heat Index:", &WeatherValues::heatindexValue, Quantity::HeatIndex, true,
     u"How hot it feels in damp air."},
    {u"txtVisibility", u"Visibility:", &WeatherValues::visibilityValue, Quantity::Visibility, true,
     u"How far one can see."},
    {u"txtPrevPrecip", u"Precipitation:", &WeatherValues::precipValue, Quantity::Precip, true,
     u"Rain and snow in the time that the service counts. Not in the output file."},
    {u"txtSunrise", u"Sunrise:", &WeatherValues::sunriseValue, Quantity::Sunrise, false,
     u"Time of sunrise."},
    {u"txtSunset", u"Sunset:", &WeatherValues::sunsetValue, Quantity::Sunset, false,
     u"Time of sunset."},
    {u"txtPrevMinTemp", u"Previous Min:", &WeatherValues::minTempValue, Quantity::MinTemp, true,
     u"Lowest temperature of the day before."},
    {u"txtPrevMaxTemp", u"Previous Max:", &WeatherValues::maxTempValue, Quantity::MaxTemp, true,
     u"Highest temperature of the day before."},
}};
