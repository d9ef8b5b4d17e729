#include "support/qt_printers.h"
#include "unit/profiles/shipped_profiles.h"

#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr std::size_t kShipped = 8;
constexpr std::size_t kFreeForAnyUse = 5; ///< The first ones, which a commercial station may use.

TEST(ShippedProfiles, StandWithoutGapsFromTheFirstSlotOn)
{
    const auto &profiles = ShippedProfiles().weather;

    for (std::size_t i = 0; i < profiles.size(); ++i) {
        EXPECT_EQ(!profiles[i].title.isEmpty(), i < kShipped) << i;
        EXPECT_EQ(!profiles[i].baseURL.isEmpty(), i < kShipped) << i;
    }
}

TEST(ShippedProfiles, NameTheTermsWithTheFreeServicesFirst)
{
    const auto &profiles = ShippedProfiles().weather;

    for (std::size_t i = 0; i < kShipped; ++i) {
        const QString &description = profiles[i].description;
        EXPECT_TRUE(description.contains("\r\nTerms: ")) << i;
        EXPECT_EQ(description.contains("Terms: public domain"), i < kFreeForAnyUse) << i;
        EXPECT_FALSE(profiles[i].copyright.isEmpty()) << i;
        EXPECT_TRUE(profiles[i].copyrightURL.startsWith("https://")) << i;
    }
}

TEST(ShippedProfiles, RequireTheTemperatureAndAMainNode)
{
    const auto &profiles = ShippedProfiles().weather;

    for (std::size_t i = 0; i < kShipped; ++i) {
        EXPECT_TRUE(profiles[i].required.contains("temperature")) << i;
        EXPECT_FALSE(profiles[i][Quantity::Temperature].Open.isEmpty()) << i;
        EXPECT_FALSE(profiles[i].mainNodeOpen.isEmpty()) << i;
        EXPECT_FALSE(profiles[i].mainNodeClose.isEmpty()) << i;
    }
}

TEST(ShippedProfiles, AskOverHttpsAndKeepThePortToken)
{
    const auto &profiles = ShippedProfiles().weather;

    for (std::size_t i = 0; i < kShipped; ++i) {
        EXPECT_TRUE(profiles[i].baseURL.startsWith("https://")) << i;
        EXPECT_TRUE(profiles[i].baseURL.contains("%PORT%/")) << i;
        EXPECT_TRUE(profiles[i].baseURL.contains("%LOC1%")) << i;
        EXPECT_FALSE(profiles[i].locationTitle[0].isEmpty()) << i;
    }
}

TEST(ShippedProfiles, ArePlainAsciiSoThatEveryCodePageReadsThemAlike)
{
    QFile file(ShippedProfileFile().path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();

    EXPECT_TRUE(
        std::ranges::all_of(bytes, [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); }));
    EXPECT_FALSE(bytes.isEmpty());
}

TEST(ShippedProfiles, RefuseWhatIsNoReply)
{
    const QStringList replies{
        "",
        R"(<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML 2.0//EN">
<html><head>
<title>404 Not Found</title>
</head><body>
<h1>Not Found</h1>
<p>The requested URL was not found on this server.</p>
<hr>
<address>Apache Server at 10:20 Port 80</address></body></html>
)",
        R"(<html><head><title>Log in, 2026</title></head>
<body>Temperature: 20 F (-7 C) { "temperature_2m":1, } ob: </body></html>
)",
        R"({"error":true,"reason":"Latitude must be in range of -90 to 90. Given: 512."})",
        R"({
    "correlationId": "2ab",
    "title": "Not Found",
    "type": "https://api.weather.gov/problems/NotFound",
    "status": 404,
    "detail": "Not Found"
})",
        "Unknown location; please try ~51.5,-0.12",
    };

    for (std::size_t i = 0; i < kShipped; ++i) {
        for (const QString &reply : replies) {
            const Outcome outcome = Parse(i, reply);

            EXPECT_FALSE(outcome.parsed) << i << ' ' << reply.toStdString();
            EXPECT_EQ(outcome.values, Lines({})) << i << ' ' << reply.toStdString();
            EXPECT_TRUE(outcome.temps.isEmpty()) << i << ' ' << reply.toStdString();
        }
    }
}

TEST(ShippedProfiles, HaveTheZoneForecastService)
{
    ForecastProfile forecast;

    const auto caption = LoadForecastProfile(forecast, ShippedProfileFile(), 2026);

    EXPECT_EQ(caption, QString("Public domain sources at U.S. National Weather Services."));
    EXPECT_EQ(forecast.title, QString("NOAA 7-Day Forecast for USA Locations"));
    EXPECT_EQ(forecast.baseURL, QString("https://tgftp.nws.noaa.gov%PORT%/data/forecasts/zone/"
                                        "%STATE%/%ZONECODE%.txt"));
    EXPECT_EQ(forecast.copyrightURL, QString("https://tgftp.nws.noaa.gov/"));
    EXPECT_EQ(forecast.description,
              QString("Seven-day weather forecast data is provided for the USA by NOAA"));
}

} // namespace
