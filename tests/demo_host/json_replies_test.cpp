#include "demo_host/json_replies.h"
#include "support/qt_printers.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

const QDateTime kEightInTheEvening(QDate(2026, 3, 14), QTime(20, 7), Qt::UTC);

QJsonObject Parsed(const QString &json)
{
    return QJsonDocument::fromJson(json.toUtf8()).object();
}

TEST(PositionReply, GivesWhatIsAskedForInItsOrder)
{
    // Baltimore, 15:07, which counts as 15:00: 23.0 C, 11.9 = 12 KT from 310 degrees.
    const AddressQuery query{{"latitude", "39.29"},
                             {"longitude", "-76.61"},
                             {"current", "wind_speed_10m,temperature_2m,wind_direction_10m"},
                             {"daily", "sunset,uv_index_max"}};

    EXPECT_EQ(PositionReply(query, kEightInTheEvening),
              "{\"latitude\":39.17,\"longitude\":-76.68,\"utc_offset_seconds\":-18000,"
              "\"current_units\":{\"time\":\"iso8601\",\"interval\":\"seconds\"},"
              "\"current\":{\"time\":\"2026-03-14T15:00\",\"interval\":900,"
              "\"wind_speed_10m\":22.2,\"temperature_2m\":23.0,\"wind_direction_10m\":310},"
              "\"daily_units\":{\"time\":\"iso8601\"},"
              "\"daily\":{\"time\":[\"2026-03-14\"],\"sunset\":[\"2026-03-14T18:30\"],"
              "\"uv_index_max\":[4.5]}}");
}

TEST(PositionReply, ChangesItsUnitsOnDemand)
{
    // Seattle, noon: 12.5 + 4.7 * cos 45 degrees = 15.8 C = 60.4 F, dew point 7.2 C = 45.0 F;
    // 9 KT = 10.4 mph; 0.4 mm = 0.016 inch.
    const AddressQuery query{
        {"latitude", "47.45"},
        {"longitude", "-122.31"},
        {"current", "temperature_2m,dew_point_2m,wind_speed_10m,precipitation"},
        {"temperature_unit", "fahrenheit"},
        {"wind_speed_unit", "mph"},
        {"precipitation_unit", "inch"}};

    const auto reply = PositionReply(query, kEightInTheEvening);

    ASSERT_TRUE(reply.has_value());
    EXPECT_TRUE(reply->contains("\"temperature_2m\":60.4,\"dew_point_2m\":45.0,"
                                "\"wind_speed_10m\":10.4,\"precipitation\":0.016"))
        << reply->toStdString();
}

TEST(PositionReply, IsNoneForWhatTheServiceDoesNotHave)
{
    const QDateTime now = kEightInTheEvening;

    EXPECT_FALSE(PositionReply({{"latitude", "39"}}, now).has_value());
    EXPECT_FALSE(PositionReply({{"latitude", "x"}, {"longitude", "1"}}, now).has_value());
    EXPECT_FALSE(PositionReply({{"latitude", "39"}, {"longitude", "1"}, {"current", "snow"}}, now));
    EXPECT_FALSE(PositionReply({{"latitude", "39"}, {"longitude", "1"}, {"daily", "snow"}}, now));
}

TEST(ObservationJson, HasTheValuesOfTheStation)
{
    const QJsonObject values =
        Parsed(ObservationJson(*FindStation(u"KBWI"), kEightInTheEvening))["properties"].toObject();

    EXPECT_EQ(values["timestamp"].toString(), "2026-03-14T20:07:00+00:00");
    EXPECT_EQ(values["textDescription"].toString(), "Mostly cloudy");
    EXPECT_EQ(values["temperature"]["value"].toDouble(), 23.0);
    EXPECT_EQ(values["windDirection"]["value"].toInt(), 310);
    EXPECT_EQ(values["windSpeed"]["value"].toDouble(), 22.224);
    EXPECT_EQ(values["barometricPressure"]["value"].toInt(), 101'320); // 1013 + cos 76.75 degrees
    EXPECT_EQ(values["relativeHumidity"]["value"].toInt(), 41);
    EXPECT_TRUE(values["windGust"]["value"].isNull());
}

TEST(ObservationJson, IsNullWhereTheStationReportsNothing)
{
    const QJsonObject values =
        Parsed(ObservationJson(*FindStation(u"BIKF"), kEightInTheEvening))["properties"].toObject();

    EXPECT_TRUE(values["temperature"]["value"].isNull());
    EXPECT_TRUE(values["relativeHumidity"]["value"].isNull());
    EXPECT_FALSE(values["windSpeed"]["value"].isNull());
}

TEST(PlaceReply, GivesTextsForTheTown)
{
    const QString reply = PlaceReply(*FindStation(u"EDDH"), kEightInTheEvening); // 21:07 there

    const QJsonObject root = Parsed(reply);
    const QJsonValue now = root["current_condition"][0];
    EXPECT_EQ(now["localObsDateTime"].toString(), "2026-03-14 09:07 PM");
    EXPECT_EQ(now["temp_C"].toString(), "10"); // 10 + 5 * cos 91.75 degrees = 9.8
    EXPECT_EQ(now["windspeedKmph"].toString(), "0");
    EXPECT_EQ(now["weatherDesc"][0]["value"].toString(), "Mostly clear");
    EXPECT_EQ(root["nearest_area"][0]["areaName"][0]["value"].toString(), "Hamburg");
    EXPECT_TRUE(reply.contains("\"temp_C\": \"10\",\n"));
    EXPECT_TRUE(reply.contains("\"windspeedKmph\": \"0\",\n"));
}

TEST(FindPlace, KnowsCodesAndTheBeginningsOfNames)
{
    EXPECT_EQ(FindPlace(u"EDDH"), FindStation(u"EDDH"));
    EXPECT_EQ(FindPlace(u"London"), FindStation(u"EGLL"));
    EXPECT_EQ(FindPlace(u"Atlantis"), nullptr);
    EXPECT_EQ(FindPlace(u""), nullptr);
}

} // namespace
