#include "demo_host/day_weather.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(DayWeather, IsWarmestAtThreeInTheAfternoonAndColdestTwelveHoursFromThere)
{
    const Station *station = FindStation(u"KBWI"); // mean 17.0, swing 6.0
    ASSERT_NE(station, nullptr);

    EXPECT_DOUBLE_EQ(WeatherAt(*station, QTime(15, 0)).temperatureC, 23.0);
    EXPECT_DOUBLE_EQ(WeatherAt(*station, QTime(3, 0)).temperatureC, 11.0);
    EXPECT_DOUBLE_EQ(WeatherAt(*station, QTime(9, 0)).temperatureC, 17.0);
    EXPECT_DOUBLE_EQ(WeatherAt(*station, QTime(11, 0)).temperatureC, 20.0); // cos 60 degrees
}

TEST(DayWeather, HasTheHumidityOfItsDewPoint)
{
    const Station *station = FindStation(u"KBWI"); // dew point 9.0
    ASSERT_NE(station, nullptr);

    // 100 * exp(17.625 * 9 / 252.04) / exp(17.625 * 23 / 266.04) = 100 * 1.8764 / 4.5893
    EXPECT_EQ(WeatherAt(*station, QTime(15, 0)).humidity, 41);
    EXPECT_EQ(HumidityPercent(9.0, 9.0), 100);
}

TEST(DayWeather, HasItsStrongestWindAtTwoInTheAfternoon)
{
    const Station *station = FindStation(u"KBWI"); // 12 knots from 300 degrees
    ASSERT_NE(station, nullptr);

    EXPECT_EQ(WeatherAt(*station, QTime(14, 0)).windKnots, 12);
    EXPECT_EQ(WeatherAt(*station, QTime(2, 0)).windKnots, 6);
    EXPECT_EQ(WeatherAt(*station, QTime(12, 0)).windDegrees, 300);
    EXPECT_EQ(WeatherAt(*station, QTime(16, 0)).windDegrees, 320);
}

TEST(DayWeather, CallsNorthThreeHundredAndSixtyDegrees)
{
    const Station *station = FindStation(u"PAFA"); // from 20 degrees at noon
    ASSERT_NE(station, nullptr);

    EXPECT_EQ(WeatherAt(*station, QTime(8, 0)).windDegrees, 360);
}

TEST(DayWeather, IsAlwaysCalmInHamburg)
{
    const Station *station = FindStation(u"EDDH");
    ASSERT_NE(station, nullptr);

    for (int hour = 0; hour < 24; ++hour) {
        EXPECT_EQ(WeatherAt(*station, QTime(hour, 0)).windKnots, 0);
        EXPECT_EQ(WeatherAt(*station, QTime(hour, 0)).windDegrees, 0);
    }
}

TEST(DayWeather, RainsInSeattleInTheAfternoonOnly)
{
    const Station *station = FindStation(u"KSEA");
    ASSERT_NE(station, nullptr);

    EXPECT_EQ(WeatherAt(*station, QTime(11, 59)).rain, u"");
    EXPECT_EQ(WeatherAt(*station, QTime(12, 0)).rain, u"light rain");
    EXPECT_EQ(WeatherAt(*station, QTime(12, 0)).sky, u"overcast");
    EXPECT_EQ(WeatherAt(*station, QTime(17, 59)).rain, u"light rain");
    EXPECT_EQ(WeatherAt(*station, QTime(18, 0)).rain, u"");
}

TEST(DayWeather, FitsTogetherAtEveryStationAndMinute)
{
    for (const Station &station : Stations()) {
        for (QTime time(0, 0); time < QTime(23, 59); time = time.addSecs(60)) {
            const DayWeather weather = WeatherAt(station, time);

            ASSERT_LE(weather.dewPointC, weather.temperatureC);
            ASSERT_GE(weather.humidity, 1);
            ASSERT_LE(weather.humidity, 100);
            ASSERT_EQ(weather.windKnots == 0, weather.windDegrees == 0);
            ASSERT_LE(weather.windDegrees, 360);
            ASSERT_NEAR(weather.temperatureC, (Fahrenheit(weather.temperatureC) - 32) / 1.8, 0.03);
            ASSERT_FALSE(weather.sky.isEmpty());
        }
    }
}

TEST(Fahrenheit, IsRoundedToATenth)
{
    EXPECT_DOUBLE_EQ(Fahrenheit(23.0), 73.4);
    EXPECT_DOUBLE_EQ(Fahrenheit(-40.0), -40.0);
    EXPECT_DOUBLE_EQ(Fahrenheit(7.2), 45.0); // 44.96
}

TEST(CompassPoint, NamesTheNearestOfSixteen)
{
    EXPECT_EQ(CompassPoint(0), u"N");
    EXPECT_EQ(CompassPoint(360), u"N");
    EXPECT_EQ(CompassPoint(349), u"N"); // 348.75 is where the north begins
    EXPECT_EQ(CompassPoint(348), u"NNW");
    EXPECT_EQ(CompassPoint(200), u"SSW");
    EXPECT_EQ(CompassPoint(300), u"WNW");
}

TEST(FindStation, KnowsCapitalLettersOnly)
{
    EXPECT_NE(FindStation(u"EGLL"), nullptr);
    EXPECT_EQ(FindStation(u"egll"), nullptr);
    EXPECT_EQ(FindStation(u""), nullptr);
}

TEST(NearestStation, TakesTheOneNextToThePlace)
{
    EXPECT_EQ(NearestStation(51.5085, -0.1257).code, u"EGLL");
    EXPECT_EQ(NearestStation(39.29, -76.61).code, u"KBWI");
}

TEST(LocalTime, IsTheStationsOwn)
{
    const QDateTime utc(QDate(2026, 3, 1), QTime(2, 30), Qt::UTC);
    const Station *station = FindStation(u"KSEA");
    ASSERT_NE(station, nullptr);

    EXPECT_EQ(LocalTime(*station, utc).date(), QDate(2026, 2, 28));
    EXPECT_EQ(LocalTime(*station, utc).time(), QTime(18, 30));
}

} // namespace
