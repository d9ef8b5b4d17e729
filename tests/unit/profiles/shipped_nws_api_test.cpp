#include "support/qt_printers.h"
#include "unit/profiles/shipped_profiles.h"

#include <gtest/gtest.h>

namespace {

constexpr std::size_t kProfile = 4;

QString Member(const QString &name, const QString &unit, const QString &value)
{
    return "        \"" + name + "\": {\n            \"unitCode\": \"wmoUnit:" + unit
         + "\",\n            \"value\": " + value
         + ",\n            \"qualityControl\": \"V\"\n        },\n";
}

/// The values of one observation as the service writes them.
struct Observation
{
    QString text = "\"Mostly Cloudy\"";
    QString temperature = "25.6";
    QString windDirection = "110";
    QString windSpeed = "18.36";
    QString pressure = "101760";
    QString visibility = "16090";
    QString humidity = "66.123";
};

QString ReplyText(const Observation &observation)
{
    return "{\n    \"id\": \"https://api.weather.gov/stations/KXYZ/observations/"
           "2026-03-05T04:53:00+00:00\",\n    \"type\": \"Feature\",\n    \"properties\": {\n"
           "        \"@id\": \"https://api.weather.gov/stations/KXYZ/observations/"
           "2026-03-05T04:53:00+00:00\",\n        \"@type\": \"wx:ObservationStation\",\n"
           "        \"elevation\": {\n            \"unitCode\": \"wmoUnit:m\",\n"
           "            \"value\": 3\n        },\n"
           "        \"station\": \"https://api.weather.gov/stations/KXYZ\",\n"
           "        \"timestamp\": \"2026-03-05T04:53:00+00:00\",\n"
           "        \"rawMessage\": \"KXYZ 050453Z 11010KT 10SM BKN040 26/19 A3005\",\n"
           "        \"textDescription\": "
         + observation.text + ",\n        \"icon\": null,\n        \"presentWeather\": [],\n"
         + Member("temperature", "degC", observation.temperature)
         + Member("dewpoint", "degC", "18.9")
         + Member("windDirection", "degree_(angle)", observation.windDirection)
         + Member("windSpeed", "km_h-1", observation.windSpeed)
         + Member("windGust", "km_h-1", "null")
         + Member("barometricPressure", "Pa", observation.pressure)
         + Member("seaLevelPressure", "Pa", "null")
         + Member("visibility", "m", observation.visibility)
         + Member("maxTemperatureLast24Hours", "degC", "null")
         + Member("relativeHumidity", "percent", observation.humidity)
         + Member("windChill", "degC", "null") + Member("heatIndex", "degC", "null")
         + "        \"cloudLayers\": [\n            {\n                \"base\": {\n"
           "                    \"unitCode\": \"wmoUnit:m\",\n"
           "                    \"value\": 1220\n                },\n"
           "                \"amount\": \"BKN\"\n            }\n        ]\n    }\n}\n";
}

WeatherValues FullValues()
{
    WeatherValues values = NothingKnown(" F");
    values[Quantity::Temperature] = "78.1 F"; // 25.6 x 1.8 + 32 = 78.08
    values[Quantity::Conditions] = "Mostly Cloudy";
    values[Quantity::WindSpeed] = "11 mph"; // 18.36 x 0.621371 = 11.41
    values[Quantity::Humidity] = "66%";
    values[Quantity::AtmosPress] = "30.05 in";   // 101760 x 0.0002953 = 30.0497
    values[Quantity::DewPoint] = "65.9 F";       // 78.1 - 0.36 x (100 - 66) = 65.86
    values[Quantity::Visibility] = "10.0 miles"; // 16090 x 0.000621371 = 9.998
    values[Quantity::Sunrise] = kNotDelivered.toString();
    values[Quantity::Sunset] = kNotDelivered.toString();
    values[Quantity::Precip] = kNotDelivered.toString();
    values[Quantity::Time] = "3/5/2026 5:53:00 AM"; // the clock is an hour ahead of UTC
    return values;
}

TEST(ShippedNwsApi, GivesAllValues)
{
    const Outcome outcome = Parse(kProfile, ReplyText({}));

    EXPECT_TRUE(outcome.parsed);
    EXPECT_EQ(outcome.values, Lines(FullValues()));
    EXPECT_EQ(outcome.temps, QList<double>{78.1});
}

TEST(ShippedNwsApi, ShowsNullInAnyCombinationAsNotAvailable)
{
    for (unsigned missing = 0; missing < 1U << 6; ++missing) {
        Observation observation;
        WeatherValues expected = FullValues();
        const auto leaveOut = [&](unsigned bit, QString &value, const Quantity field) {
            if ((missing >> bit & 1U) == 0)
                return;
            value = "null";
            expected[field] = "N/A";
        };
        leaveOut(0, observation.text, Quantity::Conditions);
        leaveOut(1, observation.windSpeed, Quantity::WindSpeed);
        leaveOut(2, observation.pressure, Quantity::AtmosPress);
        leaveOut(3, observation.visibility, Quantity::Visibility);
        leaveOut(4, observation.humidity, Quantity::Humidity);
        leaveOut(4, observation.humidity, Quantity::DewPoint);
        if ((missing >> 5 & 1U) != 0)
            observation.windDirection = "null"; // variable wind: the speed alone is shown

        const Outcome outcome = Parse(kProfile, ReplyText(observation));

        ASSERT_TRUE(outcome.parsed) << missing;
        ASSERT_EQ(outcome.values, Lines(expected)) << missing;
        ASSERT_EQ(outcome.pieces, QStringList()) << missing;
    }
}

TEST(ShippedNwsApi, ShowsAnEmptyDescriptionAsNotAvailable)
{
    WeatherValues expected = FullValues();
    expected[Quantity::Conditions] = "N/A";

    EXPECT_EQ(Parse(kProfile, ReplyText({.text = "\"\""})).values, Lines(expected));
}

TEST(ShippedNwsApi, ShowsCalmWindAsZero)
{
    WeatherValues expected = FullValues();
    expected[Quantity::WindSpeed] = "0 mph";

    EXPECT_EQ(Parse(kProfile, ReplyText({.windDirection = "0", .windSpeed = "0"})).values,
              Lines(expected));
}

TEST(ShippedNwsApi, ReadsNegativeTemperaturesAndComputesTheWindChill)
{
    WeatherValues expected = FullValues();
    expected[Quantity::Temperature] = "-9.4 F"; // -23 x 1.8 + 32
    expected[Quantity::WindSpeed] = "7 mph";    // 11.124 x 0.621371 = 6.91
    expected[Quantity::Humidity] = "70%";
    expected[Quantity::DewPoint] = "-20.2 F"; // -9.4 - 0.36 x 30
    // 7^0.16 = 1.36526; 35.74 - 5.8421 - 48.8080 - 5.4863 = -24.3964
    expected[Quantity::WindChill] = "-24.4 F";

    const Outcome outcome =
        Parse(kProfile, ReplyText({.temperature = "-23", .windSpeed = "11.124", .humidity = "70"}));

    EXPECT_EQ(outcome.values, Lines(expected));
}

TEST(ShippedNwsApi, ReadsFreezingPoint)
{
    const Outcome outcome = Parse(kProfile, ReplyText({.temperature = "0"}));

    EXPECT_TRUE(outcome.parsed);
    EXPECT_EQ(outcome.temps, QList<double>{32});
}

TEST(ShippedNwsApi, RefusesANullTemperature)
{
    const Outcome outcome = Parse(kProfile, ReplyText({.temperature = "null"}));

    EXPECT_FALSE(outcome.parsed);
    EXPECT_EQ(outcome.values, Lines({}));
    EXPECT_EQ(outcome.temps, QList<double>());
    EXPECT_EQ(outcome.statuses,
              QStringList{"Required value not found in received data: temperature"});
}

} // namespace
