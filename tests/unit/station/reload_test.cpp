#include "support/qt_printers.h"
#include "unit/station/station_fixture.h"

#include <QFile>

using namespace std::chrono_literals;

namespace {

/// A station that has received its weather, and whose files somebody changes.
class StationReload : public StationFixture
{
protected:
    void SetUp() override { StartWithWeather(Owner::Service); }

    void StartWithWeather(Owner owner)
    {
        ASSERT_FALSE(Start(owner));
        PassSeconds(1);
        http.Finish(station->WeatherThreadHandle(), kOnePlaceReply);
        station->Poll();
        ASSERT_EQ(station->ShownWeather()[Quantity::Temperature], "71.0 F");
        PassSeconds(100); // 900 - 1 - 100
        ASSERT_EQ(station->Weather().SecondsToWeatherCheck(), 799);
        http.calls.clear();
    }

    void WriteSettings(const QByteArray &location, const QByteArray &others = {}) const
    {
        folder.Write("TavrinWeatherSettings.ini",
                     "[Profile0]\r\nlocation1=" + location
                         + "\r\n[Settings]\r\nFirstRun=False\r\n"
                           "ForecastZone=MDZ011\r\nForecastState=MD\r\n"
                         + others);
    }

    void WriteProfiles(const QByteArray &more,
                       const QByteArray &host = "http://forecast.test") const
    {
        folder.Write("TavrinWeatherProfiles.ini",
                     kOnePlaceProfile + more + "[ForecastProfile0]\r\nhost=" + host + "\r\n");
    }

