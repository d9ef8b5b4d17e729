#include "forecast/forecast_request.h"
#include "support/fake_transfers.h"
#include "support/qt_printers.h"
#include "support/recorded_status.h"
#include "support/recorded_trace.h"

#include <gtest/gtest.h>

namespace {

class ForecastRequest : public testing::Test
{
protected:
    bool Request() { return RequestForecast(address, forecast, handle, http, status); }

    ForecastPoll Poll() { return PollForecast(forecast, profile, handle, http, status); }

    /// Makes a request that ends with this reply.
    ForecastPoll Receive(const QString &reply)
    {
        EXPECT_TRUE(Request());
        http.Finish(handle, reply);
        return Poll();
    }

    ForecastPoll Fail(const QString &error)
    {
        EXPECT_TRUE(Request());
        http.Fail(handle, error);
        return Poll();
    }

    ForecastAddress address{
        .host = "https://host", .port = "80", .state = "MD", .zoneCode = "MDZ011"};
    ForecastState forecast;
    ForecastProfile profile;
    TransferHandle handle = 0;
    FakeTransfers http;
    RecordedStatus status;
};

TEST_F(ForecastRequest, AsksForTheZonesFileInSmallLetters)
{
    const RecordedTrace trace;

    EXPECT_TRUE(Request());

    const QString url = "https://host/data/forecasts/zone/md/mdz011.txt";
    EXPECT_EQ(http.calls, (QStringList{"open 80", "get " + url}));
    EXPECT_EQ(trace.lines, QStringList{"Request URL: " + url});
    EXPECT_EQ(status.texts, QStringList{"Requesting Forecast Data From URL: " + url});
    EXPECT_EQ(forecast.ForecastZoneCode, "MDZ011");
}

TEST_F(ForecastRequest, PutsAnyOtherPortBehindTheHost)
{
    address.port = "8080";

    EXPECT_TRUE(Request());

    EXPECT_EQ(http.calls, (QStringList{"open 8080",
                                       "get https://host:8080/data/forecasts/zone/md/mdz011.txt"}));
}

TEST_F(ForecastRequest, KeepsAPortOfTheHostsOwn)
{
    address.host = "http://127.0.0.1:4711";

    EXPECT_TRUE(Request());

    EXPECT_EQ(http.open[handle].url, "http://127.0.0.1:4711/data/forecasts/zone/md/mdz011.txt");
}

TEST_F(ForecastRequest, TakesTheCodesAsTheyAre)
{
    address.state = " oregon";
    address.zoneCode = "ORZ 6 ";

    EXPECT_TRUE(Request());

    EXPECT_EQ(http.open[handle].url, "https://host/data/forecasts/zone/ oregon/orz 6 .txt");
    EXPECT_EQ(forecast.ForecastZoneCode, "ORZ 6 ");
}

TEST_F(ForecastRequest, ClosesTheTransferBefore)
{
    EXPECT_TRUE(Request());
    http.calls.clear();

    EXPECT_TRUE(Request());

    EXPECT_EQ(http.calls.first(2), (QStringList{"close 1", "open 80"}));
    EXPECT_EQ(handle, 2);
}

TEST_F(ForecastRequest, ReportsARefusedOpenInTwoWordings)
{
    EXPECT_TRUE(Request());
    status.texts.clear();
    http.refuseOpen = true;
    address.port = "x";
    const RecordedTrace trace;

    EXPECT_FALSE(Request());

    EXPECT_EQ(handle, 0);
    EXPECT_EQ(trace.lines,
              QStringList{"Unable to open HTTP handle on port x for weather forecast"});
    EXPECT_EQ(status.texts, QStringList{"Unable to open request on port x for weather forecast"});
}

TEST_F(ForecastRequest, IsReceivedAsFailedWhenTheGetIsRefused)
{
    http.refuseGet = true;

    EXPECT_FALSE(Request());
    EXPECT_EQ(handle, 1);

    EXPECT_EQ(Poll(), ForecastPoll::RequestAgain);
    EXPECT_EQ(handle, 0);
}

TEST_F(ForecastRequest, WaitsForTheEndOfTheTransfer)
{
    EXPECT_TRUE(Request());
    status.texts.clear();

    EXPECT_EQ(Poll(), ForecastPoll::Waiting);

    EXPECT_EQ(handle, 1);
    EXPECT_TRUE(status.texts.isEmpty());
    EXPECT_TRUE(http.open.contains(1));
}

TEST_F(ForecastRequest, ReceivesAForecast)
{
    EXPECT_EQ(Receive("  ZFP\nMDZ011-222100-\nTOWSON-\n.TONIGHT...CLEAR.\n$$\n  "),
              ForecastPoll::ShowAndSave);

    EXPECT_EQ(forecast.CleanForecastText, "TOWSON-\r\n\r\nTONIGHT. CLEAR.\r\n");
    EXPECT_EQ(profile.forecastText, "TOWSON-\r\n\r\nTONIGHT. CLEAR.\r\n");
    EXPECT_TRUE(forecast.received);
    EXPECT_EQ(status.texts.last(), "Received forecast data");
    EXPECT_EQ(handle, 0);
    EXPECT_TRUE(http.open.empty());
}

TEST_F(ForecastRequest, LooksForTheZoneThatWasAskedFor)
{
    EXPECT_TRUE(Request());
    address.zoneCode = "MDZ012"; // typed while the transfer runs
    http.Finish(handle, "MDZ012-1-\nA\nMDZ011-1-\nB\n");

    EXPECT_EQ(Poll(), ForecastPoll::ShowAndSave);

    EXPECT_EQ(profile.forecastText, "B\r\n");
}

TEST_F(ForecastRequest, DropsOuterSpacesOnly)
{
    // The leading line end counts as one of the five characters that are dropped.
    EXPECT_EQ(Receive("   \n1234 HEADER\nBODY\t \n  "), ForecastPoll::ShowAndSave);

    EXPECT_EQ(profile.forecastText, "BODY\t \r\n");
}

TEST_F(ForecastRequest, TellsWhyItFailed)
{
    EXPECT_TRUE(Request());
    http.Fail(handle, "HTTP 404");
    const RecordedTrace trace;

    EXPECT_EQ(Poll(), ForecastPoll::RequestAgain);

    EXPECT_EQ(status.texts.last(), "An error occured receiving forecast");
    EXPECT_EQ(trace.lines,
              QStringList{"An error occurred while retrieving the forecast. HTTP 404"});
    EXPECT_EQ(handle, 0);
    EXPECT_TRUE(http.open.empty());
}

TEST_F(ForecastRequest, HasNothingToShowBeforeTheFirstForecast)
{
    EXPECT_EQ(Fail("HTTP 503"), ForecastPoll::RequestAgain);
    EXPECT_EQ(Receive(""), ForecastPoll::RequestAgain);
    EXPECT_EQ(status.texts.last(), "Forecast host returned no forecast data");
    EXPECT_EQ(Receive("   "), ForecastPoll::RequestAgain);

    EXPECT_FALSE(forecast.received);
    EXPECT_EQ(profile.forecastText, "");
    EXPECT_EQ(kForecastRetryMilliseconds, 30000);
}

TEST_F(ForecastRequest, ShowsTheLastForecastAfterAFailure)
{
    EXPECT_EQ(Receive("MDZ011-1-\nCLEAR."), ForecastPoll::ShowAndSave);

    EXPECT_EQ(Fail("HTTP 503"), ForecastPoll::ShowAndSave);
    EXPECT_EQ(status.texts.last(), "An error occured receiving forecast");
    EXPECT_EQ(Receive(" "), ForecastPoll::ShowAndSave);
    EXPECT_EQ(status.texts.last(), "Forecast host returned no forecast data");

    EXPECT_EQ(profile.forecastText, "CLEAR.");
    EXPECT_EQ(forecast.CleanForecastText, "CLEAR.");
}

TEST_F(ForecastRequest, ReplacesTheLastForecast)
{
    EXPECT_EQ(Receive("MDZ011-1-\nCLEAR."), ForecastPoll::ShowAndSave);
    EXPECT_EQ(Receive("MDZ011-1-\nRAIN."), ForecastPoll::ShowAndSave);

    EXPECT_EQ(profile.forecastText, "RAIN.");
}

TEST_F(ForecastRequest, ReceivesNothingWithoutATransfer)
{
    EXPECT_FALSE(ReceiveForecast(forecast, profile, handle, http, status));

    EXPECT_TRUE(http.calls.isEmpty());
    EXPECT_TRUE(status.texts.isEmpty());
}

TEST_F(ForecastRequest, TellsWhetherAForecastWasReceived)
{
    EXPECT_TRUE(Request());
    http.Finish(handle, "MDZ011-1-\nCLEAR.");
    EXPECT_TRUE(ReceiveForecast(forecast, profile, handle, http, status));

    EXPECT_TRUE(Request());
    http.Fail(handle);
    EXPECT_FALSE(ReceiveForecast(forecast, profile, handle, http, status));
}

} // namespace
