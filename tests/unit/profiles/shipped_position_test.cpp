#include "support/qt_printers.h"
#include "unit/profiles/shipped_profiles.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

constexpr std::size_t kMetric = 6;
constexpr std::size_t kUsUnits = 7;

using Members = std::vector<std::pair<QString, QString>>;

/// The members whose values the profiles read, in the order of the request.
Members MetricMembers()
{
    return {{"temperature_2m", "21.6"},
            {"relative_humidity_2m", "65"},
            {"dew_point_2m", "14.8"},
            {"precipitation", "0.00"},
            {"pressure_msl", "1013.2"},
            {"visibility", "24140.00"},
            {"wind_speed_10m", "16.6"},
            {"wind_direction_10m", "240"},
            {"wind_gusts_10m", "33.1"},
            {"sunrise", "[\"2026-07-02T04:47\"]"},
            {"sunset", "[\"2026-07-02T21:20\"]"},
            {"uv_index_max", "[6.85]"}};
}

Members UsMembers()
{
    return {{"temperature_2m", "81.0"},
            {"relative_humidity_2m", "65"},
            {"dew_point_2m", "68.1"},
            {"precipitation", "0.012"},
            {"pressure_msl", "1013.2"},
            {"wind_speed_10m", "0.0"},
            {"wind_direction_10m", "180"},
            {"wind_gusts_10m", "4.5"},
            {"sunrise", "[\"2026-07-02T05:44\"]"},
            {"sunset", "[\"2026-07-02T20:37\"]"},
            {"uv_index_max", "[8.10]"}};
}

/// Replaces the value of one member; "" removes the member.
Members With(Members members, const QString &name, const QString &value)
{
    std::erase_if(members, [&](const auto &m) { return value.isEmpty() && m.first == name; });
    for (auto &member : members) {
        if (member.first == name)
            member.second = value;
    }
    return members;
}

QString ReplyText(const Members &members)
{
    QString current = R"({"time":"2026-07-02T10:30","interval":900)";
    QString currentUnits = R"({"time":"iso8601","interval":"seconds")";
    QString daily = R"({"time":["2026-07-02"])";
    QString dailyUnits = R"({"time":"iso8601")";
    for (const auto &[name, value] : members) {
        const bool ofDay = name.startsWith("sun") || name.startsWith("uv");
        (ofDay ? daily : current) += ",\"" + name + "\":" + value;
        (ofDay ? dailyUnits : currentUnits) += ",\"" + name + R"(":"unit")";
    }
    const QString head =
        R"({"latitude":51.5,"longitude":-0.25,"generationtime_ms":0.41,"utc_offset_seconds":3600,)"
        R"("timezone":"Europe/London","timezone_abbreviation":"GMT+1","elevation":23.0,)";
    return head + R"("current_units":)" + currentUnits + R"(},"current":)" + current
         + R"(},"daily_units":)" + dailyUnits + R"(},"daily":)" + daily + "}}";
}

WeatherValues MetricValues()
{
    WeatherValues values = NothingKnown(" C");
    values[Quantity::Temperature] = "21.6 C";
    values[Quantity::WindSpeed] = "16.6 km/h from 240 degrees";
    values[Quantity::Humidity] = "65%";
    values[Quantity::AtmosPress] = "1013.2 hPa";
    values[Quantity::DewPoint] = "14.8 C";
    values[Quantity::Visibility] = "24.1 km"; // 24.14
    values[Quantity::Sunrise] = "04:47";
    values[Quantity::Sunset] = "21:20";
    values[Quantity::Precip] = "0.00 mm";
    values[Quantity::Time] = "2026-07-02 10:30";
    return values;
}

WeatherValues UsValues()
{
    WeatherValues values = NothingKnown(" F");
    values[Quantity::Temperature] = "81.0 F";
    values[Quantity::WindSpeed] = "0.0 mph from 180 degrees";
    values[Quantity::Humidity] = "65%";
    values[Quantity::AtmosPress] = "29.92 in"; // 1013.2 x 0.02953 = 29.9198
    values[Quantity::DewPoint] = "68.1 F";
    // The regression's terms for 81 and 65, in order: -42.379 + 165.97023 + 659.31653 - 1183.33723
    // - 44.86300 - 231.60254 + 524.01460 + 291.85632 - 55.16325 = 83.81266
    values[Quantity::HeatIndex] = "83.8 F";
    values[Quantity::Visibility] = kNotDelivered.toString();
    values[Quantity::Sunrise] = "05:44";
    values[Quantity::Sunset] = "20:37";
    values[Quantity::Precip] = "0.012 in";
    values[Quantity::Time] = "2026-07-02 10:30";
    return values;
}

