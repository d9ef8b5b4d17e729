#include "support/qt_printers.h"
#include "support/recorded_trace.h"
#include "unit/station/station_fixture.h"

#include <QDir>

using namespace std::chrono_literals;

namespace {

class StationStart : public StationFixture
{
};

TEST_F(StationStart, TakesOverProfilesSettingsAndExtremes)
{
    folder.Write("TavrinWeatherMinMax.ini", "[GENERAL]\r\nCURRDAY=4\r\n"
                                            "[DAY4]\r\nMIN=61.5\r\nMAX=70\r\n");

    ASSERT_FALSE(Start());

    EXPECT_EQ(station->Profiles().weather[0].title, "One place");
    EXPECT_EQ(station->Profiles().weather[0].location[0], "Salem");
    EXPECT_EQ(station->CurrentSettings().ForecastZone, "MDZ011");
    EXPECT_EQ(station->LocationTexts()[0], "Salem");
    EXPECT_EQ(station->MinMax().TodayMinTemp, 61.5);
    EXPECT_EQ(station->Forecast().ForecastRequestCountdown(), 5000);
    EXPECT_TRUE(view.told.contains("profiles"));
}

TEST_F(StationStart, SaysWhatIsWrongWithTheProfilesNumber)
{
    folder.Write("TavrinWeatherSettings.ini", "[Settings]\r\nCurrentProfile=two\r\n");

    const std::optional<QString> problem = Start();

    ASSERT_TRUE(problem);
    EXPECT_EQ(*problem, folder.Path("TavrinWeatherSettings.ini")
                            + ": in section Settings, CurrentProfile is \"two\", which is no "
                              "number. The program cannot start with it; correct or delete that "
                              "line.");
    EXPECT_FALSE(station->IsRunning());
}

TEST_F(StationStart, NeedsNoView)
{
    ASSERT_FALSE(Start());
    station->SetView(nullptr);

    PassSeconds(1);
    http.Finish(station->WeatherThreadHandle(), kOnePlaceReply);
    PassSeconds(1);

    EXPECT_EQ(Value("Weather.ini", u"Weather", u"TEMP"), "71.0 F");
}

TEST_F(StationStart, KeepsTheChoiceOfTheLastRunWithoutProfiles)
{
    QFile::remove(folder.Path("TavrinWeatherProfiles.ini"));
    folder.Write("TavrinWeatherSettings.ini",
                 "[Settings]\r\nFirstRun=False\r\nCurrentProfile=3\r\n");

    ASSERT_FALSE(Start());
    EXPECT_EQ(station->Profiles().currentWeatherProfile, -1);
    station->End(0ms);

    EXPECT_EQ(Value("TavrinWeatherSettings.ini", u"Settings", u"CurrentProfile"), "3");
}

class StationWeather : public StationFixture
{
};

TEST_F(StationWeather, IsAskedForAtTheFirstSecond)
{
    ASSERT_FALSE(Start());

    PassSeconds(1);

    EXPECT_EQ(http.calls, (QStringList{"open 80", "get http://weather.test/now?q=Salem"}));
    EXPECT_EQ(station->NextWeatherCheck(), "Next Update in 0:00");
    PassSeconds(1);
    EXPECT_EQ(station->NextWeatherCheck(), "Next Update in 14:59");
}

// The icon in the panel moves with a request, whatever comes of it.
TEST_F(StationWeather, TellsOfARequestBeforeAnythingElse)
{
    ASSERT_FALSE(Start());
    const auto toldOfARequest = [this] {
        view.told.clear();
        station->RequestWeather();
        return view.told.value(0) == "request" && view.told.count("request") == 1;
    };

    EXPECT_TRUE(toldOfARequest());
    http.refuseOpen = true;
    EXPECT_TRUE(toldOfARequest());
    station->profiles.weather[0].baseURL.clear();
    EXPECT_TRUE(toldOfARequest());
}

TEST_F(StationWeather, IsShownAndStored)
{
    ASSERT_FALSE(Start());
    PassSeconds(1);
    view.told.clear();
    view.statuses.clear();

    http.Finish(station->WeatherThreadHandle(), kOnePlaceReply);
    station->Poll();

    EXPECT_EQ(view.replies, QStringList{kOnePlaceReply});
    EXPECT_EQ(view.statuses, QStringList{"Retrieved current weather data"});
    EXPECT_EQ(view.told, (QStringList{"status", "reply", "weather"}));
    EXPECT_EQ(station->ShownWeather()[Quantity::Temperature], "71.0 F");
    EXPECT_EQ(station->ShownWeather()[Quantity::MinTemp], "N/A"); // nothing known of the day before
    EXPECT_EQ(station->MinMax().TodayMinTemp, 71);
    EXPECT_EQ(Value("Weather.ini", u"Weather", u"CITY"), "Salem, OR");
    EXPECT_EQ(station->WeatherThreadHandle(), 0);
}

// Otherwise the results of writes would pile up over the years.
TEST_F(StationWeather, LetsTheWriterForgetWhatIsStored)
{
    ASSERT_FALSE(Start());
    station->SaveWeatherData();
    station->SaveForecastData();

    station->Poll();

    EXPECT_TRUE(writer.Poll().isEmpty());
}

TEST_F(StationWeather, ShowsARefusedReplyAsItCame)
{
    ASSERT_FALSE(Start());
    PassSeconds(1);
    view.told.clear();

    http.Finish(station->WeatherThreadHandle(), "<html>\tclosed\r\n</html>");
    station->Poll();

    EXPECT_EQ(view.replies, QStringList{"<html>\tclosed\r\n</html>"});
    EXPECT_EQ(view.statuses.last(), "Could not find opening node tag in received data");
    EXPECT_FALSE(view.told.contains("weather"));
    EXPECT_FALSE(QFile::exists(folder.Path("Weather.ini")));
}

// It says nothing about the service selected now, whose reply is still awaited.
TEST_F(StationWeather, IsNotCalledRetrievedWhenItIsAnotherProfiles)
{
    folder.Write("TavrinWeatherProfiles.ini",
                 kOnePlaceProfile + "[Profile1]\r\ntitle=Other\r\nbaseURL=http://other.test/\r\n");
    ASSERT_FALSE(Start());
    PassSeconds(1);
    station->ChooseProfile(1, Choice::Chosen);
    const RecordedTrace trace;

    http.Finish(station->WeatherThreadHandle(), kOnePlaceReply);
    station->Poll();

    EXPECT_EQ(view.statuses.last(), "Requesting Weather...");
    EXPECT_EQ(trace.lines, QStringList{"Weather reply to another profile's request ignored"});
    EXPECT_TRUE(view.replies.isEmpty());
    EXPECT_FALSE(QFile::exists(folder.Path("Weather.ini")));
}

TEST_F(StationWeather, StoresWhatIsShown)
{
    ASSERT_FALSE(Start());
    station->profiles.weather[0].values[Quantity::Conditions] = "Sunny";
    station->DisplayWeatherData();
    station->SaveWeatherData();
    EXPECT_EQ(Value("Weather.ini", u"Weather", u"CONDITIONS"), "Sunny");

    station->ClearWeatherFields();
    station->SaveWeatherData();
    EXPECT_EQ(Value("Weather.ini", u"Weather", u"CONDITIONS"), "");
    EXPECT_EQ(Value("Weather.ini", u"Weather", u"COPYRIGHT"), "Data (c) 2026 by 2026 people");
}

class StationSettings : public StationFixture
{
protected:
    [[nodiscard]] QByteArray Recovery() const { return folder.Bytes("TavrinWeatherRecovery.ini"); }

