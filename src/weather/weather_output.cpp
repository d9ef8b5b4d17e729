#include "weather/weather_output.h"

#include "core/number.h"
#include "core/text.h"
#include "core/value_texts.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kSection = u"Weather";
constexpr double kExtremeBound = 200; // from here on it is a neutral value

QString DisplayedExtreme(const QString &value)
{
    const std::optional<double> number = LeadingNumber(value);
    const bool shown = number && std::abs(*number) < kExtremeBound;
    return shown ? value : kNotAvailable.toString();
}

/// The keys after the credit lines, in the order of the file.
constexpr std::array kOutputOrder{Quantity::Location,   Quantity::Temperature, Quantity::Conditions,
                                  Quantity::WindSpeed,  Quantity::AtmosPress,  Quantity::Humidity,
                                  Quantity::DewPoint,   Quantity::WindChill,   Quantity::HeatIndex,
                                  Quantity::Visibility, Quantity::Sunrise,     Quantity::Sunset,
                                  Quantity::MinTemp,    Quantity::MaxTemp};

static_assert(NamesEachOnce(kOutputOrder, [](const QuantityRow &row) {
    return !row.outputKey.isEmpty() && row.quantity != Quantity::Time; // the time comes first
}));

} // namespace

WeatherValues DisplayedValues(const WeatherValues &values)
{
    WeatherValues shown = values;
    for (const Quantity extreme : {Quantity::MinTemp, Quantity::MaxTemp})
        shown[extreme] = DisplayedExtreme(values[extreme]);
    return shown;
}

IniPatch WeatherPatch(const IniPath &file, const WeatherValues &shown,
                      const WeatherProfile *profile, int year)
{
    IniPatch patch{.file = file};
    const auto put = [&patch](QStringView key, const QString &value) {
        patch.values.append({kSection.toString(), key.toString(), value});
    };
    put(RowOf(Quantity::Time).outputKey, shown[Quantity::Time]);
    if (profile != nullptr) {
        put(u"COPYRIGHT", WithYear(profile->copyright, year));
        put(u"COPYRIGHTURL", profile->copyrightURL);
    }
    for (const Quantity quantity : kOutputOrder)
        put(RowOf(quantity).outputKey, shown[quantity]);
    return patch;
}
