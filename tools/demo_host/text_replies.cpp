#include "demo_host/text_replies.h"

#include "demo_host/reply_texts.h"

#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr double kInchesPerHpa = 0.02953;
constexpr int kEasternOffset = -5 * 3600; ///< Seconds; the reports' own clock, all year.

/// An offset from UTC as mail headers write it: "-0500".
QString OffsetText(int minutes)
{
    const int size = std::abs(minutes);
    return u"%1%2%3"_s.arg(QChar(minutes < 0 ? u'-' : u'+'))
        .arg(size / 60, 2, 10, QChar(u'0'))
        .arg(size % 60, 2, 10, QChar(u'0'));
}

/// Wind chill in degrees Fahrenheit; nothing if it is too warm or too calm for one.
std::optional<double> WindChill(double fahrenheit, double milesPerHour)
{
    if (fahrenheit > 50 || milesPerHour < 3)
        return {};
    const double power = std::pow(milesPerHour, 0.16);
    return 35.74 + 0.6215 * fahrenheit + (0.4275 * fahrenheit - 35.75) * power;
}

double Celsius(double fahrenheit)
{
    return (fahrenheit - 32) / 1.8;
}

QString Both(double celsius)
{
    return u"%1 F (%2 C)"_s.arg(Number(Fahrenheit(celsius), 1), Number(celsius, 1));
}

QString DecodedWind(const DayWeather &weather)
{
    if (weather.windKnots == 0)
        return u"Calm:0"_s;
    return u"from the %1 (%2 degrees) at %3 MPH (%4 KT):0"_s.arg(
        CompassPoint(weather.windDegrees), QString::number(weather.windDegrees),
        Number(MilesPerHour(weather.windKnots), 0), QString::number(weather.windKnots));
}

/// The lines with the temperatures.
QString DecodedWarmth(const DayWeather &weather)
{
    QString lines = u"Temperature: "_s + Both(weather.temperatureC) + u'\n';
    const auto chill = WindChill(Fahrenheit(weather.temperatureC), MilesPerHour(weather.windKnots));
    if (chill)
        lines += u"Windchill: %1 F (%2 C):1\n"_s.arg(Number(*chill, 0), Number(Celsius(*chill), 0));
    lines += u"Dew Point: "_s + Both(weather.dewPointC) + u'\n';
    lines += u"Relative Humidity: %1%\n"_s.arg(weather.humidity);
    return lines;
}

QString Capitalised(QStringView words)
{
    QString text = words.toString();
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (i == 0 || text[i - 1] == u' ')
            text[i] = text[i].toUpper();
    }
    return text;
}

QStringView WindName(int degrees)
{
    constexpr std::array<QStringView, 8> names{u"North", u"Northeast", u"East", u"Southeast",
                                               u"South", u"Southwest", u"West", u"Northwest"};
    return names[std::size_t(std::lround(degrees / 45.0)) % names.size()];
}

/// One element of the XML, indented by a tab.
QString Element(QStringView name, const QString &text, QStringView lineEnd = u"\n")
{
    return u"\t<%1>%2</%1>%3"_s.arg(name, text, lineEnd);
}

QString XmlWarmth(const DayWeather &weather)
{
    return Element(u"temperature_string", Both(weather.temperatureC), u"\r\n")
         + Element(u"temp_f", Number(Fahrenheit(weather.temperatureC), 1), u"\r\n")
         + Element(u"temp_c", Number(weather.temperatureC, 1))
         + Element(u"relative_humidity", QString::number(weather.humidity));
}

QString XmlWind(const DayWeather &weather)
{
    const QString mph = Number(MilesPerHour(weather.windKnots), 1);
    const QString name = WindName(weather.windDegrees).toString();
    const QString knots = QString::number(weather.windKnots);
    return Element(u"wind_string", weather.windKnots == 0
                                       ? u"Calm"_s
                                       : u"%1 at %2 MPH (%3 KT)"_s.arg(name, mph, knots))
         + Element(u"wind_dir", name)
         + Element(u"wind_degrees", QString::number(weather.windDegrees))
         + Element(u"wind_mph", mph) + Element(u"wind_kt", knots);
}