    void ChangePort(const QString &port)
    {
        station->Change([&](Settings &settings) { settings.HTTPPort = port; });
    }
};

TEST_F(StationSettings, AreKeptASecondAfterAChange)
{
    ASSERT_FALSE(Start());
    ChangePort("81");
    PollTimes(3);
    ChangePort("8081"); // stored with the first, and no later than it

    EXPECT_EQ(Recovery(), "");
    PollTimes(1);
    EXPECT_TRUE(Recovery().contains("HTTPPort=8081\r\n"));
}

// Driven by the quarter-second poll alone: the weather countdown may stand still.
TEST_F(StationSettings, AreKeptWithoutTheTickOfTheCountdown)
{
    ASSERT_FALSE(Start());
    station->SetZone("TX", "TXZ001", ZoneSource::Typed);
    PollTimes(4);

    EXPECT_TRUE(Recovery().contains("ForecastZone=TXZ001\r\n"));
}

TEST_F(StationSettings, AreNotKeptWithoutAChange)
{
    ASSERT_FALSE(Start());
    ChangePort("80");
    PassSeconds(3);

    EXPECT_EQ(Recovery(), "");
}

TEST_F(StationSettings, AreStoredAtTheEndAndWhenAsked)
{
    ASSERT_FALSE(Start());
    ChangePort("81");
    PollTimes(4);

    EXPECT_TRUE(station->SaveSettings());
    EXPECT_EQ(Value("TavrinWeatherSettings.ini", u"Settings", u"HTTPPort"), "81");
    EXPECT_FALSE(QFile::exists(folder.Path("TavrinWeatherRecovery.ini")));
    EXPECT_TRUE(station->IsRunning());

    ChangePort("82"); // also after an earlier save
    PollTimes(4);
    EXPECT_TRUE(Recovery().contains("HTTPPort=82\r\n"));
    station->End(0ms);
    EXPECT_EQ(Value("TavrinWeatherSettings.ini", u"Settings", u"HTTPPort"), "82");
    EXPECT_FALSE(QFile::exists(folder.Path("TavrinWeatherRecovery.ini")));
}

// What an orderly end has stored must not come back over what is edited in the file afterwards.
TEST_F(StationSettings, LeaveNothingToRecoverWhenTheEndFollowsAChange)
{
    ASSERT_FALSE(Start());
    ChangePort("81");
    station->EditLocation(0, "Eugene", Editor::Person);

    station->End(0ms); // before the recovery file was due

    EXPECT_EQ(Value("TavrinWeatherSettings.ini", u"Settings", u"HTTPPort"), "81");
    EXPECT_EQ(Value("TavrinWeatherSettings.ini", u"Profile0", u"location1"), "Eugene");
    EXPECT_FALSE(QFile::exists(folder.Path("TavrinWeatherRecovery.ini")));
}

TEST_F(StationSettings, AreLeftToRecoverWhenTheirFileCannotBeWritten)
{
    ASSERT_FALSE(Start());
    QFile::remove(folder.Path("TavrinWeatherSettings.ini"));
    ASSERT_TRUE(QDir().mkdir(folder.Path("TavrinWeatherSettings.ini")));
    station->EditLocation(0, "Eugene", Editor::Person);

    station->End(0ms);

    EXPECT_EQ(Value("TavrinWeatherRecovery.ini", u"Profile0", u"location1"), "Eugene");
}

TEST_F(StationSettings, OfAServiceAreNeverWritten)
{
    QFile::remove(folder.Path("TavrinWeatherSettings.ini"));
    folder.Write("TavrinWeatherRecovery.ini", "[Settings]\r\nHTTPPort=81\r\n");

    ASSERT_FALSE(Start(Owner::Service));
    EXPECT_EQ(station->CurrentSettings().HTTPPort, "81");
    ChangePort("82");
    PassSeconds(2);
    station->SaveSettings();
    station->End(0ms);

    EXPECT_EQ(Recovery(), "[Settings]\r\nHTTPPort=81\r\n");
    EXPECT_FALSE(QFile::exists(folder.Path("TavrinWeatherSettings.ini")));
}

TEST_F(StationSettings, HaveOneHomeForTheLocations)
{
    ASSERT_FALSE(Start());
    station->EditLocation(0, "Eugene", Editor::Program);
    station->StartWeatherRequest();

    EXPECT_EQ(station->Profiles().weather[0].location[0], "Eugene");
    EXPECT_EQ(station->CurrentSettings().location[0][0], "Eugene");

    station->ReloadWeatherProfile();
    EXPECT_EQ(station->Profiles().weather[0].location[0], "");
    EXPECT_EQ(station->CurrentSettings().location[0][0], "");
}

// The list of titles was filled earlier, and its index is the record's.
TEST_F(StationSettings, KeepTheProfileThatWasEmptied)
{
    folder.Write("TavrinWeatherProfiles.ini",
                 kOnePlaceProfile + "[Profile1]\r\ntitle=Other\r\nbaseURL=http://other.test/\r\n");
    ASSERT_FALSE(Start());
    station->ChooseProfile(1, Choice::Chosen);

    station->ReloadWeatherProfile();

    EXPECT_EQ(station->Profiles().currentWeatherProfile, 1);
    EXPECT_EQ(station->Profiles().weather[1].title, "");
}

TEST_F(StationSettings, GiveZoneCodesToWhoeverWaits)
{
    ASSERT_FALSE(Start());
    const TransferHandle handle = http.Net_HTTPThreadOpen("80");
    station->AwaitZoneCodes(handle);
    http.Finish(handle, "codes");

    station->Poll();

    EXPECT_EQ(view.zoneCodes, QStringList{"codes"});
    EXPECT_EQ(station->ZoneCodeThreadHandle(), 0);
}

} // namespace
