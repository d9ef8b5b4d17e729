#include "support/qt_printers.h"
#include "support/read_weather.h"
#include "support/recorded_trace.h"
#include "support/weather_values.h"
#include "weather/weather_reading.h"

#include <gtest/gtest.h>

namespace {

/// 20 November 2026, 3:05:09 PM.
QDateTime Now()
{
    return {QDate(2026, 11, 20), QTime(15, 5, 9), Qt::OffsetFromUTC, -5 * 3600};
}

QuantityTags Between(const QString &open, const QString &units = {}, const QString &factor = {})
{
    return {.Open = open, .Close = ";", .Units = units, .Factor = factor};
}

/// A service whose values read "temp=21;" and so on, without a main node.
class ReadingWeather : public testing::Test
{
protected:
    ReadingWeather()
    {
        profile.location[0] = "KXYZ";
        profile[Quantity::Temperature] = Between("temp=", " F");
        profile[Quantity::WindSpeed] = Between("wind=");
        profile[Quantity::WindDir] = Between("dir=");
        profile[Quantity::Humidity] = Between("hum=", "%");
    }

    bool Parse(const QString &reply)
    {
        const ReadWeather read = ReadInto(&profile, reply, Now(), minMax);
        statuses += read.statuses;
        temps += read.temps;
        return read.taken;
    }

