#include "support/qt_printers.h"
#include "unit/profiles/airport_report.h"
#include "unit/profiles/shipped_profiles.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace {

constexpr std::size_t kUsUnits = 1;
constexpr std::size_t kMetric = 2;
constexpr std::size_t kWithConditions = 3;

/// Checks the three profiles against one report.
void ExpectValues(const AirportReport &report, const QString &station = "EDXX")
{
    const QString reply = ReplyText(report, station);
    const auto expect = [&](std::size_t profile, bool taken, const WeatherValues &values) {
        const Outcome outcome = Parse(profile, reply);
        ASSERT_EQ(outcome.parsed, taken) << profile << '\n' << reply.toStdString();
        ASSERT_EQ(outcome.values, Lines(taken ? values : WeatherValues())) << profile << '\n'
                                                                           << reply.toStdString();
        ASSERT_EQ(outcome.pieces, QStringList()) << profile << '\n' << reply.toStdString();
        ASSERT_EQ(outcome.temps.size(), taken ? 1 : 0) << profile << '\n' << reply.toStdString();
    };

    const bool taken = report.temperature.has_value();
    expect(kUsUnits, taken, ValuesInUsUnits(report));
    expect(kMetric, taken, MetricValues(report));
    expect(kWithConditions, IsTakenWithConditions(report), MetricValuesWithConditions(report));
}

/// The full report without the optional lines whose bits are not set.
AirportReport WithLines(unsigned lines)
{
    AirportReport report = FullReport();
    unsigned bit = 0;
    const auto keep = [&](auto &line) {
        if ((lines >> bit++ & 1U) == 0)
            line.reset();
    };
    keep(report.wind);
    keep(report.visibility);
    keep(report.sky);
    keep(report.weather);
    keep(report.precipitation);
    keep(report.temperature);
    keep(report.windChill);
    keep(report.heatIndex);
    keep(report.dewPoint);
    keep(report.pressure);
    keep(report.tendency);
    return report;
}

constexpr unsigned kLineSets = 1U << 11;

const std::vector<AirportReport::Wind> kWinds{
    {.line = "Calm", .metric = "N/A"},
    {.line = "Variable at 7 MPH (6 KT)", .metric = "Variable at 11 km/h"}, // 11.27
    {.line = "from the SW (220 degrees) at 21 MPH (18 KT) gusting to 36 MPH (31 KT)",
     .metric = "SW at 34 km/h"}, // 33.80
    {.line = "Variable at 1 MPH (1 KT) gusting to 28 MPH (24 KT)",
     .metric = "Variable at 2 km/h"}, // 1.61
    {.line = "from the ENE (070 degrees) at 9 MPH (8 KT) (direction variable)",
     .metric = "ENE at 14 km/h"}, // 14.48
};

TEST(ShippedAirportReport, GivesAllValues)
{
    AirportReport report = FullReport();
    report.precipitation.reset();
    const QString reply = ReplyText(report);

    EXPECT_EQ(Parse(kUsUnits, reply).values,
              QString("temperatureValue=60.0 F\n"
                      "conditionsValue=N/A\n"
                      "windSpeedDirValue=from the S (170 degrees) at 13 MPH (11 KT)\n"
                      "humidityValue=93%\n"
                      "atmosPressValue=29.80 in\n"
                      "dewPointValue=39.0 F\n"
                      "windchillValue=26.0 F\n"
                      "heatindexValue=103.5 F\n"
                      "visibilityValue=greater than 7 mile(s)\n"
                      "sunriseValue=Not Available From Service\n"
                      "sunsetValue=Not Available From Service\n"
                      "minTempValue=1000 F\n"
                      "maxTempValue=-1000 F\n"
                      "precipValue=Not Available From Service\n"
                      "timeValue=2017.07.29 0750 UTC\n"
                      "locationValue=HERE\n"));
    EXPECT_EQ(Parse(kWithConditions, reply).values,
              QString("temperatureValue=16.0 C\n"
                      "conditionsValue=light rain; mist; Towering cumulus clouds observed\n"
                      "windSpeedDirValue=S at 21 km/h\n"
                      "humidityValue=93%\n"
                      "atmosPressValue=1009 hPa\n"
                      "dewPointValue=3.9 C\n"
                      "windchillValue=-3 C\n"
                      "heatindexValue=39.7 C\n"
                      "visibilityValue=Not Available From Service\n"
                      "sunriseValue=Not Available From Service\n"
                      "sunsetValue=Not Available From Service\n"
                      "minTempValue=1000 C\n"
                      "maxTempValue=-1000 C\n"
                      "precipValue=Not Available From Service\n"
                      "timeValue=2017.07.29 0750 UTC\n"
                      "locationValue=HERE\n"));
}

TEST(ShippedAirportReport, IsRightWithEveryCombinationOfLines)
{
    for (unsigned lines = 0; lines < kLineSets; ++lines)
        ASSERT_NO_FATAL_FAILURE(ExpectValues(WithLines(lines))) << lines;
}

TEST(ShippedAirportReport, IsRightWithEveryWindAndEveryCombinationOfLines)
{
    for (const AirportReport::Wind &wind : kWinds) {
        for (unsigned lines = 1; lines < kLineSets; lines += 2) { // bit 0: the wind
            AirportReport report = WithLines(lines);
            report.wind = wind;
            ASSERT_NO_FATAL_FAILURE(ExpectValues(report)) << lines;
        }
    }
}