QString XmlDewPointAndChill(const DayWeather &weather)
{
    QString text = Element(u"dewpoint_string", Both(weather.dewPointC), u"\r\n")
                 + Element(u"dewpoint_f", Number(Fahrenheit(weather.dewPointC), 1), u"\r\n")
                 + Element(u"dewpoint_c", Number(weather.dewPointC, 1));
    const auto chill = WindChill(Fahrenheit(weather.temperatureC), MilesPerHour(weather.windKnots));
    if (chill) {
        const QString f = Number(*chill, 0);
        const QString c = Number(Celsius(*chill), 0);
        text += Element(u"windchill_string", u"%1 F (%2 C)"_s.arg(f, c))
              + Element(u"windchill_f", f) + Element(u"windchill_c", c);
    }
    return text;
}

} // namespace

QString DecodedReport(const Station &station, const QDateTime &utc)
{
    const DayWeather weather = WeatherAt(station, LocalTime(station, utc).time());
    QString text = u"%1 (%2) %3\n"_s.arg(station.place, station.code, station.position);
    text += Date(utc.toOffsetFromUtc(kEasternOffset), u"MMM dd, yyyy - hh:mm AP"_s) + u" EST / "_s
          + Date(utc, u"yyyy.MM.dd HHmm"_s) + u" UTC\n"_s;
    text += u"Wind: "_s + DecodedWind(weather) + u'\n';
    if (station.reportsSky) {
        text += u"Visibility: %1 mile(s):0\n"_s.arg(station.visibilityMiles);
        text += u"Sky conditions: %1\n"_s.arg(weather.sky);
    }
    if (!weather.rain.isEmpty())
        text += u"Weather: %1\n"_s.arg(weather.rain);
    if (station.reportsTemperature)
        text += DecodedWarmth(weather);
    text += u"Pressure (altimeter): %1 in. Hg (%2 hPa)\n"_s.arg(
        Number(weather.pressureHpa * kInchesPerHpa, 2),
        Number(weather.pressureHpa, 0).rightJustified(4, u'0'));
    text += u"ob: %1 %2Z AUTO\n"_s.arg(station.code, Date(utc, u"ddHHmm"_s));
    text += u"cycle: %1\n"_s.arg(utc.time().hour());
    return text;
}

QString CurrentObservation(const Station &station, const QDateTime &utc)
{
    const QDateTime local = LocalTime(station, utc);
    const DayWeather weather = WeatherAt(station, local.time());
    QString text = u"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
                   "<current_observation version=\"1.0\">\r\n"
                   "\t<credit>Demo host</credit>\r\n"
                   "\t<credit_URL>http://127.0.0.1/</credit_URL>\r\n"
                   "\t<image>\r\n\t\t<url>http://127.0.0.1/logo.gif</url>\r\n"
                   "\t\t<title>Demo host</title>\r\n"
                   "\t\t<link>http://127.0.0.1</link>\r\n\t</image>\r\n"
                   "\t<suggested_pickup>15 minutes after the hour</suggested_pickup>\r\n"
                   "\t<suggested_pickup_period>60</suggested_pickup_period>\n"_s;
    text += Element(u"location", station.place.toString());
    text += Element(u"station_id", station.code.toString());
    text += Element(u"latitude", QString::number(station.latitude));
    text += Element(u"longitude", QString::number(station.longitude));
    text +=
        Element(u"observation_time",
                u"Last Updated on %1 %2"_s.arg(Date(local, u"MMM d yyyy, h:mm ap"_s), station.zone),
                u"\r\n");
    text += Element(u"observation_time_rfc822", Date(local, u"ddd, dd MMM yyyy HH:mm:ss "_s)
                                                    + OffsetText(station.utcOffsetMinutes));
    if (station.reportsSky)
        text +=
            Element(u"weather", Capitalised(weather.rain.isEmpty() ? weather.sky : weather.rain));
    if (station.reportsTemperature)
        text += XmlWarmth(weather);
    text += XmlWind(weather);
    text += Element(u"pressure_mb", Number(weather.pressureHpa, 1));
    text += Element(u"pressure_in", Number(weather.pressureHpa * kInchesPerHpa, 2));
    if (station.reportsTemperature)
        text += XmlDewPointAndChill(weather);
    if (station.reportsSky)
        text += Element(u"visibility_mi", Number(station.visibilityMiles, 2));
    text += u"\t<copyright_url>http://127.0.0.1/</copyright_url>\r\n</current_observation>\n"_s;
    return text;
}

QString NotFoundPage(const QString &address)
{
    return u"<!DOCTYPE HTML>\n<html><head><title>404 Not Found</title></head>\n<body>\n"
           "<h1>Not Found</h1>\n<p>The demo host has nothing at %1.</p>\n</body></html>\n"_s.arg(
               address.toHtmlEscaped());
}
