#include "support/fake_weather_data_host.h"
#include "support/qt_printers.h"
#include "support/recorded_trace.h"
#include "weather/weather_data.h"

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
class WeatherData : public testing::Test
{
protected:
    WeatherData()
    {
        profile.location[0] = "KXYZ";
        profile[Quantity::Temperature] = Between("temp=", " F");
        profile[Quantity::WindSpeed] = Between("wind=");
        profile[Quantity::WindDir] = Between("dir=");
        profile[Quantity::Humidity] = Between("hum=", "%");
    }

    bool Parse(const QString &reply) { return ParseWeatherData(&profile, reply, Now(), host); }

    WeatherProfile profile;
    FakeWeatherDataHost host;
};

TEST_F(WeatherData, FillsAllSixteenValues)
{
    host.minMax.PrevMinTemp = 12.5;
    host.minMax.PrevMaxTemp = 71;
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

    const WeatherValues expected{
        .temperatureValue = "61.3 F",
        .conditionsValue = "Light Rain",
        .windSpeedDirValue = "10 at NW",
        .humidityValue = "75%",
        .atmosPressValue = "30.1 in",
        .dewPointValue = "53.1 F",
        .windchillValue = "59 F",
        .heatindexValue = "62 F",
        .visibilityValue = "10 mi",
        .sunriseValue = "7:01 AM",
        .sunsetValue = "4:31 PM",
        .minTempValue = "12.5 F",
        .maxTempValue = "71 F",
        .precipValue = "0.02 in",
        .timeValue = "14:53 UTC",
        .locationValue = "Oak Hill",
    };
    for (const WeatherValueField &field : kWeatherValueFields)
        EXPECT_EQ(profile.values.*field.value, expected.*field.value)
            << field.name.toString().toStdString();
    EXPECT_EQ(host.temps, QList<double>{61.3});
    EXPECT_TRUE(host.statuses.isEmpty());
}

TEST_F(WeatherData, UsesTheClockWithoutAnObservationTime)
{
    profile[Quantity::Time] = Between("time=");

    EXPECT_TRUE(Parse("xtime=;"));
    EXPECT_EQ(profile.values.timeValue, "11/20/2026 3:05:09 PM");

    profile[Quantity::Time] = {};
    EXPECT_TRUE(Parse("temp=1;"));
    EXPECT_EQ(profile.values.timeValue, "11/20/2026 3:05:09 PM");
}

TEST_F(WeatherData, UsesTheEnteredLocationWithoutAPlaceName)
{
    profile[Quantity::Location] = Between("place=");

    EXPECT_TRUE(Parse("place= ;"));

    EXPECT_EQ(profile.values.locationValue, "KXYZ");
}

TEST_F(WeatherData, KeepsWhatTheServiceDoesNotDeliver)
{
    profile[Quantity::Time].Units = "?";
    profile[Quantity::Location].Units = "?";

    EXPECT_TRUE(Parse("temp=1;"));

    EXPECT_EQ(profile.values.timeValue, "Not Available From Service");
    EXPECT_EQ(profile.values.locationValue, "Not Available From Service");
}

TEST_F(WeatherData, FormatsTheTemperatureWithOneDecimal)
{
    EXPECT_TRUE(Parse("temp=61;"));
    EXPECT_EQ(profile.values.temperatureValue, "61.0 F");

    profile[Quantity::Temperature].Factor = "*1.8,+32";
    EXPECT_TRUE(Parse("temp=-3;"));
    EXPECT_EQ(profile.values.temperatureValue, "26.6 F");
}

TEST_F(WeatherData, StoresTheTemperatureOnlyWhereTheProfileAsksForIt)
{
    EXPECT_TRUE(Parse("temp=61;"));
    EXPECT_TRUE(host.temps.isEmpty());

    profile[Quantity::MaxTemp].Units = "%MAX% F";
    EXPECT_TRUE(Parse("temp=61;"));
    EXPECT_EQ(host.temps, QList<double>{61});

    profile[Quantity::MaxTemp].Units = "";
    profile[Quantity::MinTemp].Units = "F (%MIN%)";
    EXPECT_TRUE(Parse("temp=-4.25;"));
    EXPECT_EQ(host.temps, (QList<double>{61, -4.3}));
}

