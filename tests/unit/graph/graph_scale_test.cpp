#include "graph/graph_scale.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();

const QRectF kPlot(40, 20, 240, 100); // x: 40..280, y: 20..120
constexpr TempScale kForties{40, 80};

struct ScaleCase
{
    const char *name;
    double minTemp = 0;
    double maxTemp = 0;
    std::vector<double> readings = {};
    double bottom = 0;
    double top = 0;
};

void PrintTo(const ScaleCase &c, std::ostream *out)
{
    *out << c.name;
}

DayTemps DayOf(double minTemp, double maxTemp, const std::vector<double> &readings)
{
    DayTemps day;
    day.MinTemp = minTemp;
    day.MaxTemp = maxTemp;
    qint16 hour = 0;
    for (const double reading : readings)
        StoreReading(day, reading, hour++);
    return day;
}

class DrawnScaleOf : public testing::TestWithParam<ScaleCase>
{
};

TEST_P(DrawnScaleOf, HasExtentAndStandsUpright)
{
    const ScaleCase &c = GetParam();

    const auto scale = DrawnScale(DayOf(c.minTemp, c.maxTemp, c.readings));

    ASSERT_TRUE(scale);
    EXPECT_EQ(scale->bottom, c.bottom);
    EXPECT_EQ(scale->top, c.top);
}

const ScaleCase kScaleCases[] = {
    {.name = "TheLimits", .minTemp = 40, .maxTemp = 80, .bottom = 40, .top = 80},
    {.name = "TheLimitsWhateverTheReadings",
     .minTemp = 40,
     .maxTemp = 80,
     .readings = {10, 99},
     .bottom = 40,
     .top = 80},
    {.name = "Reversed", .minTemp = 80, .maxTemp = 40, .bottom = 40, .top = 80},
    {.name = "UnsetWithReadings", .readings = {55, -1000, 71.5}, .bottom = 55, .top = 71.5},
    {.name = "UnsetWithoutReadings", .bottom = -1, .top = 1},
    {.name = "EqualWithoutReadings", .minTemp = 50, .maxTemp = 50, .bottom = 49, .top = 51},
    {.name = "EqualWithOneTemperature",
     .minTemp = 50,
     .maxTemp = 50,
     .readings = {60, 60},
     .bottom = 59,
     .top = 61},
};

