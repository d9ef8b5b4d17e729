#include "graph/day_temps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <stdexcept>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();

TEST(DayTemps, BeginsWithoutReadingsAndWithoutARange)
{
    const DayTemps day;

    EXPECT_EQ(day.TempArray.size(), 25U);
    EXPECT_EQ(std::count(day.TempArray.begin(), day.TempArray.end(), -1000.0), 25);
    EXPECT_EQ(ScaleRange(day), 0);
}

TEST(ClearReadings, MarksAll25Entries)
{
    DayTemps day;
    day.TempArray.fill(68);

    ClearReadings(day);

    EXPECT_EQ(std::count(day.TempArray.begin(), day.TempArray.end(), -1000.0), 25);
}

TEST(StoreReading, TakesTheHoursOfADay)
{
    DayTemps day;

    StoreReading(day, 51.5, 0);
    StoreReading(day, 68.25, 23);

    EXPECT_EQ(day.TempArray[0], 51.5);
    EXPECT_EQ(day.TempArray[23], 68.25);
    EXPECT_EQ(std::count(day.TempArray.begin(), day.TempArray.end(), -1000.0), 23);
}

TEST(StoreReading, IgnoresEveryOtherHour)
{
    DayTemps day;

    for (const qint16 hour : std::initializer_list<qint16>{-32768, -1, 24, 25, 32767})
        StoreReading(day, 68, hour);

    EXPECT_EQ(std::count(day.TempArray.begin(), day.TempArray.end(), -1000.0), 25);
}

TEST(StoreReading, TakesAReadingBack)
{
    DayTemps day;
    StoreReading(day, 51.5, 7);

    StoreReading(day, -1000, 7);

    EXPECT_EQ(day.TempArray[7], -1000);
}

TEST(IsReading, RefusesTheMarkAndWhatIsNoNumber)
{
    EXPECT_TRUE(IsReading(0));
    EXPECT_TRUE(IsReading(-999.9));
    EXPECT_TRUE(IsReading(-1000.1));
    EXPECT_FALSE(IsReading(-1000));
    EXPECT_FALSE(IsReading(kInfinity));
    EXPECT_FALSE(IsReading(kNaN));
}

TEST(FindExtremes, LooksAtReadingsOnly)
{
    DayTemps day;
    StoreReading(day, 61, 3);
    StoreReading(day, -4.5, 9);
    StoreReading(day, kNaN, 12);
    StoreReading(day, kInfinity, 13);

    const auto extremes = FindExtremes(day);

    ASSERT_TRUE(extremes);
    EXPECT_EQ(extremes->lowest, -4.5);
    EXPECT_EQ(extremes->highest, 61);
}

TEST(FindExtremes, FindsNothingOnADayWithoutReadings)
{
    EXPECT_FALSE(FindExtremes(DayTemps()));
}

DayTemps DayWithScale(double bottom, double top)
{
    DayTemps day;
    day.MinTemp = bottom;
    day.MaxTemp = top;
    return day;
}

TEST(ScaleRange, IsTopLessBottom)
{
    EXPECT_EQ(ScaleRange(DayWithScale(40, 80)), 40);
    EXPECT_EQ(ScaleRange(DayWithScale(-10.5, 20)), 30.5);
    EXPECT_EQ(ScaleRange(DayWithScale(50, 50)), 0);
    EXPECT_EQ(ScaleRange(DayWithScale(80, 40)), -40);
    EXPECT_EQ(ScaleRange(DayWithScale(0, kLargest)), kLargest);
}

TEST(ScaleRange, ThrowsWhenItIsNotFinite)
{
    EXPECT_THROW((void)ScaleRange(DayWithScale(-kLargest, kLargest)), std::overflow_error);
    EXPECT_THROW((void)ScaleRange(DayWithScale(kLargest, -kLargest)), std::overflow_error);
    EXPECT_THROW((void)ScaleRange(DayWithScale(0, kInfinity)), std::overflow_error);
    EXPECT_THROW((void)ScaleRange(DayWithScale(kInfinity, kInfinity)), std::overflow_error);
    EXPECT_THROW((void)ScaleRange(DayWithScale(kNaN, 80)), std::overflow_error);
}

} // namespace