TEST_F(WeatherData, StoresNoMissingTemperature)
{
    profile[Quantity::MaxTemp].Units = "%MAX% F";
    profile[Quantity::Temperature] = {};

    EXPECT_TRUE(Parse("temp=61;"));

    EXPECT_EQ(profile.values.temperatureValue, "N/A");
    EXPECT_TRUE(host.temps.isEmpty());
}

TEST_F(WeatherData, ReadsConditionsWithoutTheirUnitsAndFactor)
{
    profile[Quantity::Conditions] = Between("cond=", "?", "N0");

    EXPECT_TRUE(Parse("cond=7 Oktas;"));

    EXPECT_EQ(profile.values.conditionsValue, "7 Oktas");
}

TEST_F(WeatherData, JoinsWindSpeedAndDirection)
{
    profile.concatinateWindSpeedDir = true;

    EXPECT_TRUE(Parse("wind=10;dir=NW;"));
    EXPECT_EQ(profile.values.windSpeedDirValue, "10 at NW");

    profile.windSpeedDirFormat = "%DIR% %SPEED% mph";
    EXPECT_TRUE(Parse("wind=10;dir=NW;"));
    EXPECT_EQ(profile.values.windSpeedDirValue, "NW 10 mph");

    profile.windSpeedDirFormat = "%SPEED%/%SPEED% %DIR% %dir%";
    EXPECT_TRUE(Parse("wind=10;dir=NW;"));
    EXPECT_EQ(profile.values.windSpeedDirValue, "10/10 NW %dir%");
}

TEST_F(WeatherData, FillsTheDirectionIntoWhatTheSpeedBrought)
{
    profile.concatinateWindSpeedDir = true;
    profile.windSpeedDirFormat = "%SPEED%";

    EXPECT_TRUE(Parse("wind=10 %DIR%;dir=NW;"));

    EXPECT_EQ(profile.values.windSpeedDirValue, "10 NW");
}

TEST_F(WeatherData, UsesTheSpeedsFactorAndNotTheDirections)
{
    profile.concatinateWindSpeedDir = true;
    profile[Quantity::WindSpeed] = Between("wind=", " km/h", "*1.6");
    profile[Quantity::WindDir] = Between("dir=", " degrees", "*2");

    EXPECT_TRUE(Parse("wind=10;dir=270;"));

    EXPECT_EQ(profile.values.windSpeedDirValue, "16 km/h at 270 degrees");
}

TEST_F(WeatherData, HasNoWindWhereOneHalfIsMissing)
{
    profile.concatinateWindSpeedDir = true;

    EXPECT_TRUE(Parse("wind=10;xdir=;"));
    EXPECT_EQ(profile.values.windSpeedDirValue, "N/A");

    EXPECT_TRUE(Parse("xwind=;dir=NW;"));
    EXPECT_EQ(profile.values.windSpeedDirValue, "N/A");
}

TEST_F(WeatherData, TakesTheSpeedAloneWithoutJoining)
{
    EXPECT_TRUE(Parse("wind=from the N at 8 MPH;dir=NW;"));

    EXPECT_EQ(profile.values.windSpeedDirValue, "from the N at 8 MPH");
}

TEST_F(WeatherData, TakesTheExtremesFromTheStoreWhateverTheReplyHolds)
{
    profile[Quantity::MinTemp] = Between("min=", "%MIN% F");
    profile[Quantity::MaxTemp] = Between("max=", " F");
    host.minMax.PrevMinTemp = -3.5;
    host.minMax.PrevMaxTemp = 40;

    EXPECT_TRUE(Parse("min=1;max=2;"));

    EXPECT_EQ(profile.values.minTempValue, "-3.5 F");
    EXPECT_EQ(profile.values.maxTempValue, "40 F");
}

TEST_F(WeatherData, ShowsTheStoresNeutralValuesAsNumbers)
{
    profile[Quantity::MinTemp].Units = "%MIN% F";
    profile[Quantity::MaxTemp].Units = "%MAX% F";

    EXPECT_TRUE(Parse("temp=1;"));

    EXPECT_EQ(profile.values.minTempValue, "1000 F");
    EXPECT_EQ(profile.values.maxTempValue, "-1000 F");
}

TEST_F(WeatherData, HasNoExtremesBeyondTheOtherBound)
{
    host.minMax.PrevMinTemp = -1000;
    host.minMax.PrevMaxTemp = 1000;
    EXPECT_TRUE(Parse("temp=1;"));
    EXPECT_EQ(profile.values.minTempValue, "N/A");
    EXPECT_EQ(profile.values.maxTempValue, "N/A");

    host.minMax.PrevMinTemp = -999.9;
    host.minMax.PrevMaxTemp = 999.9;
    EXPECT_TRUE(Parse("temp=1;"));
    EXPECT_EQ(profile.values.minTempValue, "-999.9");
    EXPECT_EQ(profile.values.maxTempValue, "999.9");
}

