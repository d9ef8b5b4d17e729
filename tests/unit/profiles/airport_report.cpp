#include "unit/profiles/airport_report.h"

#include "unit/profiles/shipped_profiles.h"

namespace {

void AddLine(QString &text, const char *label, const std::optional<QString> &line,
             const char *end = "")
{
    if (line)
        text += label + *line + end + '\n';
}

template <typename Part>
std::optional<QString> LineOf(const std::optional<Part> &part)
{
    return part ? std::optional(part->line) : std::nullopt;
}

QString Shown(const std::optional<QString> &text)
{
    return text.value_or(kNone.toString());
}

/// What all three profiles show in the same way.
WeatherValues CommonValues(const AirportReport &report, const QString &unit)
{
    WeatherValues values = NothingKnown(unit);
    values[Quantity::Sunrise] = kNotDelivered.toString();
    values[Quantity::Sunset] = kNotDelivered.toString();
    values[Quantity::Precip] = kNotDelivered.toString();
    values[Quantity::Time] = "2017.07.29 0750 UTC";
    if (report.dewPoint)
        values[Quantity::Humidity] = report.humidity;
    return values;
}

} // namespace

AirportReport FullReport()
{
    return {
        .wind = {{.line = "from the S (170 degrees) at 13 MPH (11 KT)",
                  .metric = "S at 21 km/h"}}, // 13 x 1.609344 = 20.92
        .visibility = "greater than 7 mile(s)",
        .sky = "mostly cloudy",
        .weather = "light rain; mist; Towering cumulus clouds observed",
        .precipitation = "0.49 inches",
        .temperature = {{.line = "60 F (16 C)", .fahrenheit = "60.0 F", .celsius = "16.0 C"}},
        .windChill = {{.line = "26 F (-3 C):1", .fahrenheit = "26.0 F", .celsius = "-3 C"}},
        .heatIndex = {{.line = "103.5 F (39.7 C):1", .fahrenheit = "103.5 F", .celsius = "39.7 C"}},
        .dewPoint = {{.line = "39.0 F (3.9 C)", .fahrenheit = "39.0 F", .celsius = "3.9 C"}},
        .humidity = "93%",
        .pressure = {{.line = "29.80 in. Hg (1009 hPa)",
                      .inches = "29.80 in",
                      .hectopascals = "1009 hPa"}},
        .tendency = "0.04 inches (1.3 hPa) lower than three hours ago"};
}

AirportReport BareReport()
{
    return {.temperature = FullReport().temperature};
}

QString ReplyText(const AirportReport &report, const QString &station)
{
    QString text = "Harbour Town, Field 20, Somewhere (" + station
                 + ") 53-38N 010-00E 15M\n"
                   "Jul 29, 2017 - 03:50 AM EDT / 2017.07.29 0750 UTC\n";
    AddLine(text, "Wind: ", LineOf(report.wind), ":0");
    AddLine(text, "Visibility: ", report.visibility, ":0");
    AddLine(text, "Sky conditions: ", report.sky);
    AddLine(text, "Weather: ", report.weather);
    AddLine(text, "Precipitation last hour: ", report.precipitation);
    AddLine(text, "Temperature: ", LineOf(report.temperature));
    AddLine(text, "Windchill: ", LineOf(report.windChill));
    AddLine(text, "Heat index: ", LineOf(report.heatIndex));
    AddLine(text, "Dew Point: ", LineOf(report.dewPoint));
    if (report.dewPoint)
        AddLine(text, "Relative Humidity: ", report.humidity);
    AddLine(text, "Pressure (altimeter): ", LineOf(report.pressure));
    AddLine(text, "Pressure tendency: ", report.tendency);
    return text + "ob: " + station
         + " 290750Z 17011KT 9999 -RA // ///// BKN037 16/15 Q1009 RMK LAST OBS/NXT 0600 UTC\n"
           "cycle: 8\n";
}

WeatherValues ValuesInUsUnits(const AirportReport &report)
{
    using Degrees = AirportReport::Degrees;
    const auto fahrenheit = [](const std::optional<Degrees> &degrees) {
        return degrees ? degrees->fahrenheit : kNone.toString();
    };
    WeatherValues values = CommonValues(report, " F");
    values[Quantity::Temperature] = fahrenheit(report.temperature);
    values[Quantity::WindSpeed] = Shown(LineOf(report.wind));
    values[Quantity::Visibility] = Shown(report.visibility);
    values[Quantity::WindChill] = fahrenheit(report.windChill);
    values[Quantity::HeatIndex] = fahrenheit(report.heatIndex);
    values[Quantity::DewPoint] = fahrenheit(report.dewPoint);
    if (report.pressure)
        values[Quantity::AtmosPress] = report.pressure->inches;
    return values;
}

WeatherValues MetricValues(const AirportReport &report)
{
    using Degrees = AirportReport::Degrees;
    const auto celsius = [](const std::optional<Degrees> &degrees) {
        return degrees ? degrees->celsius : kNone.toString();
    };
    WeatherValues values = CommonValues(report, " C");
    values[Quantity::Temperature] = celsius(report.temperature);
    if (report.wind)
        values[Quantity::WindSpeed] = report.wind->metric;
    values[Quantity::Visibility] = kNotDelivered.toString();
    values[Quantity::WindChill] = celsius(report.windChill);
    values[Quantity::HeatIndex] = celsius(report.heatIndex);
    values[Quantity::DewPoint] = celsius(report.dewPoint);
    if (report.pressure)
        values[Quantity::AtmosPress] = report.pressure->hectopascals;
    return values;
}

WeatherValues MetricValuesWithConditions(const AirportReport &report)
{
    WeatherValues values = MetricValues(report);
    values[Quantity::Conditions] = Shown(report.weather ? report.weather : report.sky);
    return values;
}

bool IsTakenWithConditions(const AirportReport &report)
{
    const bool anySight = report.wind || report.visibility || report.sky || report.weather;
    return report.temperature && anySight && !report.precipitation;
}
