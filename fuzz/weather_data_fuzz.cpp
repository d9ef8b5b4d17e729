#include "fuzz_input.h"
#include "plain_node_value.h"
#include "profiles/profile_file.h"
#include "weather/formulas.h"
#include "weather/main_node.h"
#include "weather/raw_data_text.h"
#include "weather/required_values.h"
#include "weather/weather_reading.h"

#include <algorithm>

namespace {

const QDateTime kReadAt(QDate(2026, 11, 20), QTime(12, 0), Qt::OffsetFromUTC, -5 * 3600);

/// How one quantity is computed, and the least result for which it applies.
struct Rule
{
    Quantity quantity = {};
    const char *tokenF = nullptr;
    const char *tokenC = nullptr;
    double (*inF)(double, double) = nullptr;
    double (*inC)(double, double) = nullptr;
    double least = 0;
};

constexpr Rule kWindChill{Quantity::WindChill, "%WCF%",       "%WCC%",
                          GetWindChillF,       GetWindChillC, -200};
constexpr Rule kHeatIndex{Quantity::HeatIndex, "%HIF%", "%HIC%", GetHeatIndexF, GetHeatIndexC, 0};
constexpr Rule kDewPoint{Quantity::DewPoint, "%DPF%", "%DPC%", GetDewPointF, GetDewPointC, -200};

/// The whole parse written a second time: one value after the other, each by its own rule.
class PlainParser
{
public:
    PlainParser(const WeatherProfile &profile, QString working, const MinMaxTemps &minMax)
        : m_profile(profile)
        , m_working(std::move(working))
        , m_minMax(minMax)
    {}

    WeatherValues Parse()
    {
        v[Quantity::Time] = Or(Read(Quantity::Time), "11/20/2026 12:00:00 PM");
        v[Quantity::Location] = Or(Read(Quantity::Location), m_profile.location[0]);
        v[Quantity::Temperature] = Read(Quantity::Temperature, "0.0");
        v[Quantity::Conditions] = ReadWith(Quantity::Conditions, "", "0");
        v[Quantity::WindSpeed] = Wind();
        v[Quantity::Humidity] = Read(Quantity::Humidity);
        v[Quantity::AtmosPress] = Read(Quantity::AtmosPress);
        v[Quantity::Visibility] = Read(Quantity::Visibility);
        v[Quantity::Sunrise] = Read(Quantity::Sunrise);
        v[Quantity::Sunset] = Read(Quantity::Sunset);
        v[Quantity::MinTemp] = m_minMax.PrevMinTemp <= -1000
                                 ? "N/A"
                                 : NumberToText(m_minMax.PrevMinTemp)
                                       + Units(Quantity::MinTemp).replace("%MIN%", "");
        v[Quantity::MaxTemp] = m_minMax.PrevMaxTemp >= 1000
                                 ? "N/A"
                                 : NumberToText(m_minMax.PrevMaxTemp)
                                       + Units(Quantity::MaxTemp).replace("%MAX%", "");
        v[Quantity::Precip] = Read(Quantity::Precip);
        v[Quantity::WindChill] = Computed(kWindChill, SpeedText());
        v[Quantity::HeatIndex] = Computed(kHeatIndex, v[Quantity::Humidity]);
        v[Quantity::DewPoint] = Computed(kDewPoint, v[Quantity::Humidity]);
        return v;
    }

private:
    static QString Or(const QString &value, const QString &instead)
    {
        return value.isEmpty() || value == "N/A" ? instead : value;
    }

    [[nodiscard]] QString Units(Quantity quantity) const { return m_profile[quantity].Units; }

    [[nodiscard]] QString ReadWith(Quantity quantity, const QString &units, const QString &factor,
                                   const QString &format = {}) const
    {
        const QuantityTags &tags = m_profile[quantity];
        return PlainNodeValue(
            m_working, {tags.Open, tags.Close, tags.Prefix, tags.Suffix, units, factor, format},
            kReadAt);
    }

    [[nodiscard]] QString Read(Quantity quantity, const QString &format = {}) const
    {
        return ReadWith(quantity, Units(quantity), m_profile[quantity].Factor, format);
    }

    [[nodiscard]] QString Wind() const
    {
        QString speed = Read(Quantity::WindSpeed);
        if (!m_profile.concatinateWindSpeedDir)
            return speed;
        const QString direction = ReadWith(Quantity::WindDir, Units(Quantity::WindDir), "0");
        if (speed == "N/A" || direction == "N/A")
            return "N/A";
        if (m_profile.windSpeedDirFormat.isEmpty())
            return speed + " at " + direction;
        return QString(m_profile.windSpeedDirFormat)
            .replace("%SPEED%", speed)
            .replace("%DIR%", direction);
    }

