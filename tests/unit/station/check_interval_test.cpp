#include "support/qt_printers.h"
#include "unit/station/station_fixture.h"

namespace {

class StationCheckInterval : public StationFixture
{
protected:
    void StartWith(const QByteArray &lines)
    {
        folder.Write("TavrinWeatherSettings.ini",
                     "[Profile0]\r\nlocation1=Salem\r\n[Settings]\r\nFirstRun=False\r\n" + lines);
        ASSERT_FALSE(Start());
    }
};

TEST_F(StationCheckInterval, IsTheOneOfTheSettings)
{
    StartWith("CheckInterval=60\r\n");
    PassSeconds(2);

    EXPECT_EQ(station->NextWeatherCheck(), "Next Update in 59:59");
    EXPECT_EQ(station->CheckInterval(), 3600);
}

TEST_F(StationCheckInterval, IsFifteenMinutesOtherwiseAndNeverAdded)
{
    StartWith("CheckInterval=45\r\n");
    EXPECT_EQ(station->CheckInterval(), 900);
    StartWith({});
    EXPECT_EQ(station->CheckInterval(), 900);

    station->SetCheckInterval(3600);
    EXPECT_TRUE(station->SaveSettings());

    EXPECT_EQ(Value("TavrinWeatherSettings.ini", u"Settings", u"CheckInterval"), "missing");
}

TEST_F(StationCheckInterval, IsKeptUpToDateWhereItIsThere)
{
    StartWith("CheckInterval=60\r\n");

    station->SetCheckInterval(10800);
    PollTimes(4);
    EXPECT_EQ(Value("TavrinWeatherRecovery.ini", u"Settings", u"CheckInterval"), "180");
    EXPECT_TRUE(station->SaveSettings());

    EXPECT_EQ(Value("TavrinWeatherSettings.ini", u"Settings", u"CheckInterval"), "180");
}

TEST_F(StationCheckInterval, IsReadAnewFromTheNextRequestOn)
{
    StartWith("CheckInterval=60\r\n");
    PassSeconds(2);
    folder.Write("TavrinWeatherSettings.ini",
                 "[Profile0]\r\nlocation1=Salem\r\n[Settings]\r\nCheckInterval=30\r\n");

    ASSERT_FALSE(station->Reload());

    EXPECT_EQ(station->CheckInterval(), 1800);
    EXPECT_EQ(station->Weather().SecondsToWeatherCheck(), 3598);
}

} // namespace