TEST_F(WeatherData, ComputesTheWindChill)
{
    profile[Quantity::WindChill].Units = "%WCF%";
    EXPECT_TRUE(Parse("temp=20.0;wind=15 at N;"));
    EXPECT_EQ(profile.values.windchillValue, "6.2");

    profile[Quantity::WindChill].Units = "feels like %WCC% C";
    EXPECT_TRUE(Parse("temp=5;wind=from N at 20 km/h;"));
    EXPECT_EQ(profile.values.windchillValue, "feels like 1.1 C");
}

TEST_F(WeatherData, PrefersTheFahrenheitToken)
{
    profile[Quantity::WindChill].Units = "%WCC%/%WCF%";

    EXPECT_TRUE(Parse("temp=20.0;wind=15;"));

    EXPECT_EQ(profile.values.windchillValue, "%WCC%/6.2");
}

TEST_F(WeatherData, HasNoWindChillWithoutItsInputs)
{
    profile[Quantity::WindChill].Units = "%WCF% F";
    for (const char *reply : {"temp=20;xwind=;", "temp=20;wind=Calm;", "temp=41;wind=15;"}) {
        EXPECT_TRUE(Parse(reply));
        EXPECT_EQ(profile.values.windchillValue, "N/A") << reply;
    }

    profile[Quantity::Temperature] = {};
    EXPECT_TRUE(Parse("wind=15;"));
    EXPECT_EQ(profile.values.windchillValue, "N/A");
}

TEST_F(WeatherData, TakesTheSpeedFromTheFirstDigitOrPoint)
{
    profile[Quantity::WindChill].Units = "%WCF%";

    // ".5" miles per hour: 35.74 + 12.43 - 35.75 x 0.895 + 8.55 x 0.895 is above 20.
    EXPECT_TRUE(Parse("temp=20;wind=N .5 (15);"));

    EXPECT_EQ(profile.values.windchillValue, "N/A");
}

TEST_F(WeatherData, ComputesTheHeatIndex)
{
    profile[Quantity::HeatIndex].Units = "%HIF% F";
    EXPECT_TRUE(Parse("temp=90;hum=50;"));
    EXPECT_EQ(profile.values.heatindexValue, "94.6 F");

    profile[Quantity::HeatIndex].Units = "%HIC% C";
    EXPECT_TRUE(Parse("temp=30;hum=60;"));
    EXPECT_EQ(profile.values.heatindexValue, "32.8 C");
}

TEST_F(WeatherData, HasNoHeatIndexBelowItsRangeOrWithoutHumidity)
{
    profile[Quantity::HeatIndex].Units = "%HIF% F";

    EXPECT_TRUE(Parse("temp=70;hum=50;"));
    EXPECT_EQ(profile.values.heatindexValue, "N/A");

    EXPECT_TRUE(Parse("temp=90;xhum=;"));
    EXPECT_EQ(profile.values.humidityValue, "N/A");
    EXPECT_EQ(profile.values.heatindexValue, "N/A");
}

TEST_F(WeatherData, ComputesTheDewPoint)
{
    profile[Quantity::DewPoint].Units = "%DPF% F";
    EXPECT_TRUE(Parse("temp=70;hum=50;"));
    EXPECT_EQ(profile.values.dewPointValue, "52.0 F");

    EXPECT_TRUE(Parse("temp=70;hum=45;"));
    EXPECT_EQ(profile.values.dewPointValue, "N/A");

    profile[Quantity::DewPoint].Units = "%DPC% C";
    EXPECT_TRUE(Parse("temp=-10;hum=80;"));
    EXPECT_EQ(profile.values.dewPointValue, "-14.0 C");
}

TEST_F(WeatherData, ReadsTheQuantitiesWithoutTokens)
{
    profile[Quantity::HeatIndex] = Between("heat=", " F");
    profile[Quantity::DewPoint] = Between("dew=", "?");

    EXPECT_TRUE(Parse("heat=95;dew=50;"));

    EXPECT_EQ(profile.values.heatindexValue, "95 F");
    EXPECT_EQ(profile.values.dewPointValue, "Not Available From Service");
}