    [[nodiscard]] qint16 Seconds() const { return station->Weather().SecondsToWeatherCheck(); }
};

TEST_F(StationReload, KeepsValuesAndCountdownsWhereNothingIsOther)
{
    EXPECT_FALSE(station->Reload());

    EXPECT_EQ(Seconds(), 799);
    EXPECT_EQ(station->ForecastRequestCountdown(), 0);
    EXPECT_EQ(station->ShownWeather()[Quantity::Temperature], "71.0 F");
    EXPECT_EQ(station->MinMax().TodayMaxTemp, 71);
    EXPECT_TRUE(http.calls.isEmpty());
}

TEST_F(StationReload, TakesOverWhatIsSaidAboutTheSameService)
{
    folder.Write("TavrinWeatherProfiles.ini",
                 QByteArray(kOnePlaceProfile).replace("title=One place", "title=Salem's own"));
    WriteSettings("Salem", "HTTPPort=8080\r\n");

    EXPECT_FALSE(station->Reload());

    EXPECT_EQ(station->Profiles().weather[0].title, "Salem's own");
    EXPECT_EQ(station->CurrentSettings().HTTPPort, "8080");
    EXPECT_EQ(station->ShownWeather()[Quantity::Temperature], "71.0 F");
    EXPECT_EQ(Seconds(), 799);
}

// Reading a reply turns "%CRLF%" in the tags in use into a line end; it is still the same service.
TEST_F(StationReload, KnowsAServiceAgainThatHasBeenRead)
{
    WriteProfiles("dewPointOpen=<dew>\r\ndewPointClose=%CRLF%\r\n");
    ASSERT_FALSE(station->Reload());
    PassSeconds(6);
    http.Finish(station->WeatherThreadHandle(),
                QString(kOnePlaceReply).replace("<hum>", "<dew>50\r\n<hum>"));
    station->Poll();
    ASSERT_EQ(station->ShownWeather()[Quantity::Temperature], "71.0 F");
    const qint16 before = Seconds();

    EXPECT_FALSE(station->Reload());

    EXPECT_EQ(Seconds(), before);
    EXPECT_EQ(station->ShownWeather()[Quantity::Temperature], "71.0 F");
}

TEST_F(StationReload, AsksSoonForAnotherLocation)
{
    WriteSettings("Eugene");

    EXPECT_FALSE(station->Reload());

    EXPECT_EQ(Seconds(), 5);
    EXPECT_EQ(station->ShownWeather()[Quantity::Temperature], "");
    PassSeconds(6);
    EXPECT_EQ(Requests("http://weather.test/now?q=Eugene"), 1);
    EXPECT_EQ(station->MinMax().TodayMaxTemp, 71);
}

TEST_F(StationReload, AsksAtOnceForALocationThatWasMissing)
{
    WriteSettings("");
    ASSERT_FALSE(Start(Owner::Service));
    PassSeconds(3);
    ASSERT_EQ(station->NextWeatherCheck(), "Invalid Location");
    WriteSettings("Eugene");

    EXPECT_FALSE(station->Reload());
    PassSeconds(1);

    EXPECT_EQ(Requests("http://weather.test/now?q=Eugene"), 1);
}

TEST_F(StationReload, AsksSoonForAnotherProfile)
{
    WriteProfiles("[Profile1]\r\ntitle=Other\r\nbaseURL=http://other.test/\r\n");
    WriteSettings("Salem", "CurrentProfile=1\r\n[Profile1]\r\nlocation1=x\r\n");

    EXPECT_FALSE(station->Reload());

    EXPECT_EQ(Seconds(), 5);
    EXPECT_EQ(station->ShownWeather()[Quantity::Temperature], "");
    EXPECT_EQ(station->MinMax().TodayMaxTemp, -1000); // the new service may measure another place
    PassSeconds(6);
    EXPECT_EQ(Requests("http://other.test/"), 1);
}

TEST_F(StationReload, AsksSoonForAProfileThatReadsInAnotherWay)
{
    folder.Write(
        "TavrinWeatherProfiles.ini",
        QByteArray(kOnePlaceProfile).replace("temperatureOpen=<temp>", "temperatureOpen=<hum>"));

    EXPECT_FALSE(station->Reload());

    EXPECT_EQ(Seconds(), 5);
    EXPECT_EQ(station->ShownWeather()[Quantity::Temperature], "");
    EXPECT_EQ(station->MinMax().TodayMaxTemp, 71); // the place is the same
}

TEST_F(StationReload, DropsAReplyThatIsNotWantedAnyMore)
{
    station->RequestWeather();
    const TransferHandle handle = station->WeatherThreadHandle();
    ASSERT_NE(handle, 0);
    WriteSettings("Eugene");

    EXPECT_FALSE(station->Reload());

    EXPECT_EQ(station->WeatherThreadHandle(), 0);
    EXPECT_EQ(http.calls.last(), QString("close %1").arg(handle));
}

TEST_F(StationReload, KeepsARequestThatIsStillWanted)
{
    station->RequestWeather();

    EXPECT_FALSE(station->Reload());
    http.Finish(station->WeatherThreadHandle(), QString(kOnePlaceReply).replace("71", "72"));
    station->Poll();

    EXPECT_EQ(Value("Weather.ini", u"Weather", u"TEMP"), "72.0 F");
}

TEST_F(StationReload, AsksSoonForAnotherZoneStateOrForecastHost)
{
    const auto reloaded = [this] {
        station->SetForecastRequestCountdown(0);
        EXPECT_FALSE(station->Reload());
        return station->ForecastRequestCountdown();
    };
    EXPECT_EQ(reloaded(), 0);

    WriteSettings("Salem", "; the first one counts\r\n");
    EXPECT_EQ(reloaded(), 0);
    folder.Write("TavrinWeatherSettings.ini", "[Profile0]\r\nlocation1=Salem\r\n[Settings]\r\n"
                                              "ForecastZone=MDZ012\r\nForecastState=MD\r\n");
    EXPECT_EQ(reloaded(), 5000);
    folder.Write("TavrinWeatherSettings.ini", "[Profile0]\r\nlocation1=Salem\r\n[Settings]\r\n"
                                              "ForecastZone=MDZ012\r\nForecastState=VA\r\n");
    EXPECT_EQ(reloaded(), 5000);
    WriteProfiles({}, "http://elsewhere.test");
    EXPECT_EQ(reloaded(), 5000);
    EXPECT_EQ(Seconds(), 799);
}

TEST_F(StationReload, ChangesNothingForFilesThatAreEmptyOrGone)
{
    folder.Write("TavrinWeatherSettings.ini", {});
    folder.Write("TavrinWeatherProfiles.ini", {});
    EXPECT_FALSE(station->Reload());
    QFile::remove(folder.Path("TavrinWeatherSettings.ini"));
    QFile::remove(folder.Path("TavrinWeatherProfiles.ini"));
    EXPECT_FALSE(station->Reload());

    EXPECT_EQ(Seconds(), 799);
    EXPECT_EQ(station->LocationTexts()[0], "Salem");
    EXPECT_EQ(station->Profiles().weather[0].title, "One place");
    EXPECT_EQ(station->ShownWeather()[Quantity::Temperature], "71.0 F");
    EXPECT_EQ(station->CurrentSettings().ForecastZone, "MDZ011");
    EXPECT_EQ(station->MinMax().TodayMaxTemp, 71);
}

TEST_F(StationReload, KeepsTheProfileWhenItsNumberIsNone)
{
    WriteProfiles("[Profile1]\r\ntitle=Other\r\nbaseURL=http://other.test/\r\n");
    WriteSettings("Salem", "CurrentProfile=1\r\n[Profile1]\r\nlocation1=x\r\n");
    ASSERT_FALSE(station->Reload());
    WriteSettings("Salem", "HTTPPort=81\r\nCurrentProfile=two\r\n[Profile1]\r\nlocation1=x\r\n");

    const std::optional<QString> problem = station->Reload();

    EXPECT_EQ(problem, folder.Path("TavrinWeatherSettings.ini")
                           + ": in section Settings, CurrentProfile is \"two\", which is no "
                             "number. The profile stays as it was; correct or delete that line.");
    EXPECT_EQ(station->Profiles().currentWeatherProfile, 1);
    EXPECT_EQ(station->CurrentSettings().HTTPPort, "81");
}

// After no profile at all, it may be the one of the last run, whose extremes have been loaded.
TEST_F(StationReload, KeepsTheExtremesWhenAProfileIsFoundAtLast)
{
    QFile::remove(folder.Path("TavrinWeatherProfiles.ini"));
    ASSERT_FALSE(Start(Owner::Service));
    PassSeconds(2);
    ASSERT_EQ(station->Profiles().currentWeatherProfile, -1);
    WriteProfiles({});

    EXPECT_FALSE(station->Reload());

    EXPECT_EQ(station->MinMax().TodayMaxTemp, 71);
    PassSeconds(6);
    EXPECT_EQ(Requests("http://weather.test/now?q=Salem"), 1);
}

TEST_F(StationReload, OfAServiceWritesNoSettings)
{
    WriteSettings("Eugene", "HTTPPort=81\r\nCurrentProfile=7\r\n");
    const QByteArray settings = folder.Bytes("TavrinWeatherSettings.ini");

    EXPECT_FALSE(station->Reload());
    PassSeconds(3);
    station->End(0ms);

    EXPECT_EQ(folder.Bytes("TavrinWeatherSettings.ini"), settings);
    EXPECT_FALSE(QFile::exists(folder.Path("TavrinWeatherRecovery.ini")));
}

TEST_F(StationReload, OfAWindowKeepsWhatHasJustBeenChanged)
{
    StartWithWeather(Owner::Window);
    station->Change([](Settings &settings) { settings.HTTPPort = "82"; });
    WriteSettings("Salem", "ForecastSched0=False\r\n");

    EXPECT_FALSE(station->Reload());

    EXPECT_EQ(station->CurrentSettings().HTTPPort, "82");
    EXPECT_EQ(Value("TavrinWeatherRecovery.ini", u"Settings", u"HTTPPort"), "82");
}

} // namespace
