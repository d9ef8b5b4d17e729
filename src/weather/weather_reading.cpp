#include "weather/weather_reading.h"

#include "core/number.h"
#include "core/text.h"
#include "core/trace.h"
#include "core/value_texts.h"
#include "weather/computed_value.h"
#include "weather/date_time_text.h"
#include "weather/main_node.h"
#include "weather/node_value.h"
#include "weather/required_values.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kOneDecimal = u"0.0";

// Mark the units of a profile that keeps the day's extremes.
constexpr auto kMinToken = "%MIN%"_L1;
constexpr auto kMaxToken = "%MAX%"_L1;

bool IsMissing(QStringView value)
{
    return value.isEmpty() || value == kNotAvailable;
}

/// The previous day's extreme with its units; `neutral`: there is none to show.
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
    WeatherParser(WeatherProfile &profile, WeatherReading &reading, const QDateTime &now)
        : m_profile(profile)
        , m_reading(reading)
        , m_values(reading.values)
        , m_now(now)
    {}

    void ReadTimeAndPlace();
    void ReadTemperature();

    /// Reads everything after the temperature; the order matters where one value is computed from
    /// others.
    void ReadRest(const MinMaxTemps &minMax)
    {
        ReadConditions();
        ReadWind();
        ReadPlainQuantities();
        ApplyExtremes(minMax);
        Store(Quantity::Precip);
        ReadWindChill();
        ReadFromHumidity(Quantity::HeatIndex);
        ReadFromHumidity(Quantity::DewPoint);
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
        return GetNodeValueWithoutTabs(m_reading.working, {.openTag = tags.Open,
                                                           .closeTag = tags.Close,
                                                           .prefix = tags.Prefix,
                                                           .suffix = tags.Suffix,
                                                           .units = units,
                                                           .factor = factor,
                                                           .format = format,
                                                           .now = &m_now});
    }

    void Store(Quantity quantity) { m_values[quantity] = Read(quantity); }

    void ReadConditions();
    void ReadWind();
    void ReadPlainQuantities();
    void ApplyExtremes(const MinMaxTemps &minMax);
    void ReadWindChill();
    void ReadFromHumidity(Quantity quantity);
    void Compute(Quantity quantity, QStringView other);

    WeatherProfile &m_profile;
    WeatherReading &m_reading;
    WeatherValues &m_values;
    const QDateTime &m_now;
};

void WeatherParser::ReadTimeAndPlace()
{
    Store(Quantity::Time);
    if (QString &time = m_values[Quantity::Time]; IsMissing(time))
        time = DateTimeText(ToMoment(m_now));
    Store(Quantity::Location);
    if (QString &location = m_values[Quantity::Location]; IsMissing(location))
        location = m_profile.location[0];
}

void WeatherParser::ReadTemperature()
{
    QString &value = m_values[Quantity::Temperature];
    value = Read(Quantity::Temperature, kOneDecimal);
    const bool stored = m_profile[Quantity::MinTemp].Units.contains(kMinToken)
                     || m_profile[Quantity::MaxTemp].Units.contains(kMaxToken);
    if (value != kNotAvailable && stored)
        m_reading.temperature = LeadingNumber(value);
}

void WeatherParser::ReadConditions()
{
    // Free text, to which neither units nor a factor apply.
    m_values[Quantity::Conditions] = ReadAs(m_profile[Quantity::Conditions], {}, u"0");
}

void WeatherParser::ReadWind()
{
    QString &wind = m_values[Quantity::WindSpeed];
    wind = Read(Quantity::WindSpeed);
    if (!m_profile.concatinateWindSpeedDir)
        return;

    // A direction is not a number, so its factor is not used.
    QuantityTags &tags = m_profile[Quantity::WindDir];
    const QString direction = ReadAs(tags, tags.Units, u"0");
    if (wind == kNotAvailable || direction == kNotAvailable) {
        wind = kNotAvailable.toString();
    } else if (m_profile.windSpeedDirFormat.isEmpty()) {
        wind += " at "_L1 + direction;
    } else {
        wind = QString(m_profile.windSpeedDirFormat)
                   .replace("%SPEED%"_L1, wind)
                   .replace("%DIR%"_L1, direction);
    }
}

