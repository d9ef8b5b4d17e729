#include "support/fake_transfers.h"
#include "support/qt_printers.h"
#include "support/recorded_status.h"
#include "support/recorded_trace.h"
#include "weather/weather_request.h"

#include <gtest/gtest.h>

namespace {

class WeatherRequest : public testing::Test
{
protected:
    bool Request(const QString &port = "80")
    {
        return RequestCurrentWeather(&profile, port, handle, http, status);
    }

    QString RequestedUrl(const QString &port = "80")
    {
        EXPECT_TRUE(Request(port));
        return http.open[handle].url;
    }

    WeatherProfile profile;
    TransferHandle handle = 0;
    FakeTransfers http;
    RecordedStatus status;
};

TEST_F(WeatherRequest, HasNoPortInTheAddressForEighty)
{
    profile.baseURL = "http://host%PORT%/path?q=%LOC1%";
    profile.location[0] = "KSEA";

    EXPECT_EQ(RequestedUrl("80"), "http://host/path?q=KSEA");
    EXPECT_EQ(RequestedUrl("8080"), "http://host:8080/path?q=KSEA");
    EXPECT_EQ(RequestedUrl(" 80"), "http://host: 80/path?q=KSEA");
    EXPECT_EQ(RequestedUrl("080"), "http://host:080/path?q=KSEA");
}

TEST_F(WeatherRequest, EncodesTheFirstLocationOnly)
{
    profile.baseURL = "http://host/%LOC1%/%LOC2%/%LOC3%/%LOC4%";
    profile.location = {"New York", "New York", "a+b", "c@d"};

    EXPECT_EQ(RequestedUrl(), "http://host/New%20York/New York/a+b/c@d");
}

TEST_F(WeatherRequest, FillsEveryTokenOfThisCase)
{
    profile.baseURL = "http://host%PORT%%PORT%/%LOC1%%LOC1%/%loc1%/%LOC5%";
    profile.location[0] = "x";

    EXPECT_EQ(RequestedUrl("81"), "http://host:81:81/xx/%loc1%/%LOC5%");
}

TEST_F(WeatherRequest, FillsALaterTokenInsideALocation)
{
    profile.baseURL = "http://host/%LOC2%/%LOC3%";
    profile.location = {"", "%LOC3%%LOC2%", "z", ""};

    EXPECT_EQ(RequestedUrl(), "http://host/z%LOC2%/z");
}

TEST_F(WeatherRequest, RequestsATemplateWithoutTokensUnchanged)
{
    profile.baseURL = "http://host/fixed.xml";

    EXPECT_EQ(RequestedUrl("8080"), "http://host/fixed.xml");
}

TEST_F(WeatherRequest, ReportsWhatItRequests)
{
    profile.baseURL = "http://host/a";
    const RecordedTrace trace;

    EXPECT_TRUE(Request());

    EXPECT_EQ(status.texts, QStringList{"Requesting Weather Data From URL: http://host/a"});
    EXPECT_EQ(trace.lines, QStringList{"Request URL: http://host/a"});
}

TEST_F(WeatherRequest, DoesNothingWithoutAnAddress)
{
    handle = 7;

    EXPECT_FALSE(Request());
    EXPECT_FALSE(RequestCurrentWeather(nullptr, "80", handle, http, status));

    EXPECT_EQ(handle, 7);
    EXPECT_TRUE(http.calls.isEmpty());
    EXPECT_TRUE(status.texts.isEmpty());
}

TEST_F(WeatherRequest, ClosesTheTransferBefore)
{
    profile.baseURL = "http://host/a";

    EXPECT_TRUE(Request());
    EXPECT_TRUE(Request());

    EXPECT_EQ(http.calls, (QStringList{"open 80", "get http://host/a", "close 1", "open 80",
                                       "get http://host/a"}));
    EXPECT_EQ(handle, 2);
}

TEST_F(WeatherRequest, ReportsARefusedOpenInTwoWordings)
{
    profile.baseURL = "http://host/a";
    http.refuseOpen = true;
    const RecordedTrace trace;

    EXPECT_FALSE(Request("x"));

    EXPECT_EQ(handle, 0);
    EXPECT_EQ(trace.lines, QStringList{"Unable to open HTTP handle on port x for current weather"});
    EXPECT_EQ(status.texts, QStringList{"Unable to open request on port x for current weather"});
    EXPECT_EQ(http.calls, QStringList{"open x"});
}

TEST_F(WeatherRequest, LeavesTheHandleOpenWhenTheGetIsRefused)
{
    profile.baseURL = "http://host/a";
    http.refuseGet = true;

    EXPECT_FALSE(Request());

    EXPECT_EQ(handle, 1);
    EXPECT_EQ(status.texts, QStringList{"Requesting Weather Data From URL: http://host/a"});
}

} // namespace
