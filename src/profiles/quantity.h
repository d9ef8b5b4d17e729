#pragma once

#include <QString>
#include <QStringView>

#include <algorithm>
#include <array>
#include <cstddef>

/// The quantities that a profile locates in a reply.
enum class Quantity
{
    Temperature,
    Conditions,
    WindSpeed,
    WindDir,
    Humidity,
    AtmosPress,
    DewPoint,
    WindChill,
    HeatIndex,
    Visibility,
    Sunrise,
    Sunset,
    MinTemp,
    MaxTemp,
    Precip,
    Time,
    Location,
};

/// The names and properties of a quantity. The wind direction is read, but has no value of its own:
/// it becomes part of the wind speed's.
struct QuantityRow
{
    Quantity quantity = {};
    QStringView stem = {};      ///< Profile keys are the stem followed by "Open" and so on.
    QStringView value = {};     ///< Name of the value; empty: none of its own.
    QStringView outputKey = {}; ///< In the weather output file; empty: not written.
    QStringView box = {};       ///< The control that shows the value.
    QStringView caption = {};
    bool emptiedByNewProfile = false; ///< The box is emptied before another profile is shown.
    bool hasUnit = false;
    QStringView meaning = {}; ///< For the tool tip.
};

/// All quantities, indexed by the enumeration. The table fixes no other order: the output file, the
/// page and the profile loader each have their own.
inline constexpr std::array kQuantities{
    QuantityRow{Quantity::Temperature, u"temperature", u"temperatureValue", u"TEMP",
                u"txtCurrentTemp", u"Temperature:", false, true, u"Air temperature."},
    QuantityRow{Quantity::Conditions, u"conditions", u"conditionsValue", u"CONDITIONS",
                u"txtCurrentConditions", u"Conditions:", true, false,
                u"The weather in the service's words."},
    QuantityRow{Quantity::WindSpeed, u"windspeed", u"windSpeedDirValue", u"WINDS",
                u"txtWindSpeedDir", u"Wind:", false, true,
                u"Wind speed and the direction it comes from."},
    QuantityRow{.quantity = Quantity::WindDir, .stem = u"windDir"},
    QuantityRow{Quantity::Humidity, u"humidity", u"humidityValue", u"HUMIDITY", u"txtHumidity",
                u"Humidity:", true, true, u"Relative humidity of the air."},
    QuantityRow{Quantity::AtmosPress, u"atmosPress", u"atmosPressValue", u"PRESSURE",
                u"txtAtmosPress", u"Pressure:", true, true, u"Air pressure."},
    QuantityRow{Quantity::DewPoint, u"dewPoint", u"dewPointValue", u"DEWPOINT", u"txtDewPoint",
                u"Dew Point:", true, true, u"Temperature at which dew begins to form."},
    QuantityRow{Quantity::WindChill, u"windchill", u"windchillValue", u"WINDCHILL", u"txtWindChill",
                u"Wind Chill:", false, true, u"How cold it feels in the wind."},
    QuantityRow{Quantity::HeatIndex, u"heatindex", u"heatindexValue", u"HEATINDEX", u"txtHeatIndex",
                u"Heat Index:", true, true, u"How hot it feels in damp air."},
    QuantityRow{Quantity::Visibility, u"visibility", u"visibilityValue", u"VISIBILITY",
                u"txtVisibility", u"Visibility:", false, true, u"How far one can see."},
    QuantityRow{Quantity::Sunrise, u"sunrise", u"sunriseValue", u"SUNRISE", u"txtSunrise",
                u"Sunrise:", false, false, u"Time of sunrise."},
    QuantityRow{Quantity::Sunset, u"sunset", u"sunsetValue", u"SUNSET", u"txtSunset", u"Sunset:",
                false, false, u"Time of sunset."},
    QuantityRow{Quantity::MinTemp, u"minTemp", u"minTempValue", u"PREVMIN", u"txtPrevMinTemp",
                u"Previous Min:", false, true, u"Lowest temperature of the day before."},
    QuantityRow{Quantity::MaxTemp, u"maxTemp", u"maxTempValue", u"PREVMAX", u"txtPrevMaxTemp",
                u"Previous Max:", false, true, u"Highest temperature of the day before."},
    QuantityRow{Quantity::Precip,
                u"precip",
                u"precipValue",
                {},
                u"txtPrevPrecip",
                u"Precipitation:",
                false,
                true,
                u"Rain and snow in the time that the service counts. Not in the output file."},
    QuantityRow{Quantity::Time, u"time", u"timeValue", u"TIME", u"txtTime", u"Time:", false, false,
                u"Time of the observation; of the reply where the service gives none."},
    QuantityRow{Quantity::Location, u"location", u"locationValue", u"CITY", u"txtLocation",
                u"Location:", false, false, u"Place of the observation, as the service names it."},
};

inline constexpr std::size_t kQuantityCount = kQuantities.size();

[[nodiscard]] constexpr const QuantityRow &RowOf(Quantity quantity)
{
    return kQuantities[static_cast<std::size_t>(quantity)];
}

static_assert(std::ranges::all_of(kQuantities, [](const QuantityRow &row) {
    return &row == &RowOf(row.quantity); // the table is in the enumeration's order
}));

namespace quantity_detail {

constexpr bool HasValue(const QuantityRow &row)
{
    return !row.value.isEmpty();
}

constexpr auto Values()
{
    std::array<Quantity, std::size_t(std::ranges::count_if(kQuantities, HasValue))> values{};
    std::size_t count = 0;
    for (const QuantityRow &row : kQuantities) {
        if (HasValue(row))
            values[count++] = row.quantity;
    }
    return values;
}

} // namespace quantity_detail

/// The quantities that have a value of their own, in the order of the enumeration.
inline constexpr auto kValues = quantity_detail::Values();

/// Whether `order` names each quantity for which `isMeant` holds exactly once, and no other.
template <typename Order, typename Predicate>
[[nodiscard]] constexpr bool NamesEachOnce(const Order &order, Predicate isMeant)
{
    return std::ranges::all_of(kQuantities, [&](const QuantityRow &row) {
        return std::ranges::count(order, row.quantity) == (isMeant(row) ? 1 : 0);
    });
}

/// The value last read of each quantity, as text ready for display.
class WeatherValues
{
public:
    [[nodiscard]] QString &operator[](Quantity quantity)
    {
        return m_texts[static_cast<std::size_t>(quantity)];
    }
    [[nodiscard]] const QString &operator[](Quantity quantity) const
    {
        return m_texts[static_cast<std::size_t>(quantity)];
    }
    [[nodiscard]] bool operator==(const WeatherValues &) const = default;

private:
    std::array<QString, kQuantityCount> m_texts = {};
};
