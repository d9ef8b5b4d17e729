#include "service/service.h"
#include "support/qt_printers.h"
#include "unit/station/station_fixture.h"

#include <QDir>
#include <QFile>

using namespace std::chrono_literals;

namespace {

/// A service whose seconds pass when the test says so.
class ServiceRun : public StationFixture
{
protected:
    void StartService()
    {
        MakeStation(Owner::Service);
        service.emplace(*station, [this](const QString &line) {
            said.append(QString(line).replace(station->Files().folder, "~"));
        });
        ASSERT_FALSE(BringUp(*station));
        service->Start();
    }

    void PassServiceSeconds(int seconds)
    {
        for (int i = 0; i < seconds; ++i) {
            clock.AdvanceSeconds(1);
            PollTimes(4);
            service->TickSecond();
        }
    }

    void WriteSettings(const QByteArray &bytes) const
    {
        folder.Write("TavrinWeatherSettings.ini", bytes);
    }

    void TearDown() override { service.reset(); } // before its station

    QStringList said;
    std::optional<Service> service;
};

const QByteArray kComplete = "[Profile0]\r\nlocation1=Salem\r\n"
                             "[Settings]\r\nForecastZone=MDZ011\r\nForecastState=MD\r\n";
const QByteArray kWithoutLocation = "[Settings]\r\nForecastZone=MDZ011\r\nForecastState=MD\r\n";

TEST_F(ServiceRun, StoresBothProductsAndSaysNothing)
{
    StartService();
    PassServiceSeconds(1);
    http.Finish(station->WeatherThreadHandle(), kOnePlaceReply);
    PassServiceSeconds(6);
    http.Finish(station->ForecastThreadHandle(), "TODAY. Sunny.");
    PassServiceSeconds(1);

    EXPECT_EQ(Value("Weather.ini", u"Weather", u"TEMP"), "71.0 F");
    EXPECT_TRUE(QFile::exists(folder.Path("Forecast.ini")));
    EXPECT_EQ(said, QStringList());
}

TEST_F(ServiceRun, SaysAFailureOfEachKindOnce)
{
    StartService();
    PassServiceSeconds(1);
    http.Finish(station->WeatherThreadHandle(), "<html>closed</html>");
    PassServiceSeconds(6);
    http.Fail(station->ForecastThreadHandle(), "HTTP 404");
    PassServiceSeconds(32); // and again after half a minute
    http.Fail(station->ForecastThreadHandle(), "HTTP 404");
    PassServiceSeconds(1);

    EXPECT_EQ(said, QStringList({"the weather failed: Could not find opening node tag in received "
                                 "data",
                                 "the forecast failed: HTTP 404"}));
}

TEST_F(ServiceRun, SaysThatAnOldForecastIsNoNewOne)
{
    StartService();
    PassServiceSeconds(6);
    http.Finish(station->ForecastThreadHandle(), "TODAY. Sunny.");
    PassServiceSeconds(1);
    station->RequestForecast();
    http.Fail(station->ForecastThreadHandle(), "HTTP 503");
    PassServiceSeconds(1);

    EXPECT_EQ(said, QStringList("the forecast failed: HTTP 503"));

    station->RequestForecast();
    http.Finish(station->ForecastThreadHandle(), "TONIGHT. Clear.");
    PassServiceSeconds(1);
    EXPECT_EQ(said.last(), "the forecast works again");
}

TEST_F(ServiceRun, SaysThatAFileCannotBeStored)
{
    ASSERT_TRUE(QDir().mkpath(folder.Path("Weather.ini/inside")));
    StartService();
    PassServiceSeconds(1);
    http.Finish(station->WeatherThreadHandle(), kOnePlaceReply);
    PassServiceSeconds(1);

    ASSERT_EQ(said.size(), 1);
    EXPECT_TRUE(said[0].startsWith("the weather failed: ~/Weather.ini: ")) << said[0].toStdString();
}

TEST_F(ServiceRun, SaysThatNoTransferCanBeOpened)
{
    http.refuseOpen = true;
    StartService();
    PassServiceSeconds(1);

    EXPECT_EQ(said, QStringList("the weather failed: Unable to open HTTP handle on port 80 for "
                                "weather request"));
}

TEST_F(ServiceRun, LooksForWhatIsMissingEachMinute)
{
    WriteSettings(kWithoutLocation);
    StartService();
    EXPECT_EQ(said, QStringList("the weather is not set up: location1 of Profile0 (One place) in "
                                "~/TavrinWeatherSettings.ini"));
    PassServiceSeconds(130);
    EXPECT_EQ(said.size(), 1);
    EXPECT_EQ(Requests("http://weather.test"), 0);

    WriteSettings(kComplete);
    PassServiceSeconds(60);
    EXPECT_EQ(Requests("http://weather.test/now?q=Salem"), 1);
    http.Finish(station->WeatherThreadHandle(), kOnePlaceReply);
    PassServiceSeconds(1);

    EXPECT_EQ(said.size(), 2);
    EXPECT_EQ(said.last(), "the weather works again");
}

TEST_F(ServiceRun, ReadsNothingAnewWhenNothingIsMissing)
{
    StartService();
    WriteSettings("[Profile0]\r\nlocation1=Eugene\r\n" + kWithoutLocation);

    PassServiceSeconds(130);

    EXPECT_EQ(Requests("http://weather.test/now?q=Eugene"), 0);
    EXPECT_EQ(Requests("http://weather.test/now?q=Salem"), 1);
}

TEST_F(ServiceRun, ReadsTheFilesAnewWhenAsked)
{
    WriteSettings(kWithoutLocation);
    StartService();
    PassServiceSeconds(2);
    service->Reload();
    EXPECT_EQ(said.size(), 2); // somebody wants to know
    EXPECT_EQ(said[1], said[0]);

    WriteSettings(kComplete);
    service->Reload();
    PassServiceSeconds(1);

    EXPECT_EQ(said.size(), 2);
    EXPECT_EQ(Requests("http://weather.test/now?q=Salem"), 1);
}

TEST_F(ServiceRun, LooksAgainForANumberOfAProfile)
{
    StartService();
    WriteSettings("[Profile0]\r\nlocation1=Salem\r\n[Settings]\r\nCurrentProfile=x\r\n"
                  "ForecastZone=MDZ011\r\nForecastState=MD\r\n");
    service->Reload();
    PassServiceSeconds(130);
    ASSERT_EQ(said.size(), 1);
    EXPECT_TRUE(said[0].contains("CurrentProfile is \"x\"")) << said[0].toStdString();

    WriteSettings("[Profile0]\r\nlocation1=Eugene\r\n" + kWithoutLocation);
    PassServiceSeconds(70);

    EXPECT_EQ(said.size(), 1);
    EXPECT_EQ(Requests("http://weather.test/now?q=Eugene"), 1);
}

TEST_F(ServiceRun, LeavesItsSettingsAlone)
{
    WriteSettings("; mine\r\n" + kWithoutLocation);
    StartService();
    PassServiceSeconds(61);
    station->End(0ms);

    EXPECT_EQ(folder.Bytes("TavrinWeatherSettings.ini"), "; mine\r\n" + kWithoutLocation);
    EXPECT_FALSE(QFile::exists(folder.Path("TavrinWeatherRecovery.ini")));
    EXPECT_FALSE(station->IsRunning());
}

} // namespace