TEST_F(WeatherData, SearchesWithoutLineEndsAndTabs)
{
    profile[Quantity::Conditions] = Between("cond=");

    EXPECT_TRUE(Parse("te\r\nmp=6\t1;co\nnd=Light\tRain;"));

    EXPECT_EQ(profile.values.temperatureValue, "61.0 F");
    EXPECT_EQ(profile.values.conditionsValue, "LightRain");
}

TEST_F(WeatherData, SearchesTheMainNodeOnly)
{
    profile.mainNodeOpen = "<obs>";
    profile.mainNodeClose = "</obs>";

    EXPECT_TRUE(Parse("temp=1;<obs>temp=2;x</obs>temp=3;"));

    EXPECT_EQ(profile.values.temperatureValue, "2.0 F");
}

TEST_F(WeatherData, RefusesAReplyWithoutItsMainNode)
{
    profile.mainNodeOpen = "<obs>";
    profile.mainNodeClose = "</obs>";
    profile.values.temperatureValue = "5.0 F";
    profile.values.timeValue = "before";
    const WeatherValues before = profile.values;
    const RecordedTrace trace;

    EXPECT_FALSE(Parse("temp=1;"));
    EXPECT_FALSE(Parse("<obs>temp=1;"));

    EXPECT_EQ(profile.values, before);
    EXPECT_EQ(host.statuses, (QStringList{"Could not find opening node tag in received data",
                                          "Could not find closing node tag in received data"}));
    EXPECT_EQ(
        trace.lines,
        (QStringList{"11/20/2026 3:05:09 PM - Could not find opening node tag in received data",
                     "11/20/2026 3:05:09 PM - Could not find closing node tag in received data"}));
    EXPECT_EQ(host.rawData, (QStringList{"temp=1;", "<obs>temp=1;"}));
}

TEST_F(WeatherData, GoesOnWithAnEmptyReply)
{
    profile[Quantity::MaxTemp].Units = "%MAX%";

    EXPECT_TRUE(Parse(" \r\n\t "));

    EXPECT_EQ(host.statuses,
              QStringList{"Weather host not reachable, or no weather data returned"});
    EXPECT_EQ(profile.values.humidityValue, "N/A");
    // What a profile that requires nothing makes of a missing temperature.
    EXPECT_EQ(profile.values.temperatureValue, "0.0 F");
    EXPECT_EQ(host.temps, QList<double>{0});
}

TEST_F(WeatherData, RefusesAnEmptyReplyWhereThereIsAMainNode)
{
    profile.mainNodeOpen = "<obs>";
    profile.mainNodeClose = "</obs>";

    EXPECT_FALSE(Parse(""));

    EXPECT_EQ(host.statuses, (QStringList{"Weather host not reachable, or no weather data returned",
                                          "Could not find opening node tag in received data"}));
}

TEST_F(WeatherData, RefusesAReplyWithoutARequiredValue)
{
    profile.required = {"temperature"};
    profile.values.temperatureValue = "5.0 F";
    const WeatherValues before = profile.values;
    const RecordedTrace trace;

    EXPECT_FALSE(Parse("hum=50;temp=null;"));

    EXPECT_EQ(profile.values, before);
    EXPECT_TRUE(host.temps.isEmpty());
    EXPECT_EQ(host.statuses, QStringList{"Required value not found in received data: temperature"});
    EXPECT_EQ(trace.lines, QStringList{"Required value not found in received data: temperature"});
    EXPECT_EQ(host.rawData, QStringList{"hum=50;temp=null;"});
}

TEST_F(WeatherData, TracesTheTextItParses)
{
    profile = {};
    const RecordedTrace trace;

    EXPECT_TRUE(Parse("a\r\nb"));

    EXPECT_EQ(trace.lines, QStringList{"Parsing weather string:ab"});
}

TEST_F(WeatherData, OnlyShowsTheReplyWithoutAProfile)
{
    EXPECT_FALSE(ParseWeatherData(nullptr, "temp=1;", Now(), host));

    EXPECT_EQ(host.rawData, QStringList{"temp=1;"});
    EXPECT_TRUE(host.statuses.isEmpty());
}

TEST(RawDataText, HasCrLfLineEndsAndSpacesForTabs)
{
    EXPECT_EQ(RawDataText(u"a\r\nb\nc\rd\te"), "a\r\nb\r\ncd     e");
    EXPECT_EQ(RawDataText(u""), "");
}

} // namespace