/// A member that may be null or missing, and the values that are then not available.
struct OptionalMember
{
    const char *name;
    std::vector<Quantity> values;
};

const std::vector<OptionalMember> kOptional{
    {"relative_humidity_2m", {Quantity::Humidity, Quantity::HeatIndex}},
    {"dew_point_2m", {Quantity::DewPoint}},
    {"precipitation", {Quantity::Precip}},
    {"pressure_msl", {Quantity::AtmosPress}},
    {"visibility", {Quantity::Visibility}},
    {"wind_speed_10m", {Quantity::WindSpeed, Quantity::WindChill}},
    {"wind_direction_10m", {Quantity::WindSpeed, Quantity::WindChill}},
    {"sunrise", {Quantity::Sunrise}},
    {"sunset", {Quantity::Sunset}},
};

void LeaveOut(Members &members, WeatherValues &expected, const OptionalMember &member,
              const QString &value)
{
    members = With(members, member.name, value);
    for (const Quantity field : member.values) {
        if (expected[field] != kNotDelivered)
            expected[field] = "N/A";
    }
}

/// "": the member is missing.
class ShippedPosition : public testing::TestWithParam<const char *>
{
};

TEST_P(ShippedPosition, ShowsWhatIsNotThereInAnyCombinationAsNotAvailable)
{
    for (unsigned missing = 0; missing < 1U << kOptional.size(); ++missing) {
        Members metric = MetricMembers();
        Members us = UsMembers();
        WeatherValues expectedMetric = MetricValues();
        WeatherValues expectedUs = UsValues();
        for (std::size_t i = 0; i < kOptional.size(); ++i) {
            if ((missing >> i & 1U) == 0)
                continue;
            const bool ofDay = QString(kOptional[i].name).startsWith("sun");
            const QString null = *GetParam() != 0 && ofDay ? "[null]" : GetParam();
            LeaveOut(metric, expectedMetric, kOptional[i], null);
            LeaveOut(us, expectedUs, kOptional[i], null);
        }

        const Outcome metricOutcome = Parse(kMetric, ReplyText(metric));
        const Outcome usOutcome = Parse(kUsUnits, ReplyText(us));

        ASSERT_TRUE(metricOutcome.parsed && usOutcome.parsed) << missing;
        ASSERT_EQ(metricOutcome.values, Lines(expectedMetric)) << missing;
        ASSERT_EQ(usOutcome.values, Lines(expectedUs)) << missing;
        ASSERT_EQ(metricOutcome.pieces + usOutcome.pieces, QStringList()) << missing;
    }
}

INSTANTIATE_TEST_SUITE_P(Missing, ShippedPosition, testing::Values("null", ""),
                         [](const auto &test) { return *test.param != 0 ? "Null" : "Absent"; });

TEST(ShippedPositionProfiles, GiveAllValues)
{
    const Outcome metric = Parse(kMetric, ReplyText(MetricMembers()));
    const Outcome us = Parse(kUsUnits, ReplyText(UsMembers()));

    EXPECT_EQ(metric.values, Lines(MetricValues()));
    EXPECT_EQ(metric.temps, QList<double>{21.6});
    EXPECT_EQ(us.values, Lines(UsValues()));
    EXPECT_EQ(us.temps, QList<double>{81});
}

TEST(ShippedPositionProfiles, ReadNegativeTemperaturesAndZero)
{
    Members members = With(MetricMembers(), "temperature_2m", "-5.0");
    members = With(members, "dew_point_2m", "0.0");
    members = With(members, "wind_speed_10m", "20.0");
    WeatherValues expected = MetricValues();
    expected[Quantity::Temperature] = "-5.0 C";
    expected[Quantity::DewPoint] = "0.0 C";
    expected[Quantity::WindSpeed] = "20.0 km/h from 240 degrees";
    // 20^0.16 = 1.61496; 13.12 - 3.1075 - 18.3621 - 3.2017 = -11.5513
    expected[Quantity::WindChill] = "-11.6 C";

    EXPECT_EQ(Parse(kMetric, ReplyText(members)).values, Lines(expected));
}

TEST(ShippedPositionProfiles, RefuseAReplyWithoutATemperature)
{
    for (const QString value : {"null", ""}) {
        for (const std::size_t profile : {kMetric, kUsUnits}) {
            const Outcome outcome =
                Parse(profile, ReplyText(With(MetricMembers(), "temperature_2m", value)));

            EXPECT_FALSE(outcome.parsed);
            EXPECT_EQ(outcome.values, Lines({}));
            EXPECT_EQ(outcome.temps, QList<double>());
            EXPECT_EQ(outcome.statuses,
                      QStringList{"Required value not found in received data: temperature"});
        }
    }
}

} // namespace
