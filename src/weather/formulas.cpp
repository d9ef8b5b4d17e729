#include "weather/formulas.h"

#include "core/trace.h"

#include <cmath>

namespace {

constexpr double kLeastHeatIndexHumidity = 40;
constexpr double kMostHumidity = 100;
constexpr double kLeastHeatIndexTemperatureF = 80;
constexpr double kMostHeatIndexTemperatureF = 150;
constexpr double kMostWindChillTemperatureF = 40;
constexpr double kMostWindChillTemperatureC = 5;
constexpr double kLeastDewPointHumidity = 50;
constexpr double kWindExponent = 0.16;

double HeatIndexRegression(double t, double rh)
{
    return -42.379 + 2.04901523 * t + 10.14333127 * rh - 0.22475541 * t * rh - 0.00683783 * t * t
         - 0.05481717 * rh * rh + 0.00122874 * t * t * rh + 0.00085282 * t * rh * rh
         - 0.00000199 * t * t * rh * rh;
}

} // namespace

double GetHeatIndexF(double temperature, double humidity)
{
    double result = kNotApplicable;
    if (humidity >= kLeastHeatIndexHumidity && humidity <= kMostHumidity
        && temperature >= kLeastHeatIndexTemperatureF
        && temperature <= kMostHeatIndexTemperatureF) {
        result = HeatIndexRegression(temperature, humidity);
        if (result < temperature) {
            result = kNotApplicable;
            Trace(u"GetHeatIndexF - getheatindexf was less than temp");
        }
    }
    Trace(u"GetHeatIndexF(temp:", temperature, u", humidity:", humidity, u"):", result);
    return result;
}

double GetHeatIndexC(double temperature, double humidity)
{
    const double fahrenheit = temperature * 9 / 5 + 32;
    const double result = (GetHeatIndexF(fahrenheit, humidity) - 32) * 5 / 9;
    return result >= temperature ? result : kNotApplicable;
}

double GetWindChillF(double temperature, double windSpeed)
{
    double result = kNotApplicable;
    if (temperature <= kMostWindChillTemperatureF) {
        const double wind = std::pow(windSpeed, kWindExponent);
        const double chill =
            35.74 + 0.6215 * temperature - 35.75 * wind + 0.4275 * temperature * wind;
        if (temperature < chill)
            Trace(u"GetWindChillF - temp was less than getwindchillf");
        else if (std::isfinite(chill)) // a negative wind speed gives no number
            result = chill;
    }
    Trace(u"GetWindChillF(temp:", temperature, u", windspeed:", windSpeed, u"):", result);
    return result;
}

double GetWindChillC(double temperature, double windSpeed)
{
    if (!(temperature <= kMostWindChillTemperatureC))
        return kNotApplicable;
    const double wind = std::pow(windSpeed, kWindExponent);
    const double chill = 13.12 + 0.6215 * temperature - 11.37 * wind + 0.3965 * temperature * wind;
    return std::isfinite(chill) && temperature >= chill ? chill : kNotApplicable;
}

double GetDewPointF(double temperature, double humidity)
{
    if (!(humidity >= kLeastDewPointHumidity))
        return kNotApplicable;
    return temperature - 9.0 / 25 * (100 - humidity);
}

double GetDewPointC(double temperature, double humidity)
{
    if (!(humidity >= kLeastDewPointHumidity))
        return kNotApplicable;
    return temperature - (100 - humidity) / 5;
}
