#include "support/qt_printers.h"
#include "unit/profiles/shipped_profiles.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr std::size_t kProfile = 5;

/// Every quantity that the profile reads is on a line of its own, except the description.
constexpr const char *kFullReply = R"({
  "current_condition": [
      {
          "FeelsLikeC": "-13",
          "FeelsLikeF": "8",
          "cloudcover": "0",
          "humidity": "68",
          "localObsDateTime": "2026-02-03 03:15 PM",
          "observation_time": "02:15 PM",
          "precipInches": "0.0",
          "precipMM": "0.0",
          "pressure": "1018",
          "pressureInches": "30",
          "temp_C": "-7",
          "temp_F": "20",
          "uvIndex": "0",
          "visibility": "10",
          "visibilityMiles": "6",
          "weatherCode": "113",
          "weatherDesc": [
              {
                  "value": "Sunny"
              }
          ],
          "weatherIconUrl": [
              {
                  "value": ""
              }
          ],
          "winddir16Point": "E",
          "winddirDegree": "89",
          "windspeedKmph": "18",
          "windspeedMiles": "11"
      }
  ],
  "nearest_area": [
      {
          "areaName": [
              {
                  "value": "Harbour Town"
              }
          ],
          "latitude": "52.250"
      }
  ],
  "weather": [
      {
          "astronomy": [
              {
                  "moonset": "07:58 AM",
                  "sunrise": "07:14 AM",
                  "sunset": "04:26 PM"
              }
          ],
          "avgtempC": "-12",
          "sunHour": "9.0",
          "totalSnow_cm": "0.0",
          "uvIndex": "0"
      }
  ]
}
)";

QString FullReply()
{
    return kFullReply;
}

WeatherValues FullValues()
{
    WeatherValues values = NothingKnown(" C");
    values[Quantity::Temperature] = "-7.0 C";
    values[Quantity::Conditions] = "Sunny";
    values[Quantity::WindSpeed] = "18 km/h E";
    values[Quantity::Humidity] = "68%";
    values[Quantity::AtmosPress] = "1018 hPa";
    values[Quantity::DewPoint] = "-13.4 C"; // -7 - (100 - 68) / 5
    // 18^0.16 = 1.58796; 13.12 - 4.3505 - 18.0551 - 4.4074 = -13.6930
    values[Quantity::WindChill] = "-13.7 C";
    values[Quantity::Visibility] = "10 km";
    values[Quantity::Sunrise] = "07:14 AM";
    values[Quantity::Sunset] = "04:26 PM";
    values[Quantity::Precip] = "0.0 mm";
    values[Quantity::Time] = "2026-02-03 03:15 PM";
    return values;
}

/// A line that may be missing, and the values that are then not available.
struct OptionalLine
{
    const char *name;
    std::vector<Quantity> values;
};

const std::vector<OptionalLine> kOptional{
    {R"("humidity")", {Quantity::Humidity, Quantity::DewPoint}},
    {R"("precipMM")", {Quantity::Precip}},
    {R"("pressure")", {Quantity::AtmosPress}},
    {R"("visibility")", {Quantity::Visibility}},
    {R"("winddir16Point")", {Quantity::WindSpeed, Quantity::WindChill}},
    {R"("windspeedKmph")", {Quantity::WindSpeed, Quantity::WindChill}},
    {R"("sunrise")", {Quantity::Sunrise}},
    {R"("sunset")", {Quantity::Sunset}},
};

TEST(ShippedPlace, GivesAllValues)
{
    const Outcome outcome = Parse(kProfile, FullReply());

    EXPECT_TRUE(outcome.parsed);
    EXPECT_EQ(outcome.values, Lines(FullValues()));
    EXPECT_EQ(outcome.temps, QList<double>{-7});
}

TEST(ShippedPlace, ShowsWhatIsMissingInAnyCombinationAsNotAvailable)
{
    for (unsigned missing = 0; missing < 1U << kOptional.size(); ++missing) {
        QString reply = FullReply();
        WeatherValues expected = FullValues();
        for (std::size_t i = 0; i < kOptional.size(); ++i) {
            if ((missing >> i & 1U) == 0)
                continue;
            reply = WithoutLine(reply, kOptional[i].name);
            for (const Quantity value : kOptional[i].values)
                expected[value] = "N/A";
        }

        const Outcome outcome = Parse(kProfile, reply);

        ASSERT_TRUE(outcome.parsed) << missing;
        ASSERT_EQ(outcome.values, Lines(expected)) << missing;
        ASSERT_EQ(outcome.pieces, QStringList()) << missing;
    }
}

TEST(ShippedPlace, ShowsEmptyValuesAsNotAvailable)
{
    const QString reply = FullReply()
                              .replace(R"("humidity": "68")", R"("humidity": "")")
                              .replace(R"("sunset": "04:26 PM")", R"("sunset": "")");
    WeatherValues expected = FullValues();
    expected[Quantity::Humidity] = "N/A";
    expected[Quantity::DewPoint] = "N/A";
    expected[Quantity::Sunset] = "N/A";

    EXPECT_EQ(Parse(kProfile, reply).values, Lines(expected));
}

TEST(ShippedPlace, ShowsNullAsNotAvailable)
{
    const QString reply = FullReply()
                              .replace(R"("humidity": "68")", R"("humidity": null)")
                              .replace(R"("pressure": "1018")", R"("pressure": null)")
                              .replace(R"("windspeedKmph": "18")", R"("windspeedKmph": null)");
    WeatherValues expected = FullValues();
    expected[Quantity::Humidity] = "N/A";
    expected[Quantity::DewPoint] = "N/A";
    expected[Quantity::AtmosPress] = "N/A";
    expected[Quantity::WindSpeed] = "N/A";
    expected[Quantity::WindChill] = "N/A";

    EXPECT_EQ(Parse(kProfile, reply).values, Lines(expected));
}

TEST(ShippedPlace, ShowsCalmWindAsZeroAndReadsWarmth)
{
    const QString reply = FullReply()
                              .replace(R"("windspeedKmph": "18")", R"("windspeedKmph": "0")")
                              .replace(R"("temp_C": "-7")", R"("temp_C": "0")");
    WeatherValues expected = FullValues();
    expected[Quantity::Temperature] = "0.0 C";
    expected[Quantity::WindSpeed] = "0 km/h E";
    expected[Quantity::WindChill] = "N/A"; // 13.12 is warmer than 0
    expected[Quantity::DewPoint] = "-6.4 C";

    EXPECT_EQ(Parse(kProfile, reply).values, Lines(expected));
}

TEST(ShippedPlace, RefusesAReplyWithoutTemperatureOrDescription)
{
    const QString noTemperature = WithoutLine(FullReply(), R"("temp_C")");
    const QString nullTemperature = FullReply().replace(R"("temp_C": "-7")", R"("temp_C": null)");
    for (const QString &reply : {noTemperature, nullTemperature}) {
        const Outcome outcome = Parse(kProfile, reply);
        EXPECT_FALSE(outcome.parsed);
        EXPECT_EQ(outcome.temps, QList<double>());
        EXPECT_EQ(outcome.statuses,
                  QStringList{"Required value not found in received data: temperature"});
    }

    const Outcome noDescription = Parse(kProfile, WithoutLine(FullReply(), R"("weatherDesc")"));
    EXPECT_FALSE(noDescription.parsed);
    EXPECT_EQ(noDescription.values, Lines({}));
    EXPECT_EQ(noDescription.statuses,
              QStringList{"Required value not found in received data: conditions"});
}

} // namespace