TEST(ShippedAirportReport, IsRightWithATraceOfPrecipitation)
{
    for (unsigned lines = 0; lines < kLineSets; ++lines) {
        AirportReport report = WithLines(lines);
        report.precipitation = "A trace";
        ASSERT_NO_FATAL_FAILURE(ExpectValues(report)) << lines;
    }
}

TEST(ShippedAirportReport, ShowsEveryWordingOfVisibilityAndSky)
{
    for (const char *visibility :
         {"10 mile(s)", "3/4 mile(s)", "1 1/2 mile(s)", "less than 1 mile"}) {
        for (const char *sky : {"clear", "mostly clear", "partly cloudy", "overcast", "obscured"}) {
            AirportReport report = FullReport();
            report.weather.reset();
            report.precipitation.reset();
            report.visibility = visibility;
            report.sky = sky;
            ExpectValues(report);
        }
    }
}

TEST(ShippedAirportReport, ReadsNegativeTemperatures)
{
    AirportReport report = FullReport();
    report.temperature = {{"-9 F (-23 C)", "-9.0 F", "-23.0 C"}};
    report.windChill = {{"-23 F (-31 C):2", "-23.0 F", "-31 C"}};
    report.heatIndex.reset();
    report.dewPoint = {{"-18.4 F (-28.0 C)", "-18.4 F", "-28.0 C"}};

    ExpectValues(report);

    EXPECT_EQ(Parse(kUsUnits, ReplyText(report)).temps, QList<double>{-9});
    EXPECT_EQ(Parse(kMetric, ReplyText(report)).temps, QList<double>{-23});
}

TEST(ShippedAirportReport, ReadsFreezingPointAndZeroFahrenheit)
{
    AirportReport report = FullReport();
    report.temperature = {{"32 F (0 C)", "32.0 F", "0.0 C"}};
    report.dewPoint = {{"32 F (0 C)", "32.0 F", "0 C"}};
    report.windChill = {{"0 F (-18 C):1", "N/A", "-18 C"}}; // 0 F cannot be told from no value
    ExpectValues(report);

    report.temperature = {{"0 F (-18 C)", "0.0 F", "-18.0 C"}};
    ExpectValues(report);
}

TEST(ShippedAirportReport, ReadsPressureWithOneDecimalAndWithALeadingZero)
{
    AirportReport report = FullReport();
    report.pressure = {{"30.1 in. Hg (1019 hPa)", "30.10 in", "1019 hPa"}};
    ExpectValues(report);
    report.pressure = {{"29.15 in. Hg (0987 hPa)", "29.15 in", "987 hPa"}};
    ExpectValues(report);
}

TEST(ShippedAirportReport, IsNotMisledByTheStationsCode)
{
    // Codes that contain pieces of what the profiles search for.
    for (const char *station : {"UTTT", "KUTS", "EDDT", "ZBAA", "NZAA", "EGCC"}) {
        ExpectValues(BareReport(), station);
        ExpectValues(FullReport(), station);
    }
}

TEST(ShippedAirportReport, ReadsAReportOfAnUnknownStationInTheAfternoon)
{
    AirportReport report = FullReport();
    report.precipitation.reset();
    const QString reply =
        ReplyText(report)
            .replace("Harbour Town, Field 20, Somewhere (EDXX) 53-38N 010-00E 15M",
                     "Station name not available")
            .replace("Jul 29, 2017 - 03:50 AM EDT / 2017.07.29 0750 UTC",
                     "Feb 01, 2011 - 12:00 PM EST / 2011.02.01 1700 UTC");
    WeatherValues expected = MetricValuesWithConditions(report);
    expected[Quantity::Time] = "2011.02.01 1700 UTC";

    EXPECT_EQ(Parse(kWithConditions, reply).values, Lines(expected));
}

TEST(ShippedAirportReport, IsRefusedWithoutATemperature)
{
    AirportReport report = FullReport();
    report.temperature.reset();
    for (const std::size_t profile : {kUsUnits, kMetric, kWithConditions}) {
        const Outcome outcome = Parse(profile, ReplyText(report));

        EXPECT_FALSE(outcome.parsed);
        EXPECT_EQ(outcome.temps, QList<double>());
        EXPECT_EQ(outcome.statuses,
                  QStringList{"Required value not found in received data: temperature"});
    }
}

TEST(ShippedAirportReport, IsRefusedWithConditionsWhereTheyCannotBeToldApart)
{
    AirportReport bare = BareReport();
    EXPECT_EQ(Parse(kWithConditions, ReplyText(bare)).statuses,
              QStringList{"Required value not found in received data: visibility"});

    EXPECT_EQ(Parse(kWithConditions, ReplyText(FullReport())).statuses,
              QStringList{"Required value not found in received data: precip"});
}

TEST(ShippedAirportReport, IsRefusedWhenItIsTorn)
{
    const QString reply = ReplyText(FullReport());
    const qsizetype raw = reply.indexOf("ob:");

    for (qsizetype length = 0; length <= raw + 1; ++length) {
        for (const std::size_t profile : {kUsUnits, kMetric, kWithConditions})
            ASSERT_FALSE(Parse(profile, reply.left(length)).parsed) << length;
    }
}

} // namespace
