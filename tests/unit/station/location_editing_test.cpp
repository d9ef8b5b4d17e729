#include "support/qt_printers.h"
#include "unit/station/station_fixture.h"

using namespace std::chrono_literals;

namespace {

/// What a person types into the first location box, key by key.
class LocationEditing : public StationFixture
{
protected:
    /// Starts a station that has asked for Salem and has `seconds` left until its next request.
    void StartWithSecondsLeft(int seconds)
    {
        ASSERT_FALSE(Start());
        PassSeconds(1 + 900 - seconds);
        ASSERT_EQ(station->Weather().SecondsToWeatherCheck(), seconds - 1);
    }

    void Type(const QString &text) { station->EditLocation(0, text, Editor::Person); }

    [[nodiscard]] QString LastUrl() const
    {
        return http.calls.filter("get http://weather.test").last().sliced(4);
    }
};

TEST_F(LocationEditing, LetsNoHalfLocationBeAskedFor)
{
    StartWithSecondsLeft(2); // the tick after the next would ask
    const int before = Requests("http://weather.test");
    Type("K");
    PassSeconds(1);
    Type("KD");
    PassSeconds(2); // two seconds after the last key

    EXPECT_EQ(Requests("http://weather.test"), before);
    EXPECT_EQ(station->NextWeatherCheck(), "Next Update in 0:00");
    Type("KDTO");
    PassSeconds(2);
    EXPECT_EQ(Requests("http://weather.test"), before);
    PassSeconds(1); // three
    EXPECT_EQ(Requests("http://weather.test"), before + 1);
    EXPECT_EQ(LastUrl(), "http://weather.test/now?q=KDTO");
}

TEST_F(LocationEditing, HoldsUpNothingButTheRequest)
{
    StartWithSecondsLeft(1);
    clock.Set(QDateTime(QDate(2026, 7, 4), QTime(11, 59, 59)));
    http.calls.clear();
    Type("KD");

    PassSeconds(1); // noon: a forecast is due

    EXPECT_EQ(http.calls.filter("get http://forecast.test").size(), 1);
    EXPECT_EQ(http.calls.filter("get http://weather.test").size(), 0);
}

TEST_F(LocationEditing, CountsDownMeanwhile)
{
    StartWithSecondsLeft(100);
    Type("KD");
    PassSeconds(1);

    EXPECT_EQ(station->NextWeatherCheck(), "Next Update in 1:39");
    EXPECT_EQ(station->Weather().SecondsToWeatherCheck(), 98);
}

TEST_F(LocationEditing, IsNoMatterForTextsOfTheProgramAndForTheButton)
{
    StartWithSecondsLeft(1);
    station->EditLocation(0, "Eugene", Editor::Program);
    PassSeconds(1);
    EXPECT_EQ(LastUrl(), "http://weather.test/now?q=Eugene");

    Type("KDT");
    station->RequestWeather();
    EXPECT_EQ(LastUrl(), "http://weather.test/now?q=KDT");
}

TEST_F(LocationEditing, AsksSoonWhenOtherLocationsAreDone)
{
    StartWithSecondsLeft(500);
    Type("KDTO");

    station->LocationsDone();

    EXPECT_EQ(station->Profiles().weather[0].location[0], "KDTO");
    EXPECT_EQ(station->CurrentSettings().location[0][0], "KDTO");
    EXPECT_EQ(station->Weather().SecondsToWeatherCheck(), 5);
    PassSeconds(6);
    EXPECT_EQ(LastUrl(), "http://weather.test/now?q=KDTO");
}

// Else the weather of one place would go on air under the name of another.
TEST_F(LocationEditing, GivesUpWhatWasAskedOfOtherLocations)
{
    ASSERT_FALSE(Start());
    PassSeconds(1);
    const TransferHandle handle = station->WeatherThreadHandle();
    ASSERT_NE(handle, 0);
    Type("KDTO");

    station->LocationsDone();

    EXPECT_EQ(station->WeatherThreadHandle(), 0);
    EXPECT_FALSE(http.open.contains(handle));
    EXPECT_EQ(station->Weather().SecondsToWeatherCheck(), 5);
}

TEST_F(LocationEditing, WaitsForWhatWasAskedOfTheSameLocations)
{
    ASSERT_FALSE(Start());
    PassSeconds(1);
    const TransferHandle handle = station->WeatherThreadHandle();
    ASSERT_NE(handle, 0);

    station->LocationsDone();

    EXPECT_EQ(station->WeatherThreadHandle(), handle);
}

TEST_F(LocationEditing, NeverPutsARequestOff)
{
    StartWithSecondsLeft(4);
    Type("KDTO");

    station->LocationsDone();

    EXPECT_EQ(station->Weather().SecondsToWeatherCheck(), 3);
    PassSeconds(4); // complete, so there is no wait after the last key
    EXPECT_EQ(LastUrl(), "http://weather.test/now?q=KDTO");
}

TEST_F(LocationEditing, AsksNoSoonerForTheSameLocations)
{
    StartWithSecondsLeft(500);
    Type("Sale");
    Type("Salem");

    station->LocationsDone();

    EXPECT_EQ(station->Weather().SecondsToWeatherCheck(), 499);
}

// A request that could not be opened was not made, so it does not delay the next try.
TEST_F(LocationEditing, AsksSoonForWhatCouldNotBeOpened)
{
    StartWithSecondsLeft(500);
    Type("KDTO");
    http.refuseOpen = true;
    station->RequestWeather(); // gives Salem up and opens nothing
    EXPECT_EQ(station->WeatherThreadHandle(), 0);

    station->LocationsDone();

    EXPECT_EQ(station->Weather().SecondsToWeatherCheck(), 5);
}

// Two texts change within a second, and the view is told of both at once.
TEST_F(LocationEditing, IsToldToTheViewOnceASecond)
{
    StartWithSecondsLeft(500);
    view.told.clear();

    station->TickSecond();

    EXPECT_EQ(view.told, QStringList{"countdowns"});
}

TEST_F(LocationEditing, IsSavedAtTheEnd)
{
    StartWithSecondsLeft(500);
    Type("KDTO");

    station->End(0ms);

    EXPECT_EQ(Value("TavrinWeatherSettings.ini", u"Profile0", u"location1"), "KDTO");
}

} // namespace
