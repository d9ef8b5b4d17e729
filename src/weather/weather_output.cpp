#include "weather/weather_output.h"

#include "core/number.h"
#include "core/text.h"
#include "weather/node_value.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kSection = u"Weather";
constexpr double kExtremeBound = 200; // a temperature from here on is one of the neutral values

QString DisplayedExtreme(const QString &value)
{
    const std::optional<double> number = LeadingNumber(value);
    const bool shown = number && std::abs(*number) < kExtremeBound;
    return shown ? value : kNotAvailable.toString();
}

struct OutputKey
{
    QStringView key = {};
    QString WeatherValues::*value = nullptr;
};

constexpr OutputKey kTime{u"TIME", &WeatherValues::timeValue};

/// The keys behind the credit lines, in the order of the file. The precipitation is deliberately
/// not among them.
constexpr std::array<OutputKey, 14> kOutputKeys{{
    {u"CITY", &WeatherValues::locationValue},
    {u"TEMP", &WeatherValues::temperatureValue},
    {u"CONDITIONS", &WeatherValues::conditionsValue},
    {u"WINDS", &WeatherValues::windSpeedDirValue},
    {u"PRESSURE", &WeatherValues::atmosPressValue},
    {u"HUMIDITY", &WeatherValues::humidityValue},
    {u"DEWPOINT", &WeatherValues::dewPointValue},
    {u"WINDCHILL", &WeatherValues::windchillValue},
    {u"HEATINDEX", &WeatherValues::heatindexValue},
    {u"VISIBILITY", &WeatherValues::visibilityValue},
    {u"SUNRISE", &WeatherValues::sunriseValue},
    {u"SUNSET", &WeatherValues::sunsetValue},
    {u"PREVMIN", &WeatherValues::minTempValue},
    {u"PREVMAX", &WeatherValues::maxTempValue},
}};

} // namespace

WeatherValues DisplayedValues(const WeatherValues &values)
{
    WeatherValues shown = values;
    shown.minTempValue = DisplayedExtreme(values.minTempValue);
    shown.maxTempValue = DisplayedExtreme(values.maxTempValue);
    return shown;
}

void SaveWeatherData(const IniPath &file, const WeatherValues &shown, const WeatherProfile *profile,
                     int year)
{
    IniFile output(file);
    const auto write = [&](const OutputKey &key) {
        WriteIniValue(output, kSection, key.key, shown.*key.value, true);
    };
    write(kTime);
    if (profile != nullptr) {
        WriteIniValue(output, kSection, u"COPYRIGHT", WithYear(profile->copyright, year), true);
        WriteIniValue(output, kSection, u"COPYRIGHTURL", profile->copyrightURL, true);
    }
    for (const OutputKey &key : kOutputKeys)
        write(key);
    output.Commit();
}
