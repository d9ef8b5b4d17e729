#include "profile_check/checked_reply.h"

#include "store/ini_file.h"
#include "weather/computed_value.h"
#include "weather/main_node.h"
#include "weather/node_value.h"
#include "weather/weather_reading.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kWidestValue = 48; ///< Columns; a longer value moves only its own line.

/// The name of the node that one pair of tags looks for, as spelled in the profile file.
QString StemOf(Quantity quantity)
{
    return RowOf(quantity).stem.toString();
}

/// Where the tags of a quantity are. Positions count from 1.
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
    default:
        break;
    }
    if (IsComputed(quantity, units))
        return quantity == Quantity::WindChill ? u"computed from temperature and wind"_s
                                               : u"computed from temperature and humidity"_s;
    // The units of the conditions are never used; a required value is looked up all the same.
    if (units == u"?" && quantity != Quantity::Conditions
        && !profile.required.contains(StemOf(quantity)))
        return u"the profile says that the service has none"_s;
    return TagsText(profile, quantity, working);
}

/// Where each value comes from: like the quantities, except that the wind direction has no value
/// of its own.
QStringList Places(WeatherProfile &profile, QStringView working)
{
    QStringList places;
    for (const QuantityRow &row : kQuantities) {
        const Quantity quantity = row.quantity;
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

/// What a value is called: its name without the ending "Value" that all have.
QString QuantityName(Quantity quantity)
{
    return RowOf(quantity).value.chopped(QStringView(u"Value").size()).toString();
}

QString TrueOrFalse(bool value)
{
    return value ? u"True"_s : u"False"_s;
}

} // namespace

CheckedReply CheckReply(WeatherProfile profile, const QString &name, const QString &reply,
                        const QDateTime &now)
{
    CheckedReply checked{.name = name};
    WeatherReading reading = BeginReading(&profile, reply, now);
    checked.parsed = reading.taken;
    checked.status = reading.statuses.value(reading.statuses.size() - 1);
    if (reading.taken) {
        constexpr MinMaxTemps kNeutral;
        checked.values = FinishReading(std::move(reading), profile, kNeutral, now);
    }

    QString working = WorkingText(reply);
    // If the reply lacks its main node, the whole text is the best place to look for the tags.
    static_cast<void>(CutToMainNode(working, profile));
    checked.places = Places(profile, working);
    return checked;
}

QString TableText(const CheckedReply &reply)
{
    qsizetype nameWidth = 0;
    qsizetype valueWidth = 0;
    for (const Quantity quantity : kValues) {
        nameWidth = std::max(nameWidth, QuantityName(quantity).size());
        valueWidth = std::max(valueWidth, reply.values[quantity].size());
    }
    valueWidth = std::min(valueWidth, kWidestValue);

    QString text = Printable(reply.name) + u'\n';
    for (std::size_t i = 0; i < kValues.size(); ++i) {
        text += "  "_L1 + QuantityName(kValues[i]).leftJustified(nameWidth) + "  "_L1
              + Printable(reply.values[kValues[i]]).leftJustified(valueWidth) + "  "_L1
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
    for (const Quantity quantity : kValues)
        WriteIniValue(section, reply.name, RowOf(quantity).value, reply.values[quantity], true);
    WriteIniValue(section, reply.name, u"parsed", TrueOrFalse(reply.parsed), true);
    return QString::fromUtf8(section.Profile().Bytes()).replace("\r\n"_L1, "\n"_L1);
}
