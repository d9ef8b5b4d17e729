#include "demo_host/json_replies.h"
#include "demo_host/text_replies.h"
#include "profiles/profile_file.h"
#include "support/qt_printers.h"
#include "support/read_weather.h"
#include "weather/weather_reading.h"

#include <QUrl>
#include <QUrlQuery>

#include <gtest/gtest.h>

namespace {

const QDateTime kNow(QDate(2026, 3, 14), QTime(20, 0), Qt::UTC);

/// What the demo host answers for London to a profile with that address template; empty when it
/// does not know the address.
QString DemoReply(const QString &address)
{
    const Station &london = *FindStation(u"EGLL");
    if (address.contains("/current_obs/"))
        return CurrentObservation(london, kNow);
    if (address.contains("/metar/decoded/"))
        return DecodedReport(london, kNow);
    if (address.contains("/observations/latest"))
        return ObservationJson(london, kNow);
    if (address.contains("format=j2"))
        return PlaceReply(london, kNow);
    QString filled = address;
    filled.replace("%LOC1%", "51.48").replace("%LOC2%", "-0.45").remove("%PORT%");
    AddressQuery query;
    for (const auto &[name, value] : QUrlQuery(QUrl(filled)).queryItems())
        query.insert(name, value);
    return PositionReply(query, kNow).value_or(QString());
}

// London at 8 PM: 11.0 + 4.0 * cos 75 degrees = 12.0 C = 53.6 F; dew point 6.0 C, humidity
// 100 * exp(17.625 * 6 / 249.04) / exp(17.625 * 12 / 255.04) = 67.
TEST(ShippedProfiles, AllReadTheDemoHost)
{
    ProfileTable profiles;
    LoadWeatherProfiles(profiles, {TAVRIN_SOURCE_DIR "/profiles/TavrinWeatherProfiles.ini"});

    int used = 0;
    for (WeatherProfile &profile : profiles.weather) {
        if (profile.title.isEmpty())
            continue;
        SCOPED_TRACE(profile.title.toStdString());
        ++used;

        EXPECT_TRUE(ReadInto(&profile, DemoReply(profile.baseURL), kNow).taken);

        const bool fahrenheit = profile[Quantity::Temperature].Units == " F";
        EXPECT_EQ(profile.values[Quantity::Temperature], fahrenheit ? "53.6 F" : "12.0 C");
        EXPECT_EQ(profile.values[Quantity::Humidity], "67%");
    }
    EXPECT_GT(used, 0);
}

} // namespace