INSTANTIATE_TEST_SUITE_P(Table, DrawnScaleOf, testing::ValuesIn(kScaleCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(DrawnScale, IsMissingWhereNothingCanBeDrawn)
{
    EXPECT_FALSE(DrawnScale(DayOf(-kLargest, kLargest, {50})));
    EXPECT_FALSE(DrawnScale(DayOf(0, kInfinity, {50})));
    EXPECT_FALSE(DrawnScale(DayOf(kInfinity, kInfinity, {40, 50})));
    EXPECT_FALSE(DrawnScale(DayOf(kNaN, 80, {50})));
    // One degree either way is lost in a number this large.
    EXPECT_FALSE(DrawnScale(DayOf(1e300, 1e300, {})));
}

TEST(XOfHour, PartsTheWidthInto24Hours)
{
    EXPECT_EQ(XOfHour(kPlot, 0), 40);
    EXPECT_EQ(XOfHour(kPlot, 1), 50);
    EXPECT_EQ(XOfHour(kPlot, 12), 160);
    EXPECT_EQ(XOfHour(kPlot, 23), 270);
    EXPECT_EQ(XOfHour(kPlot, 24), 280);
}

TEST(YOfTemp, RunsFromTheLowerEdgeToTheUpperOne)
{
    EXPECT_EQ(YOfTemp(kPlot, kForties, 40), 120);
    EXPECT_EQ(YOfTemp(kPlot, kForties, 50), 95);
    EXPECT_EQ(YOfTemp(kPlot, kForties, 60), 70);
    EXPECT_EQ(YOfTemp(kPlot, kForties, 80), 20);
}

TEST(YOfTemp, LeavesThePlotOffTheScale)
{
    EXPECT_EQ(YOfTemp(kPlot, kForties, 30), 145);
    EXPECT_EQ(YOfTemp(kPlot, kForties, 90), -5);
}

TEST(YOfTemp, StaysWithinAHundredHeights)
{
    EXPECT_EQ(YOfTemp(kPlot, kForties, 1e300), 120 - 100 * 100);
    EXPECT_EQ(YOfTemp(kPlot, kForties, -1e300), 120 + 100 * 100);
    EXPECT_EQ(YOfTemp(kPlot, {0, 1e-320}, 50), 120 - 100 * 100);
}

TEST(IsOnScale, IncludesBothEnds)
{
    EXPECT_TRUE(IsOnScale(kForties, 40));
    EXPECT_TRUE(IsOnScale(kForties, 80));
    EXPECT_FALSE(IsOnScale(kForties, 39.9));
    EXPECT_FALSE(IsOnScale(kForties, 80.1));
}

TEST(LabelTemp, PartsTheScaleIntoFourths)
{
    EXPECT_EQ(LabelTemp(kForties, 0), 40);
    EXPECT_EQ(LabelTemp(kForties, 1), 50);
    EXPECT_EQ(LabelTemp(kForties, 4), 80);
    EXPECT_EQ(LabelTemp({-8e307, 8e307}, 4), 8e307);
}

TEST(LabelDecimals, AreAsFewAsTellTheLabelsApart)
{
    EXPECT_EQ(LabelDecimals({40, 80}), 0);
    EXPECT_EQ(LabelDecimals({-20, -4}), 0);
    EXPECT_EQ(LabelDecimals({40, 75}), 1);    // 48.75 apart from 40 and 57.5
    EXPECT_EQ(LabelDecimals({50, 50.4}), 1);  // 0.1 apart
    EXPECT_EQ(LabelDecimals({0, 0.2}), 2);    // 0.05 apart
    EXPECT_EQ(LabelDecimals({0, 0.001}), 4);  // 0.00025 apart
    EXPECT_EQ(LabelDecimals({0, 1e-300}), 6); // no number of decimals helps
}

TEST(DegreesText, EndsInTheDegreeSign)
{
    EXPECT_EQ(DegreesText(40, 0), "40\u00B0");
    EXPECT_EQ(DegreesText(48.75, 1), "48.8\u00B0");
    EXPECT_EQ(DegreesText(-3.5, 1), "-3.5\u00B0");
    EXPECT_EQ(DegreesText(0.00025, 4), "0.0003\u00B0");
    EXPECT_EQ(DegreesText(999999, 0), "999999\u00B0");
    EXPECT_EQ(DegreesText(1e6, 0), "1.0E+06\u00B0");
    EXPECT_EQ(DegreesText(-3.3e14, 1), "-3.3E+14\u00B0");
}

TEST(HourText, NamesTheTwelveHoursTwice)
{
    EXPECT_EQ(HourText(0), "12 AM");
    EXPECT_EQ(HourText(3), "3 AM");
    EXPECT_EQ(HourText(11), "11 AM");
    EXPECT_EQ(HourText(12), "12 PM");
    EXPECT_EQ(HourText(23), "11 PM");
}

TEST(HourStep, KeepsEightPixelsBetweenTheTexts)
{
    EXPECT_EQ(HourStep(16, 40), 3);
    EXPECT_EQ(HourStep(15.9, 40), 6);
    EXPECT_EQ(HourStep(8, 40), 6);
    EXPECT_EQ(HourStep(7.9, 40), 12);
    EXPECT_EQ(HourStep(4, 40), 12);
    EXPECT_EQ(HourStep(3.9, 40), 24);
}

TEST(LabelStep, KeepsTheTextsApart)
{
    EXPECT_EQ(LabelStep(64, 16), 1);
    EXPECT_EQ(LabelStep(63, 16), 2);
    EXPECT_EQ(LabelStep(32, 16), 2);
    EXPECT_EQ(LabelStep(31, 16), 4);
    EXPECT_EQ(LabelStep(16, 16), 4);
    EXPECT_EQ(LabelStep(15, 16), 0);
}

} // namespace