void WeatherParser::ReadPlainQuantities()
{
    for (const Quantity quantity : {Quantity::Humidity, Quantity::AtmosPress, Quantity::Visibility,
                                    Quantity::Sunrise, Quantity::Sunset})
        Store(quantity);
}

void WeatherParser::ApplyExtremes(const MinMaxTemps &minMax)
{
    // Always from the store, whatever tags the profile has for them. The store's neutral values,
    // 1000 for the minimum and -1000 for the maximum, pass these tests; DisplayedValues() turns
    // them into "N/A".
    m_values[Quantity::MinTemp] = ExtremeValue(minMax.PrevMinTemp, minMax.PrevMinTemp <= -1000,
                                               m_profile[Quantity::MinTemp].Units, kMinToken);
    m_values[Quantity::MaxTemp] = ExtremeValue(minMax.PrevMaxTemp, minMax.PrevMaxTemp >= 1000,
                                               m_profile[Quantity::MaxTemp].Units, kMaxToken);
}

/// The text from the first digit or point on; empty if there is none.
QStringView FromFirstDigit(QStringView text)
{
    const auto first = std::ranges::find_if(text, [](QChar c) { return IsDigit(c) || c == u'.'; });
    return text.sliced(first - text.begin());
}

void WeatherParser::ReadWindChill()
{
    const QString &wind = m_values[Quantity::WindSpeed];
    const QString &units = m_profile[Quantity::WindChill].Units;
    if (!IsComputed(Quantity::WindChill, units)) {
        Store(Quantity::WindChill);
        return;
    }
    const QStringView speed = IsMissing(wind) ? QStringView() : FromFirstDigit(wind);
    Compute(Quantity::WindChill, speed);
}

void WeatherParser::ReadFromHumidity(Quantity quantity)
{
    if (IsComputed(quantity, m_profile[quantity].Units))
        Compute(quantity, m_values[Quantity::Humidity]);
    else
        Store(quantity);
}

void WeatherParser::Compute(Quantity quantity, QStringView other)
{
    const QString &temperature = m_values[Quantity::Temperature];
    m_values[quantity] = IsMissing(temperature) || IsMissing(other)
                           ? kNotAvailable.toString()
                           : ComputedValue(quantity, m_profile[quantity].Units, temperature, other);
}

/// Traces and returns the status for a reply that lacks one tag of the main node.
QString MissingNodeText(QStringView which, const QDateTime &now)
{
    QString text = "Could not find "_L1 + which.toString() + " node tag in received data"_L1;
    Trace(DateTimeText(ToMoment(now)), u" - ", text);
    return text;
}

/// Why a reply is refused, in words for the status line; nothing if it is not. Cuts `working` to
/// the profile's main node.
std::optional<QString> Refusal(WeatherProfile &profile, QString &working, const QDateTime &now)
{
    switch (CutToMainNode(working, profile)) {
    case MainNode::NoOpening:
        return MissingNodeText(u"opening", now);
    case MainNode::NoClosing:
        return MissingNodeText(u"closing", now);
    case MainNode::Found:
        break;
    }
    const std::optional<QString> stem = MissingRequiredValue(profile, working);
    if (!stem)
        return std::nullopt;
    QString text = "Required value not found in received data: "_L1 + *stem;
    Trace(text);
    return text;
}

} // namespace

WeatherReading BeginReading(WeatherProfile *profile, const QString &reply, const QDateTime &now)
{
    WeatherReading reading{.working = WorkingText(reply)};
    if (TrimSpaces(reading.working).isEmpty())
        reading.statuses = {u"Weather host not reachable, or no weather data returned"_s};
    if (profile == nullptr)
        return reading;
    if (const auto refusal = Refusal(*profile, reading.working, now)) {
        reading.statuses.append(*refusal);
        return reading;
    }

    Trace(u"Parsing weather string:", reading.working);
    reading.taken = true;
    WeatherParser parser(*profile, reading, now);
    parser.ReadTimeAndPlace();
    parser.ReadTemperature();
    return reading;
}

WeatherValues FinishReading(WeatherReading reading, WeatherProfile &profile,
                            const MinMaxTemps &minMax, const QDateTime &now)
{
    WeatherParser(profile, reading, now).ReadRest(minMax);
    return reading.values;
}
