#include "weather/weather_data.h"

#include "core/number.h"
#include "core/number_picture.h"
#include "core/text.h"
#include "core/trace.h"
#include "weather/date_time_text.h"
#include "weather/formulas.h"
#include "weather/main_node.h"
#include "weather/node_value.h"
#include "weather/required_values.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kOneDecimal = u"0.0";
constexpr double kLeastWindChill = -200; // below: not applicable
constexpr double kLeastDewPoint = -200;
constexpr double kLeastHeatIndex = 0;

bool IsMissing(QStringView value)
{
    return value.isEmpty() || value == kNotAvailable;
}

/// A units text that asks for a quantity to be computed, in either scale.
struct Computation
{
    QLatin1StringView tokenF = {}; ///< Wins where a units text holds both.
    QLatin1StringView tokenC = {};
    double (*computeF)(double, double) = nullptr;
    double (*computeC)(double, double) = nullptr;
    double leastResult = 0; ///< Below it the quantity does not apply.
};

constexpr Computation kWindChill{"%WCF%"_L1, "%WCC%"_L1, GetWindChillF, GetWindChillC,
                                 kLeastWindChill};
constexpr Computation kHeatIndex{"%HIF%"_L1, "%HIC%"_L1, GetHeatIndexF, GetHeatIndexC,
                                 kLeastHeatIndex};
constexpr Computation kDewPoint{"%DPF%"_L1, "%DPC%"_L1, GetDewPointF, GetDewPointC, kLeastDewPoint};

bool IsComputed(const QString &units, const Computation &computation)
{
    return units.contains(computation.tokenF) || units.contains(computation.tokenC);
}

/// The computed quantity in its units, "N/A" where it does not apply. `temperature` and `other` are
/// texts that begin with a number.
QString ComputedValue(QString units, const Computation &computation, QStringView temperature,
                      QStringView other)
{
    const std::optional<double> t = LeadingNumber(temperature);
    const std::optional<double> o = LeadingNumber(other);
    if (!t || !o)
        return kNotAvailable.toString();

    const bool fahrenheit = units.contains(computation.tokenF);
    const double result = fahrenheit ? computation.computeF(*t, *o) : computation.computeC(*t, *o);
    if (!(result >= computation.leastResult))
        return kNotAvailable.toString();
    return units.replace(fahrenheit ? computation.tokenF : computation.tokenC,
                         FormatNumber(result, kOneDecimal));
}

/// The previous day's extreme with its units; `neutral` says that there is none to show.
QString ExtremeValue(double extreme, bool neutral, QString units, QLatin1StringView token)
{
    if (neutral)
        return kNotAvailable.toString();
    return NumberToText(extreme).append(units.remove(token));
}

/// Reads the quantities of one profile from one reply.
class WeatherParser
{
public:
    WeatherParser(WeatherProfile &profile, QString working, const QDateTime &now,
                  WeatherDataHost &host)
        : m_profile(profile)
        , m_values(profile.values)
        , m_working(std::move(working))
        , m_now(now)
        , m_host(host)
    {}

    /// Fills all sixteen values; the order matters where one is computed from others.
    void ReadAll()
    {
        ReadTimeAndPlace();
        ReadTemperature();
        ReadConditions();
        ReadWind();
        ReadPlainQuantities();
        TakeExtremes();
        m_values.precipValue = Read(Quantity::Precip);
        ReadWindChill();
        ReadFromHumidity(m_values.heatindexValue, Quantity::HeatIndex, kHeatIndex);
        ReadFromHumidity(m_values.dewPointValue, Quantity::DewPoint, kDewPoint);
    }

private:
    QString Read(Quantity quantity, QStringView format = {})
    {
        QuantityTags &tags = m_profile[quantity];
        return ReadAs(tags, tags.Units, tags.Factor, format);
    }

    QString ReadAs(QuantityTags &tags, QStringView units, QStringView factor,
                   QStringView format = {})
    {
        return GetNodeValueWithoutTabs(m_working, {.openTag = tags.Open,
                                                   .closeTag = tags.Close,
                                                   .prefix = tags.Prefix,
                                                   .suffix = tags.Suffix,
                                                   .units = units,
                                                   .factor = factor,
                                                   .format = format,
                                                   .now = &m_now});
    }

    void ReadTimeAndPlace();
    void ReadTemperature();
    void ReadConditions();
    void ReadWind();
    void ReadPlainQuantities();
    void TakeExtremes();
    void ReadWindChill();
    void ReadFromHumidity(QString &value, Quantity quantity, const Computation &computation);

    WeatherProfile &m_profile;
    WeatherValues &m_values;
    QString m_working;
    const QDateTime &m_now;
    WeatherDataHost &m_host;
};

void WeatherParser::ReadTimeAndPlace()
{
    m_values.timeValue = Read(Quantity::Time);
    if (IsMissing(m_values.timeValue))
        m_values.timeValue = DateTimeText(ToMoment(m_now));

    m_values.locationValue = Read(Quantity::Location);
    if (IsMissing(m_values.locationValue))
        m_values.locationValue = m_profile.location[0];
}

void WeatherParser::ReadTemperature()
{
    m_values.temperatureValue = Read(Quantity::Temperature, kOneDecimal);
    const bool stored = m_profile[Quantity::MinTemp].Units.contains("%MIN%"_L1)
                     || m_profile[Quantity::MaxTemp].Units.contains("%MAX%"_L1);
    if (m_values.temperatureValue == kNotAvailable || !stored)
        return;
    if (const std::optional<double> temp = LeadingNumber(m_values.temperatureValue))
        m_host.CheckMinMaxTemp(*temp);
}

