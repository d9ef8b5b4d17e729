#include "forecast/forecast_cycle.h"
#include "support/fake_transfers.h"
#include "support/qt_printers.h"
#include "support/recorded_status.h"

#include <gtest/gtest.h>

namespace {

class ForecastRounds : public testing::Test
{
protected:
    bool Request(const QString &port = "80")
    {
        return cycle.Request(
            {.host = "http://forecast.test", .port = port, .state = "MD", .zoneCode = "MDZ011"},
            status);
    }

    ForecastPoll Poll() { return cycle.Poll(profile, status); }

    FakeTransfers http;
    RecordedStatus status;
    ForecastProfile profile;
    ForecastCycle cycle{http};
};

TEST_F(ForecastRounds, TakesTheForecast)
{
    EXPECT_EQ(Poll(), ForecastPoll::Waiting); // nothing has been requested
    ASSERT_TRUE(Request());
    EXPECT_EQ(Poll(), ForecastPoll::Waiting);

    http.Finish(cycle.ForecastThreadHandle(), "MDZ011-041500-\nBaltimore-\n.TODAY...Sunny.\n$$");

    EXPECT_EQ(Poll(), ForecastPoll::ShowAndSave);
    EXPECT_EQ(cycle.ForecastThreadHandle(), 0);
    EXPECT_EQ(cycle.ForecastZoneCode(), "MDZ011");
    EXPECT_TRUE(profile.forecastText.contains("TODAY. Sunny."));
    EXPECT_EQ(cycle.ForecastRequestCountdown(), 0);
}

TEST_F(ForecastRounds, CountsDownOnce)
{
    cycle.SetForecastRequestCountdown(500);

    EXPECT_FALSE(cycle.CountDown(250));
    EXPECT_TRUE(cycle.CountDown(250));
    EXPECT_FALSE(cycle.CountDown(250));
}

TEST_F(ForecastRounds, RepeatsAFailedFirstRequest)
{
    ASSERT_TRUE(Request());
    http.Fail(cycle.ForecastThreadHandle());

    EXPECT_EQ(Poll(), ForecastPoll::RequestAgain);
    EXPECT_EQ(cycle.ForecastRequestCountdown(), 30000);
}

TEST_F(ForecastRounds, LeavesTheFiveSecondsOfAZoneJustChosen)
{
    ASSERT_TRUE(Request());
    cycle.SetForecastRequestCountdown(5000); // chosen while the transfer runs
    http.Fail(cycle.ForecastThreadHandle());

    EXPECT_EQ(Poll(), ForecastPoll::RequestAgain);

    EXPECT_EQ(cycle.ForecastRequestCountdown(), 5000);
}

TEST_F(ForecastRounds, RepeatsOnWhenThePortIsJustBeingTyped)
{
    ASSERT_TRUE(Request());
    http.Fail(cycle.ForecastThreadHandle());
    ASSERT_EQ(Poll(), ForecastPoll::RequestAgain);
    ASSERT_TRUE(cycle.CountDown(30000));

    http.refuseOpen = true; // the port box is empty at this moment
    EXPECT_FALSE(Request(""));

    EXPECT_EQ(cycle.ForecastRequestCountdown(), 30000);
    http.refuseOpen = false;
    EXPECT_TRUE(Request());
    EXPECT_EQ(cycle.ForecastRequestCountdown(), 0);
}

TEST_F(ForecastRounds, RepeatsNothingThatNeverBegan)
{
    http.refuseOpen = true;

    EXPECT_FALSE(Request(""));

    EXPECT_EQ(cycle.ForecastRequestCountdown(), 0);
}

TEST_F(ForecastRounds, RepeatsNoMoreOnceThereIsAForecast)
{
    ASSERT_TRUE(Request());
    http.Fail(cycle.ForecastThreadHandle());
    ASSERT_EQ(Poll(), ForecastPoll::RequestAgain);
    ASSERT_TRUE(Request());
    http.Finish(cycle.ForecastThreadHandle(), "MDZ011-041500-\nBaltimore-\n.TODAY...Sunny.\n$$");
    ASSERT_EQ(Poll(), ForecastPoll::ShowAndSave);

    http.refuseOpen = true;
    EXPECT_FALSE(Request(""));

    EXPECT_EQ(cycle.ForecastRequestCountdown(), 0);
}

} // namespace