    /// The wind from its first digit or point on; "N/A" if there is none.
    [[nodiscard]] QString SpeedText() const
    {
        if (v[Quantity::WindSpeed] == "N/A")
            return "N/A";
        for (qsizetype i = 0; i < v[Quantity::WindSpeed].size(); ++i) {
            if (QString("0123456789.").contains(v[Quantity::WindSpeed][i]))
                return v[Quantity::WindSpeed].mid(i);
        }
        return "N/A";
    }

    /// A quantity, computed if its units ask for it.
    [[nodiscard]] QString Computed(const Rule &rule, const QString &other) const
    {
        const QString units = Units(rule.quantity);
        const bool fahrenheit = units.contains(rule.tokenF);
        if (!fahrenheit && !units.contains(rule.tokenC))
            return Read(rule.quantity);
        if (Or(v[Quantity::Temperature], "N/A") == "N/A" || Or(other, "N/A") == "N/A")
            return "N/A";
        const std::optional<double> a = LeadingNumber(v[Quantity::Temperature]);
        const std::optional<double> b = LeadingNumber(other);
        if (!a || !b)
            return "N/A";
        const double result = fahrenheit ? rule.inF(*a, *b) : rule.inC(*a, *b);
        if (std::isnan(result) || result < rule.least)
            return "N/A";
        return QString(units).replace(fahrenheit ? rule.tokenF : rule.tokenC,
                                      FormatNumber(result, u"0.0"));
    }

    const WeatherProfile &m_profile;
    QString m_working;
    const MinMaxTemps &m_minMax;
    WeatherValues v = {};
};

/// The reply cut down to the main node; nothing if a tag is missing.
std::optional<QString> PlainWorking(const WeatherProfile &profile, QString text)
{
    text.replace("\r", "").replace("\n", "").replace("\t", "");
    const QString &open = profile.mainNodeOpen;
    if (open.isEmpty() || profile.mainNodeClose.isEmpty())
        return text;
    const qsizetype openAt = text.indexOf(open) + 1;
    const qsizetype closeAt = openAt < 1 ? 0 : text.indexOf(profile.mainNodeClose, openAt - 1) + 1;
    if (closeAt < 1)
        return std::nullopt;
    const qsizetype length = closeAt - openAt - open.size();
    return length < 0 ? text : text.mid(openAt + open.size() - 2, length);
}

void CheckRaw(const QString &reply)
{
    QString shown = reply;
    shown.replace("\r", "").replace("\n", "\r\n").replace("\t", "     ");
    Demand(RawDataText(reply) == shown, "line ends and tabs in the raw data");
}

} // namespace

// The contract: a reply without its main node or a required value changes nothing, and the status
// says so; otherwise all sixteen values are those of the plain version, and none but the place may
// be empty.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzInput input(bytes, size);
    ProfileTable profiles;
    LoadWeatherProfiles(profiles, PrivateProfile(input.UpTo("-- reply --"), CodePage::Utf8));
    WeatherProfile &profile = profiles.weather[0];
    profile.location[0] = "KNYC";
    profile.values[Quantity::Temperature] = "as before";
    const QString reply = TextOf(input.Rest());
    MinMaxTemps minMax{.PrevMinTemp = 45.5};
    minMax.PrevMaxTemp = profile.concatinateWindSpeedDir ? 1000 : 71;
    const WeatherProfile before = profile;
    std::optional<QString> working = PlainWorking(profile, reply);
    const bool whole = working && !MissingRequiredValue(profile, *working);

    WeatherReading reading = BeginReading(&profile, reply, kReadAt);

    CheckRaw(reply);
    Demand(reading.taken == whole, "a reply with all that is required is taken");
    Demand(profile.values == before.values, "nothing changes by itself");
    const std::optional<double> temperature = reading.temperature;
    if (!reading.taken) {
        Demand(!temperature, "no reading for the store");
        Demand(!reading.statuses.isEmpty(), "the status says why");
        return 0;
    }
    const WeatherValues values = FinishReading(std::move(reading), profile, minMax, kReadAt);
    const WeatherValues plain = PlainParser(before, *working, minMax).Parse();
    for (const Quantity quantity : kValues) {
        Demand(!values[quantity].isEmpty(), "no value is empty");
        Demand(values[quantity] == plain[quantity], "the plain version's value");
    }
    const QString store = before[Quantity::MinTemp].Units + before[Quantity::MaxTemp].Units;
    Demand(!temperature || store.contains('%'), "a reading goes to the store if asked so");
    Demand(!temperature || std::isfinite(*temperature), "a number");
    return 0;
}