    WeatherProfile profile;
    MinMaxTemps minMax;
    QStringList statuses;
    QList<double> temps; ///< Readings for the store.
};

TEST_F(ReadingWeather, FillsAllSixteenValues)
{
    minMax.PrevMinTemp = 12.5;
    minMax.PrevMaxTemp = 71;
    profile.concatinateWindSpeedDir = true;
    profile[Quantity::Conditions] = Between("cond=");
    profile[Quantity::AtmosPress] = Between("press=", " in");
    profile[Quantity::DewPoint] = Between("dew=", " F");
    profile[Quantity::WindChill] = Between("chill=", " F");
    profile[Quantity::HeatIndex] = Between("heat=", " F");
    profile[Quantity::Visibility] = Between("vis=", " mi");
    profile[Quantity::Sunrise] = Between("rise=");
    profile[Quantity::Sunset] = Between("set=");
    profile[Quantity::MinTemp] = Between("min=", "%MIN% F");
    profile[Quantity::MaxTemp] = Between("max=", "%MAX% F");
    profile[Quantity::Precip] = Between("rain=", " in");
    profile[Quantity::Time] = Between("time=", " UTC");
    profile[Quantity::Location] = Between("place=");

    EXPECT_TRUE(Parse("place=Oak Hill;time=14:53;temp=61.25;cond=Light Rain;wind=10;dir=NW;"
                      "hum=75;press=30.1;dew=53.1;chill=59;heat=62;vis=10;rise=7:01 AM;"
                      "set=4:31 PM;min=1;max=2;rain=0.02;"));

    const WeatherValues expected = ValuesOf({
        {Quantity::Temperature, "61.3 F"},
        {Quantity::Conditions, "Light Rain"},
        {Quantity::WindSpeed, "10 at NW"},
        {Quantity::Humidity, "75%"},
        {Quantity::AtmosPress, "30.1 in"},
        {Quantity::DewPoint, "53.1 F"},
        {Quantity::WindChill, "59 F"},
        {Quantity::HeatIndex, "62 F"},
        {Quantity::Visibility, "10 mi"},
        {Quantity::Sunrise, "7:01 AM"},
        {Quantity::Sunset, "4:31 PM"},
        {Quantity::MinTemp, "12.5 F"},
        {Quantity::MaxTemp, "71 F"},
        {Quantity::Precip, "0.02 in"},
        {Quantity::Time, "14:53 UTC"},
        {Quantity::Location, "Oak Hill"},
    });
    for (const Quantity quantity : kValues)
        EXPECT_EQ(profile.values[quantity], expected[quantity])
            << RowOf(quantity).value.toString().toStdString();
    EXPECT_EQ(temps, QList<double>{61.3});
    EXPECT_TRUE(statuses.isEmpty());
}

TEST_F(ReadingWeather, UsesTheClockWithoutAnObservationTime)
{
    profile[Quantity::Time] = Between("time=");

    EXPECT_TRUE(Parse("xtime=;"));
    EXPECT_EQ(profile.values[Quantity::Time], "11/20/2026 3:05:09 PM");

    profile[Quantity::Time] = {};
    EXPECT_TRUE(Parse("temp=1;"));
    EXPECT_EQ(profile.values[Quantity::Time], "11/20/2026 3:05:09 PM");
}

TEST_F(ReadingWeather, UsesTheEnteredLocationWithoutAPlaceName)
{
    profile[Quantity::Location] = Between("place=");

    EXPECT_TRUE(Parse("place= ;"));

    EXPECT_EQ(profile.values[Quantity::Location], "KXYZ");
}

TEST_F(ReadingWeather, KeepsWhatTheServiceDoesNotDeliver)
{
    profile[Quantity::Time].Units = "?";
    profile[Quantity::Location].Units = "?";

    EXPECT_TRUE(Parse("temp=1;"));

    EXPECT_EQ(profile.values[Quantity::Time], "Not Available From Service");
    EXPECT_EQ(profile.values[Quantity::Location], "Not Available From Service");
}

TEST_F(ReadingWeather, FormatsTheTemperatureWithOneDecimal)
{
    EXPECT_TRUE(Parse("temp=61;"));
    EXPECT_EQ(profile.values[Quantity::Temperature], "61.0 F");

    profile[Quantity::Temperature].Factor = "*1.8,+32";
    EXPECT_TRUE(Parse("temp=-3;"));
    EXPECT_EQ(profile.values[Quantity::Temperature], "26.6 F");
}

TEST_F(ReadingWeather, StoresTheTemperatureOnlyWhereTheProfileAsksForIt)
{
    EXPECT_TRUE(Parse("temp=61;"));
    EXPECT_TRUE(temps.isEmpty());

    profile[Quantity::MaxTemp].Units = "%MAX% F";
    EXPECT_TRUE(Parse("temp=61;"));
    EXPECT_EQ(temps, QList<double>{61});

    profile[Quantity::MaxTemp].Units = "";
    profile[Quantity::MinTemp].Units = "F (%MIN%)";
    EXPECT_TRUE(Parse("temp=-4.25;"));
    EXPECT_EQ(temps, (QList<double>{61, -4.3}));
}

TEST_F(ReadingWeather, StoresNoMissingTemperature)
{
    profile[Quantity::MaxTemp].Units = "%MAX% F";
    profile[Quantity::Temperature] = {};

    EXPECT_TRUE(Parse("temp=61;"));

    EXPECT_EQ(profile.values[Quantity::Temperature], "N/A");
    EXPECT_TRUE(temps.isEmpty());
}

TEST_F(ReadingWeather, ReadsConditionsWithoutTheirUnitsAndFactor)
{
    profile[Quantity::Conditions] = Between("cond=", "?", "N0");

    EXPECT_TRUE(Parse("cond=7 Oktas;"));

    EXPECT_EQ(profile.values[Quantity::Conditions], "7 Oktas");
}

TEST_F(ReadingWeather, JoinsWindSpeedAndDirection)
{
    profile.concatinateWindSpeedDir = true;

    EXPECT_TRUE(Parse("wind=10;dir=NW;"));
    EXPECT_EQ(profile.values[Quantity::WindSpeed], "10 at NW");

    profile.windSpeedDirFormat = "%DIR% %SPEED% mph";
    EXPECT_TRUE(Parse("wind=10;dir=NW;"));
    EXPECT_EQ(profile.values[Quantity::WindSpeed], "NW 10 mph");

    profile.windSpeedDirFormat = "%SPEED%/%SPEED% %DIR% %dir%";
    EXPECT_TRUE(Parse("wind=10;dir=NW;"));
    EXPECT_EQ(profile.values[Quantity::WindSpeed], "10/10 NW %dir%");
}

TEST_F(ReadingWeather, FillsTheDirectionIntoWhatTheSpeedBrought)
{
    profile.concatinateWindSpeedDir = true;
    profile.windSpeedDirFormat = "%SPEED%";

    EXPECT_TRUE(Parse("wind=10 %DIR%;dir=NW;"));

    EXPECT_EQ(profile.values[Quantity::WindSpeed], "10 NW");
}

TEST_F(ReadingWeather, UsesTheSpeedsFactorAndNotTheDirections)
{
    profile.concatinateWindSpeedDir = true;
    profile[Quantity::WindSpeed] = Between("wind=", " km/h", "*1.6");
    profile[Quantity::WindDir] = Between("dir=", " degrees", "*2");

    EXPECT_TRUE(Parse("wind=10;dir=270;"));

    EXPECT_EQ(profile.values[Quantity::WindSpeed], "16 km/h at 270 degrees");
}

TEST_F(ReadingWeather, HasNoWindWhereOneHalfIsMissing)
{
    profile.concatinateWindSpeedDir = true;

    EXPECT_TRUE(Parse("wind=10;xdir=;"));
    EXPECT_EQ(profile.values[Quantity::WindSpeed], "N/A");

    EXPECT_TRUE(Parse("xwind=;dir=NW;"));
    EXPECT_EQ(profile.values[Quantity::WindSpeed], "N/A");
}

TEST_F(ReadingWeather, TakesTheSpeedAloneWithoutJoining)
{
    EXPECT_TRUE(Parse("wind=from the N at 8 MPH;dir=NW;"));

    EXPECT_EQ(profile.values[Quantity::WindSpeed], "from the N at 8 MPH");
}

TEST_F(ReadingWeather, TakesTheExtremesFromTheStoreWhateverTheReplyHolds)
{
    profile[Quantity::MinTemp] = Between("min=", "%MIN% F");
    profile[Quantity::MaxTemp] = Between("max=", " F");
    minMax.PrevMinTemp = -3.5;
    minMax.PrevMaxTemp = 40;

    EXPECT_TRUE(Parse("min=1;max=2;"));

    EXPECT_EQ(profile.values[Quantity::MinTemp], "-3.5 F");
    EXPECT_EQ(profile.values[Quantity::MaxTemp], "40 F");
}

TEST_F(ReadingWeather, ShowsTheStoresNeutralValuesAsNumbers)
{
    profile[Quantity::MinTemp].Units = "%MIN% F";
    profile[Quantity::MaxTemp].Units = "%MAX% F";

    EXPECT_TRUE(Parse("temp=1;"));

    EXPECT_EQ(profile.values[Quantity::MinTemp], "1000 F");
    EXPECT_EQ(profile.values[Quantity::MaxTemp], "-1000 F");
}

TEST_F(ReadingWeather, HasNoExtremesBeyondTheOtherBound)
{
    minMax.PrevMinTemp = -1000;
    minMax.PrevMaxTemp = 1000;
    EXPECT_TRUE(Parse("temp=1;"));
    EXPECT_EQ(profile.values[Quantity::MinTemp], "N/A");
    EXPECT_EQ(profile.values[Quantity::MaxTemp], "N/A");

    minMax.PrevMinTemp = -999.9;
    minMax.PrevMaxTemp = 999.9;
    EXPECT_TRUE(Parse("temp=1;"));
    EXPECT_EQ(profile.values[Quantity::MinTemp], "-999.9");
    EXPECT_EQ(profile.values[Quantity::MaxTemp], "999.9");
}

TEST_F(ReadingWeather, ComputesTheWindChill)
{
    profile[Quantity::WindChill].Units = "%WCF%";
    EXPECT_TRUE(Parse("temp=20.0;wind=15 at N;"));
    EXPECT_EQ(profile.values[Quantity::WindChill], "6.2");

    profile[Quantity::WindChill].Units = "feels like %WCC% C";
    EXPECT_TRUE(Parse("temp=5;wind=from N at 20 km/h;"));
    EXPECT_EQ(profile.values[Quantity::WindChill], "feels like 1.1 C");
}

TEST_F(ReadingWeather, PrefersTheFahrenheitToken)
{
    profile[Quantity::WindChill].Units = "%WCC%/%WCF%";

    EXPECT_TRUE(Parse("temp=20.0;wind=15;"));

    EXPECT_EQ(profile.values[Quantity::WindChill], "%WCC%/6.2");
}

TEST_F(ReadingWeather, HasNoWindChillWithoutItsInputs)
{
    profile[Quantity::WindChill].Units = "%WCF% F";
    for (const char *reply : {"temp=20;xwind=;", "temp=20;wind=Calm;", "temp=41;wind=15;"}) {
        EXPECT_TRUE(Parse(reply));
        EXPECT_EQ(profile.values[Quantity::WindChill], "N/A") << reply;
    }

    profile[Quantity::Temperature] = {};
    EXPECT_TRUE(Parse("wind=15;"));
    EXPECT_EQ(profile.values[Quantity::WindChill], "N/A");
}

TEST_F(ReadingWeather, TakesTheSpeedFromTheFirstDigitOrPoint)
{
    profile[Quantity::WindChill].Units = "%WCF%";

    // ".5" miles per hour: 35.74 + 12.43 - 35.75 x 0.895 + 8.55 x 0.895 is above 20.
    EXPECT_TRUE(Parse("temp=20;wind=N .5 (15);"));

    EXPECT_EQ(profile.values[Quantity::WindChill], "N/A");
}

TEST_F(ReadingWeather, ComputesTheHeatIndex)
{
    profile[Quantity::HeatIndex].Units = "%HIF% F";
    EXPECT_TRUE(Parse("temp=90;hum=50;"));
    EXPECT_EQ(profile.values[Quantity::HeatIndex], "94.6 F");

    profile[Quantity::HeatIndex].Units = "%HIC% C";
    EXPECT_TRUE(Parse("temp=30;hum=60;"));
    EXPECT_EQ(profile.values[Quantity::HeatIndex], "32.8 C");
}

TEST_F(ReadingWeather, HasNoHeatIndexBelowItsRangeOrWithoutHumidity)
{
    profile[Quantity::HeatIndex].Units = "%HIF% F";

    EXPECT_TRUE(Parse("temp=70;hum=50;"));
    EXPECT_EQ(profile.values[Quantity::HeatIndex], "N/A");

    EXPECT_TRUE(Parse("temp=90;xhum=;"));
    EXPECT_EQ(profile.values[Quantity::Humidity], "N/A");
    EXPECT_EQ(profile.values[Quantity::HeatIndex], "N/A");
}

TEST_F(ReadingWeather, ComputesTheDewPoint)
{
    profile[Quantity::DewPoint].Units = "%DPF% F";
    EXPECT_TRUE(Parse("temp=70;hum=50;"));
    EXPECT_EQ(profile.values[Quantity::DewPoint], "52.0 F");

    EXPECT_TRUE(Parse("temp=70;hum=45;"));
    EXPECT_EQ(profile.values[Quantity::DewPoint], "N/A");

    profile[Quantity::DewPoint].Units = "%DPC% C";
    EXPECT_TRUE(Parse("temp=-10;hum=80;"));
    EXPECT_EQ(profile.values[Quantity::DewPoint], "-14.0 C");
}

TEST_F(ReadingWeather, ReadsTheQuantitiesWithoutTokens)
{
    profile[Quantity::HeatIndex] = Between("heat=", " F");
    profile[Quantity::DewPoint] = Between("dew=", "?");

    EXPECT_TRUE(Parse("heat=95;dew=50;"));

    EXPECT_EQ(profile.values[Quantity::HeatIndex], "95 F");
    EXPECT_EQ(profile.values[Quantity::DewPoint], "Not Available From Service");
}

TEST_F(ReadingWeather, SearchesWithoutLineEndsAndTabs)
{
    profile[Quantity::Conditions] = Between("cond=");

    EXPECT_TRUE(Parse("te\r\nmp=6\t1;co\nnd=Light\tRain;"));

    EXPECT_EQ(profile.values[Quantity::Temperature], "61.0 F");
    EXPECT_EQ(profile.values[Quantity::Conditions], "LightRain");
}

TEST_F(ReadingWeather, SearchesTheMainNodeOnly)
{
    profile.mainNodeOpen = "<obs>";
    profile.mainNodeClose = "</obs>";

    EXPECT_TRUE(Parse("temp=1;<obs>temp=2;x</obs>temp=3;"));

    EXPECT_EQ(profile.values[Quantity::Temperature], "2.0 F");
}

TEST_F(ReadingWeather, RefusesAReplyWithoutItsMainNode)
{
    profile.mainNodeOpen = "<obs>";
    profile.mainNodeClose = "</obs>";
    profile.values[Quantity::Temperature] = "5.0 F";
    profile.values[Quantity::Time] = "before";
    const WeatherValues before = profile.values;
    const RecordedTrace trace;

    EXPECT_FALSE(Parse("temp=1;"));
    EXPECT_FALSE(Parse("<obs>temp=1;"));

    EXPECT_EQ(profile.values, before);
    EXPECT_EQ(statuses, (QStringList{"Could not find opening node tag in received data",
                                     "Could not find closing node tag in received data"}));
    EXPECT_EQ(
        trace.lines,
        (QStringList{"11/20/2026 3:05:09 PM - Could not find opening node tag in received data",
                     "11/20/2026 3:05:09 PM - Could not find closing node tag in received data"}));
}

TEST_F(ReadingWeather, GoesOnWithAnEmptyReply)
{
    profile[Quantity::MaxTemp].Units = "%MAX%";

    EXPECT_TRUE(Parse(" \r\n\t "));

    EXPECT_EQ(statuses, QStringList{"Weather host not reachable, or no weather data returned"});
    EXPECT_EQ(profile.values[Quantity::Humidity], "N/A");
    // What a profile that requires nothing makes of a missing temperature.
    EXPECT_EQ(profile.values[Quantity::Temperature], "0.0 F");
    EXPECT_EQ(temps, QList<double>{0});
}

TEST_F(ReadingWeather, RefusesAnEmptyReplyWhereThereIsAMainNode)
{
    profile.mainNodeOpen = "<obs>";
    profile.mainNodeClose = "</obs>";

    EXPECT_FALSE(Parse(""));

    EXPECT_EQ(statuses, (QStringList{"Weather host not reachable, or no weather data returned",
                                     "Could not find opening node tag in received data"}));
}

TEST_F(ReadingWeather, RefusesAReplyWithoutARequiredValue)
{
    profile.required = {"temperature"};
    profile.values[Quantity::Temperature] = "5.0 F";
    const WeatherValues before = profile.values;
    const RecordedTrace trace;

    EXPECT_FALSE(Parse("hum=50;temp=null;"));

    EXPECT_EQ(profile.values, before);
    EXPECT_TRUE(temps.isEmpty());
    EXPECT_EQ(statuses, QStringList{"Required value not found in received data: temperature"});
    EXPECT_EQ(trace.lines, QStringList{"Required value not found in received data: temperature"});
}

TEST_F(ReadingWeather, TracesTheTextItParses)
{
    profile = {};
    const RecordedTrace trace;

    EXPECT_TRUE(Parse("a\r\nb"));

    EXPECT_EQ(trace.lines, QStringList{"Parsing weather string:ab"});
}

TEST_F(ReadingWeather, RefusesEveryReplyWithoutAProfile)
{
    const WeatherReading reading = BeginReading(nullptr, "temp=1;", Now());

    EXPECT_FALSE(reading.taken);
    EXPECT_TRUE(reading.statuses.isEmpty());
}

} // namespace
