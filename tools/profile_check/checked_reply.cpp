#include "profile_check/checked_reply.h"

#include "store/ini_file.h"
#include "weather/main_node.h"
#include "weather/node_value.h"
#include "weather/weather_data.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kWidestValue = 48; ///< Columns; a longer value moves only its own line.

/// Stands in for the window and the min/max store.
class NeutralHost final : public WeatherDataHost
{
public:
    void SetStatus(const QString &text) override { status = text; }
    void ShowRawData(const QString & /*reply*/) override {}
    void CheckMinMaxTemp(double /*temp*/) override {}
    [[nodiscard]] const MinMaxTemps &MinMax() const override { return m_minMax; }

    QString status;

private:
    MinMaxTemps m_minMax;
};

bool HoldsOneOf(const QString &units, std::initializer_list<QLatin1StringView> tokens)
{
    return std::any_of(tokens.begin(), tokens.end(),
                       [&](QLatin1StringView token) { return units.contains(token); });
}

/// The name of the node that one pair of tags looks for, as the profile file spells it.
QString StemOf(Quantity quantity)
{
    return kQuantityStems[static_cast<std::size_t>(quantity)].toString();
}

/// Where the tags of a quantity stand. Positions count from 1.
QString TagsText(WeatherProfile &profile, Quantity quantity, QStringView working)
{
    QuantityTags &tags = profile[quantity];
    if (tags.Open.isEmpty())
        return u"no opening tag in the profile"_s;
    const NodePlace place =
        FindNode(working, {.openTag = tags.Open, .closeTag = tags.Close, .prefix = tags.Prefix});
    if (place.open < 0)
        return u"opening tag missing"_s;
    const QString open = u"opening tag at "_s + QString::number(place.open + 1);
    if (place.close < 0)
        return open + u", closing tag missing"_s;
    return open + u", closing tag at "_s + QString::number(place.close + 1);
}

/// Where the value of a quantity comes from.
QString PlaceText(WeatherProfile &profile, Quantity quantity, QStringView working)
{
    const QString &units = profile[quantity].Units;
    switch (quantity) {
    case Quantity::MinTemp:
    case Quantity::MaxTemp:
        return u"from the min/max store, which is neutral here"_s;
    case Quantity::WindChill:
        if (HoldsOneOf(units, {"%WCF%"_L1, "%WCC%"_L1}))
            return u"computed from temperature and wind"_s;
        break;
    case Quantity::HeatIndex:
        if (HoldsOneOf(units, {"%HIF%"_L1, "%HIC%"_L1}))
            return u"computed from temperature and humidity"_s;
        break;
    case Quantity::DewPoint:
        if (HoldsOneOf(units, {"%DPF%"_L1, "%DPC%"_L1}))
            return u"computed from temperature and humidity"_s;
        break;
    default:
        break;
    }
    // The units of the conditions are never used; what is required is looked up all the same.
    if (units == u"?" && quantity != Quantity::Conditions
        && !profile.required.contains(StemOf(quantity)))
        return u"the profile says that the service has none"_s;
    return TagsText(profile, quantity, working);
}

/// Where each value field comes from: as the quantities, but the wind direction has no field of
/// its own.
QStringList Places(WeatherProfile &profile, QStringView working)
{
    QStringList places;
    for (std::size_t i = 0; i < kQuantityCount; ++i) {
        const auto quantity = static_cast<Quantity>(i);
        QString text = PlaceText(profile, quantity, working);
        if (quantity != Quantity::WindDir) {
            places.append(text);
        } else if (profile.concatinateWindSpeedDir) {
            places.last() = StemOf(Quantity::WindSpeed) + u": "_s + places.last() + u"; "_s
                          + StemOf(Quantity::WindDir) + u": "_s + text;
        }
    }
    return places;
}

QString Printable(QString text)
{
    for (QChar &c : text) {
        if (c.category() == QChar::Other_Control)
            c = u'?';
    }
    return text;
}

/// The quantity of a value field: its name without the "Value" that all have.
QString QuantityName(const WeatherValueField &field)
{
    return field.name.chopped(QStringView(u"Value").size()).toString();
}

QString TrueOrFalse(bool value)
{
    return value ? u"True"_s : u"False"_s;
}

} // namespace

CheckedReply CheckReply(WeatherProfile profile, const QString &name, const QString &reply,
                        const QDateTime &now)
{
    NeutralHost host;
    CheckedReply checked{.name = name};
    checked.parsed = ParseWeatherData(&profile, reply, now, host);
    checked.status = host.status;
    checked.values = profile.values;

    QString working = WorkingText(reply);
    // Refused without its main node, the whole text is the best place to look for the tags.
    static_cast<void>(CutToMainNode(working, profile));
    checked.places = Places(profile, working);
    return checked;
}

QString TableText(const CheckedReply &reply)
{
    qsizetype nameWidth = 0;
    qsizetype valueWidth = 0;
    for (const WeatherValueField &field : kWeatherValueFields) {
        nameWidth = std::max(nameWidth, QuantityName(field).size());
        valueWidth = std::max(valueWidth, (reply.values.*field.value).size());
    }
    valueWidth = std::min(valueWidth, kWidestValue);

    QString text = Printable(reply.name) + u'\n';
    for (std::size_t i = 0; i < kWeatherValueFields.size(); ++i) {
        const WeatherValueField &field = kWeatherValueFields[i];
        text += "  "_L1 + QuantityName(field).leftJustified(nameWidth) + "  "_L1
              + Printable(reply.values.*field.value).leftJustified(valueWidth) + "  "_L1
              + reply.places.value(static_cast<qsizetype>(i)) + u'\n';
    }
    text += "  parsed: "_L1 + TrueOrFalse(reply.parsed);
    if (!reply.status.isEmpty())
        text += " ("_L1 + Printable(reply.status) + u')';
    return text + u'\n';
}

QString IniText(const CheckedReply &reply)
{
    IniFile section({}); // in memory only: it is never committed
    for (const WeatherValueField &field : kWeatherValueFields)
        WriteIniValue(section, reply.name, field.name, reply.values.*field.value, true);
    WriteIniValue(section, reply.name, u"parsed", TrueOrFalse(reply.parsed), true);
    return QString::fromUtf8(section.Profile().Bytes()).replace("\r\n"_L1, "\n"_L1);
}