void WeatherParser::ReadConditions()
{
    // Free text: the profile's units and factor for it are deliberately not used.
    m_values.conditionsValue = ReadAs(m_profile[Quantity::Conditions], {}, u"0");
}

void WeatherParser::ReadWind()
{
    const QString speed = Read(Quantity::WindSpeed);
    if (!m_profile.concatinateWindSpeedDir) {
        m_values.windSpeedDirValue = speed;
        return;
    }

    // The direction's factor is deliberately not used.
    QuantityTags &directionTags = m_profile[Quantity::WindDir];
    const QString direction = ReadAs(directionTags, directionTags.Units, u"0");
    if (speed == kNotAvailable || direction == kNotAvailable) {
        m_values.windSpeedDirValue = kNotAvailable.toString();
    } else if (m_profile.windSpeedDirFormat.isEmpty()) {
        m_values.windSpeedDirValue = speed + " at "_L1 + direction;
    } else {
        m_values.windSpeedDirValue = QString(m_profile.windSpeedDirFormat)
                                         .replace("%SPEED%"_L1, speed)
                                         .replace("%DIR%"_L1, direction);
    }
}

void WeatherParser::ReadPlainQuantities()
{
    m_values.humidityValue = Read(Quantity::Humidity);
    m_values.atmosPressValue = Read(Quantity::AtmosPress);
    m_values.visibilityValue = Read(Quantity::Visibility);
    m_values.sunriseValue = Read(Quantity::Sunrise);
    m_values.sunsetValue = Read(Quantity::Sunset);
}

void WeatherParser::TakeExtremes()
{
    // Always from the store: the profile's tags for them are deliberately never searched. The tests
    // look the wrong way round for the store's neutral values, 1000 and -1000, and are meant to:
    // the display turns those into "N/A".
    const MinMaxTemps &store = m_host.MinMax();
    m_values.minTempValue = ExtremeValue(store.PrevMinTemp, store.PrevMinTemp <= -1000,
                                         m_profile[Quantity::MinTemp].Units, "%MIN%"_L1);
    m_values.maxTempValue = ExtremeValue(store.PrevMaxTemp, store.PrevMaxTemp >= 1000,
                                         m_profile[Quantity::MaxTemp].Units, "%MAX%"_L1);
}

/// The text from the first digit or point on; empty when there is none.
QStringView FromFirstDigit(QStringView text)
{
    const auto first =
        std::ranges::find_if(text, [](QChar c) { return (c >= u'0' && c <= u'9') || c == u'.'; });
    return text.sliced(first - text.begin());
}

void WeatherParser::ReadWindChill()
{
    const QString &units = m_profile[Quantity::WindChill].Units;
    if (!IsComputed(units, kWindChill)) {
        m_values.windchillValue = Read(Quantity::WindChill);
        return;
    }
    const QStringView speed = IsMissing(m_values.windSpeedDirValue)
                                ? QStringView()
                                : FromFirstDigit(m_values.windSpeedDirValue);
    if (speed.isEmpty() || IsMissing(m_values.temperatureValue))
        m_values.windchillValue = kNotAvailable.toString();
    else
        m_values.windchillValue =
            ComputedValue(units, kWindChill, m_values.temperatureValue, speed);
}

void WeatherParser::ReadFromHumidity(QString &value, Quantity quantity,
                                     const Computation &computation)
{
    const QString &units = m_profile[quantity].Units;
    if (!IsComputed(units, computation))
        value = Read(quantity);
    else if (IsMissing(m_values.temperatureValue) || IsMissing(m_values.humidityValue))
        value = kNotAvailable.toString();
    else
        value =
            ComputedValue(units, computation, m_values.temperatureValue, m_values.humidityValue);
}

/// Reports that a reply lacks one end of the main node.
void ReportMissingNode(QStringView which, const QDateTime &now, StatusLine &status)
{
    const QString text = "Could not find "_L1 + which.toString() + " node tag in received data"_L1;
    Trace(DateTimeText(ToMoment(now)), u" - ", text);
    status.SetStatus(text);
}

} // namespace

QString RawDataText(QStringView reply)
{
    constexpr QLatin1StringView kTab = "     "_L1;
    QString text;
    text.reserve(reply.size() + reply.count(u'\n') + reply.count(u'\t') * (kTab.size() - 1));
    for (const QChar c : reply) {
        if (c == u'\n')
            text.append("\r\n"_L1);
        else if (c == u'\t')
            text.append(kTab);
        else if (c != u'\r')
            text.append(c);
    }
    return text;
}

bool ParseWeatherData(WeatherProfile *profile, const QString &reply, const QDateTime &now,
                      WeatherDataHost &host)
{
    QString working = WorkingText(reply);
    host.ShowRawData(reply);
    if (TrimSpaces(working).isEmpty())
        host.SetStatus(u"Weather host not reachable, or no weather data returned"_s);
    if (profile == nullptr)
        return false;

    switch (CutToMainNode(working, *profile)) {
    case MainNode::NoOpening:
        ReportMissingNode(u"opening", now, host);
        return false;
    case MainNode::NoClosing:
        ReportMissingNode(u"closing", now, host);
        return false;
    case MainNode::Found:
        break;
    }
    if (const std::optional<QString> stem = MissingRequiredValue(*profile, working)) {
        const QString text = "Required value not found in received data: "_L1 + *stem;
        Trace(text);
        host.SetStatus(text);
        return false;
    }

    Trace(u"Parsing weather string:", working);
    WeatherParser(*profile, std::move(working), now, host).ReadAll();
    return true;
}
